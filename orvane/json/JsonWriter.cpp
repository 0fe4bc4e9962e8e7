#include <orvane/json/JsonWriter.hpp>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace orvane {

namespace {

constexpr std::uint64_t kOnes = 0x0101010101010101ull;
constexpr std::uint64_t kHighs = 0x8080808080808080ull;

// Nonzero when one of the eight bytes of `w` is a control character, a quote or a backslash.
// Bytes from 0x80 up (UTF-8 sequences) never count.
inline std::uint64_t needsEscape(std::uint64_t w) {
  auto zeroByte = [](std::uint64_t v) { return (v - kOnes) & ~v & kHighs; };
  std::uint64_t control = (w - 0x20 * kOnes) & ~w & kHighs;
  return control | zeroByte(w ^ ('"' * kOnes)) | zeroByte(w ^ ('\\' * kOnes));
}

// The length of the prefix of `value` that needs no escaping, or a shorter length.
std::size_t plainPrefix(std::string_view value) {
  std::size_t i = 0;
  std::uint64_t w;
  for (; i + 8 <= value.size(); i += 8) {
    std::memcpy(&w, value.data() + i, 8);
    if (needsEscape(w)) return i;
  }
  if (i == value.size()) return i;
  // The last few bytes, in a word filled up with a byte that needs nothing.
  unsigned char tail[8];
  std::memset(tail, 'a', 8);
  std::memcpy(tail, value.data() + i, value.size() - i);
  std::memcpy(&w, tail, 8);
  return needsEscape(w) ? i : value.size();
}

}  // namespace

void appendJsonString(std::string& out, std::string_view value) {
  static constexpr char hex[] = "0123456789abcdef";
  std::size_t plain = plainPrefix(value);
  if (plain == value.size()) {
    // Nearly every string: one copy, no per-byte work.
    out += '"';
    out.append(value.data(), value.size());
    out += '"';
    return;
  }
  out += '"';
  out.append(value.data(), plain);
  std::size_t run = plain;  // start of the pending run that needs no escaping
  for (std::size_t i = plain; i < value.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(value[i]);
    if (c >= 0x20 && c != '"' && c != '\\') continue;
    out.append(value.data() + run, i - run);
    run = i + 1;
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\b':
        out += "\\b";
        break;
      case '\f':
        out += "\\f";
        break;
      default:
        out += "\\u00";
        out += hex[c >> 4];
        out += hex[c & 0xF];
    }
  }
  out.append(value.data() + run, value.size() - run);
  out += '"';
}

namespace {

// Integers, and numbers with at most three decimals, below 2^50 in magnitude: their shortest
// round-trip text is the integer m of value * 10^k for the least k with m / 10^k == value (the
// division rounds as a parser does), with the point put back. Fixed notation is then never
// longer than scientific, except for integers with many trailing zeros, which are left to
// to_chars. Writes the same text as to_chars, several times faster.
bool appendShortDecimal(std::string& out, double value) {
  static constexpr double scales[] = {1, 10, 100, 1000};
  if (!(std::fabs(value) < 0x1p50)) return false;
  for (int k = 0; k < 4; ++k) {
    double m = std::nearbyint(value * scales[k]);
    if (m / scales[k] != value) continue;
    if (!(std::fabs(m) < 0x1p50)) return false;
    auto integer = static_cast<std::int64_t>(m);
    char digits[24];
    char* end = std::to_chars(digits, digits + sizeof digits, integer < 0 ? -integer : integer).ptr;
    auto count = static_cast<int>(end - digits);
    if (k == 0) {
      int zeros = 0;
      while (zeros < count - 1 && digits[count - 1 - zeros] == '0') ++zeros;
      // Scientific text is "d" or "d.ddd" with "e+XX": shorter beyond these.
      bool fixed = count - zeros == 1 ? count <= 5 : zeros <= 5;
      if (!fixed) return false;
    }
    char buf[32];
    char* p = buf;
    if (integer < 0) *p++ = '-';
    if (k == 0) {
      std::memcpy(p, digits, count);
      p += count;
    } else if (count > k) {
      std::memcpy(p, digits, count - k);
      p += count - k;
      *p++ = '.';
      std::memcpy(p, digits + count - k, k);
      p += k;
    } else {
      *p++ = '0';
      *p++ = '.';
      for (int i = count; i < k; ++i) *p++ = '0';
      std::memcpy(p, digits, count);
      p += count;
    }
    out.append(buf, p);
    return true;
  }
  return false;
}

}  // namespace

void appendJsonNumber(std::string& out, double value) {
  if (value == 0 && std::signbit(value)) {
    // "-0" would read back as the integer zero and lose its sign.
    out += "-0.0";
    return;
  }
  if (appendShortDecimal(out, value)) return;
  char buf[32];
  // Integral text beyond 64 bits would read back as an integer too large for the parser.
  auto result = std::fabs(value) >= 1e18
                    ? std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific)
                    : std::to_chars(buf, buf + sizeof buf, value);
  out.append(buf, result.ptr);
}

void JsonWriter::newline() {
  *out_ += '\n';
  out_->append(2 * stack_.size(), ' ');
}

void JsonWriter::beforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (stack_.empty()) return;
  Frame& top = stack_.back();
  if (!top.empty) *out_ += ',';
  top.empty = false;
  if (pretty_) newline();
}

void JsonWriter::key(std::string_view name) {
  Frame& top = stack_.back();
  if (!top.empty) *out_ += ',';
  top.empty = false;
  if (pretty_) newline();
  appendJsonString(*out_, name);
  *out_ += pretty_ ? ": " : ":";
  afterKey_ = true;
}

void JsonWriter::beginObject() {
  beforeValue();
  *out_ += '{';
  stack_.push_back({true, true});
}

void JsonWriter::beginArray() {
  beforeValue();
  *out_ += '[';
  stack_.push_back({false, true});
}

void JsonWriter::endObject() {
  bool empty = stack_.back().empty;
  stack_.pop_back();
  if (pretty_ && !empty) newline();
  *out_ += '}';
}

void JsonWriter::endArray() {
  bool empty = stack_.back().empty;
  stack_.pop_back();
  if (pretty_ && !empty) newline();
  *out_ += ']';
}

void JsonWriter::null() {
  beforeValue();
  *out_ += "null";
}

void JsonWriter::boolean(bool value) {
  beforeValue();
  *out_ += value ? "true" : "false";
}

void JsonWriter::integer(std::int64_t value) {
  beforeValue();
  char buf[24];
  auto result = std::to_chars(buf, buf + sizeof buf, value);
  out_->append(buf, result.ptr);
}

void JsonWriter::number(double value) {
  beforeValue();
  appendJsonNumber(*out_, value);
}

void JsonWriter::string(std::string_view value) {
  beforeValue();
  appendJsonString(*out_, value);
}

void JsonFieldWriter::number(double value) {
  // A debug view must show every value it is given; JSON has no literal for these.
  if (std::isnan(value))
    writer_->string("nan");
  else if (std::isinf(value))
    writer_->string(value > 0 ? "inf" : "-inf");
  else
    writer_->number(value);
}

}  // namespace orvane
