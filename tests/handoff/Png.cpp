#include "Png.hpp"

#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace orvane::test {

Pixel Image::at(int x, int y) const {
  if (x < 0 || y < 0 || x >= width || y >= height) throw std::out_of_range("pixel outside image");
  std::size_t i = (static_cast<std::size_t>(y) * width + x) * 3;
  return {rgb[i], rgb[i + 1], rgb[i + 2]};
}

namespace {

[[noreturn]] void fail(const std::string& why) {
  throw std::runtime_error("PNG: " + why);
}

// Deflate decoding, canonical Huffman codes read as in RFC 1951.
class Inflater {
 public:
  explicit Inflater(const std::vector<std::uint8_t>& in) : in_(in) {}

  std::vector<std::uint8_t> run() {
    bool last = false;
    while (!last) {
      last = bits(1);
      int type = bits(2);
      if (type == 0) {
        stored();
      } else if (type == 1) {
        fixedCodes();
      } else if (type == 2) {
        dynamicCodes();
      } else {
        fail("bad block type");
      }
    }
    return std::move(out_);
  }

 private:
  struct Huffman {
    std::array<short, 16> count{};
    std::array<short, 320> symbol{};
  };

  int bits(int need) {
    long value = bitBuffer_;
    while (bitCount_ < need) {
      if (pos_ >= in_.size()) fail("data ends early");
      value |= static_cast<long>(in_[pos_++]) << bitCount_;
      bitCount_ += 8;
    }
    bitBuffer_ = static_cast<int>(value >> need);
    bitCount_ -= need;
    return static_cast<int>(value & ((1L << need) - 1));
  }

  void stored() {
    bitBuffer_ = 0;
    bitCount_ = 0;
    if (pos_ + 4 > in_.size()) fail("stored block ends early");
    std::size_t length = in_[pos_] | (in_[pos_ + 1] << 8);
    pos_ += 4;
    if (pos_ + length > in_.size()) fail("stored block ends early");
    out_.insert(out_.end(), in_.begin() + pos_, in_.begin() + pos_ + length);
    pos_ += length;
  }

  static void build(Huffman& h, const short* lengths, int n) {
    h.count.fill(0);
    for (int i = 0; i < n; ++i) h.count[lengths[i]]++;
    std::array<short, 16> offsets{};
    for (int len = 1; len < 15; ++len) offsets[len + 1] = offsets[len] + h.count[len];
    for (int i = 0; i < n; ++i) {
      if (lengths[i] != 0) h.symbol[offsets[lengths[i]]++] = static_cast<short>(i);
    }
  }

  int decode(const Huffman& h) {
    int code = 0, first = 0, index = 0;
    for (int len = 1; len < 16; ++len) {
      code |= bits(1);
      int count = h.count[len];
      if (code - count < first) return h.symbol[index + (code - first)];
      index += count;
      first += count;
      first <<= 1;
      code <<= 1;
    }
    fail("bad code");
  }

  void codes(const Huffman& lengths, const Huffman& distances) {
    static constexpr short kLengthBase[] = {3,  4,  5,  6,   7,   8,   9,   10,  11, 13,
                                            15, 17, 19, 23,  27,  31,  35,  43,  51, 59,
                                            67, 83, 99, 115, 131, 163, 195, 227, 258};
    static constexpr short kLengthExtra[] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                             2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
    static constexpr int kDistanceBase[] = {
        1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
        193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
    static constexpr short kDistanceExtra[] = {0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
                                               6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
    for (;;) {
      int symbol = decode(lengths);
      if (symbol < 256) {
        out_.push_back(static_cast<std::uint8_t>(symbol));
      } else if (symbol == 256) {
        return;
      } else {
        symbol -= 257;
        if (symbol >= 29) fail("bad length");
        std::size_t length = kLengthBase[symbol] + bits(kLengthExtra[symbol]);
        int d = decode(distances);
        if (d >= 30) fail("bad distance");
        std::size_t distance = kDistanceBase[d] + bits(kDistanceExtra[d]);
        if (distance > out_.size()) fail("distance too far back");
        for (std::size_t i = 0; i < length; ++i) out_.push_back(out_[out_.size() - distance]);
      }
    }
  }

  void fixedCodes() {
    short lengths[288 + 30];
    int i = 0;
    for (; i < 144; ++i) lengths[i] = 8;
    for (; i < 256; ++i) lengths[i] = 9;
    for (; i < 280; ++i) lengths[i] = 7;
    for (; i < 288; ++i) lengths[i] = 8;
    for (; i < 288 + 30; ++i) lengths[i] = 5;
    Huffman literal, distance;
    build(literal, lengths, 288);
    build(distance, lengths + 288, 30);
    codes(literal, distance);
  }

  void dynamicCodes() {
    static constexpr short kOrder[19] = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                         11, 4,  12, 3, 13, 2, 14, 1, 15};
    int literals = bits(5) + 257, distances = bits(5) + 1, codeLengths = bits(4) + 4;
    short lengths[320] = {};
    for (int i = 0; i < codeLengths; ++i) lengths[kOrder[i]] = static_cast<short>(bits(3));
    Huffman lengthCode;
    build(lengthCode, lengths, 19);
    int i = 0;
    while (i < literals + distances) {
      int symbol = decode(lengthCode);
      if (symbol < 16) {
        lengths[i++] = static_cast<short>(symbol);
        continue;
      }
      short repeat = 0;
      int times = 0;
      if (symbol == 16) {
        if (i == 0) fail("repeat with nothing before");
        repeat = lengths[i - 1];
        times = 3 + bits(2);
      } else if (symbol == 17) {
        times = 3 + bits(3);
      } else {
        times = 11 + bits(7);
      }
      if (i + times > literals + distances) fail("too many lengths");
      while (times--) lengths[i++] = repeat;
    }
    Huffman literal, distance;
    build(literal, lengths, literals);
    build(distance, lengths + literals, distances);
    codes(literal, distance);
  }

  const std::vector<std::uint8_t>& in_;
  std::size_t pos_ = 2;  // after the zlib header
  int bitBuffer_ = 0;
  int bitCount_ = 0;
  std::vector<std::uint8_t> out_;
};

std::uint32_t bigEndian(const std::uint8_t* p) {
  return (std::uint32_t(p[0]) << 24) | (p[1] << 16) | (p[2] << 8) | p[3];
}

}  // namespace

Image readPng(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<std::uint8_t> data((std::istreambuf_iterator<char>(file)), {});
  static constexpr std::uint8_t kSignature[8] = {137, 80, 78, 71, 13, 10, 26, 10};
  if (data.size() < 8 || !std::equal(kSignature, kSignature + 8, data.begin())) {
    fail("not a PNG: " + path);
  }
  Image image;
  int channels = 0;
  std::vector<std::uint8_t> compressed;
  for (std::size_t at = 8; at + 12 <= data.size();) {
    std::uint32_t length = bigEndian(&data[at]);
    std::string type(data.begin() + at + 4, data.begin() + at + 8);
    const std::uint8_t* body = &data[at + 8];
    if (at + 12 + length > data.size()) fail("chunk ends early");
    if (type == "IHDR") {
      image.width = static_cast<int>(bigEndian(body));
      image.height = static_cast<int>(bigEndian(body + 4));
      if (body[8] != 8 || body[12] != 0) fail("only 8-bit, non-interlaced images");
      channels = body[9] == 2 ? 3 : body[9] == 6 ? 4 : 0;
      if (channels == 0) fail("only RGB and RGBA images");
    } else if (type == "IDAT") {
      compressed.insert(compressed.end(), body, body + length);
    }
    at += 12 + length;
  }
  std::vector<std::uint8_t> raw = Inflater(compressed).run();
  const std::size_t stride = static_cast<std::size_t>(image.width) * channels;
  if (raw.size() < (stride + 1) * image.height) fail("image data ends early");
  std::vector<std::uint8_t> previous(stride, 0), row(stride);
  image.rgb.reserve(static_cast<std::size_t>(image.width) * image.height * 3);
  for (int y = 0; y < image.height; ++y) {
    const std::uint8_t* line = &raw[y * (stride + 1)];
    int filter = line[0];
    for (std::size_t i = 0; i < stride; ++i) {
      int a = i >= static_cast<std::size_t>(channels) ? row[i - channels] : 0;
      int b = previous[i];
      int c = i >= static_cast<std::size_t>(channels) ? previous[i - channels] : 0;
      int predictor = 0;
      switch (filter) {
        case 0:
          break;
        case 1:
          predictor = a;
          break;
        case 2:
          predictor = b;
          break;
        case 3:
          predictor = (a + b) / 2;
          break;
        case 4: {
          int p = a + b - c, pa = std::abs(p - a), pb = std::abs(p - b), pc = std::abs(p - c);
          predictor = (pa <= pb && pa <= pc) ? a : pb <= pc ? b : c;
          break;
        }
        default:
          fail("bad filter");
      }
      row[i] = static_cast<std::uint8_t>(line[1 + i] + predictor);
    }
    for (int x = 0; x < image.width; ++x) {
      // Alpha over white, as the page shows it.
      int alpha = channels == 4 ? row[x * 4 + 3] : 255;
      for (int k = 0; k < 3; ++k) {
        int v = row[x * channels + k];
        image.rgb.push_back(static_cast<std::uint8_t>((v * alpha + 255 * (255 - alpha)) / 255));
      }
    }
    std::swap(previous, row);
  }
  return image;
}

}  // namespace orvane::test
