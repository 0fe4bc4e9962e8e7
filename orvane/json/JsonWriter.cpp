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
inline std::size_t plainPrefix(std::string_view value) {
  const char* data = value.data();
  std::size_t size = value.size();
  std::uint64_t w;
  if (size < 8) {
    for (std::size_t i = 0; i < size; ++i) {
      unsigned char c = static_cast<unsigned char>(data[i]);
      if (c < 0x20 || c == '"' || c == '\\') return i;
    }
    return size;
  }
  std::size_t i = 0;
  for (; i + 8 <= size; i += 8) {
    std::memcpy(&w, data + i, 8);
    if (needsEscape(w)) return i;
  }
  if (i == size) return i;
  // The last bytes, in a word that overlaps the one before.
  std::memcpy(&w, data + size - 8, 8);
  return needsEscape(w) ? i : size;
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
// Writes the text at `p` (at most 32 bytes) and returns its end, or null when the value is not
// such a number.
char* writeShortDecimal(char* p, double value) {
  static constexpr double scales[] = {1, 10, 100, 1000};
  if (!(std::fabs(value) < 0x1p50)) return nullptr;
  for (int k = 0; k < 4; ++k) {
    double m = std::nearbyint(value * scales[k]);
    if (m / scales[k] != value) continue;
    if (!(std::fabs(m) < 0x1p50)) return nullptr;
    auto integer = static_cast<std::int64_t>(m);
    char digits[24];
    char* end = std::to_chars(digits, digits + sizeof digits, integer < 0 ? -integer : integer).ptr;
    auto count = static_cast<int>(end - digits);
    if (k == 0) {
      int zeros = 0;
      while (zeros < count - 1 && digits[count - 1 - zeros] == '0') ++zeros;
      // Scientific text is "d" or "d.ddd" with "e+XX": shorter beyond these.
      bool fixed = count - zeros == 1 ? count <= 5 : zeros <= 5;
      if (!fixed) return nullptr;
    }
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
    return p;
  }
  return nullptr;
}

// Writes the JSON text of a finite double at `p` (at most 32 bytes) and returns its end.
char* writeNumber(char* p, double value) {
  if (value == 0 && std::signbit(value)) {
    // "-0" would read back as the integer zero and lose its sign.
    std::memcpy(p, "-0.0", 4);
    return p + 4;
  }
  if (char* end = writeShortDecimal(p, value)) return end;
  // Integral text beyond 64 bits would read back as an integer too large for the parser.
  return std::fabs(value) >= 1e18
             ? std::to_chars(p, p + 32, value, std::chars_format::scientific).ptr
             : std::to_chars(p, p + 32, value).ptr;
}

// Strings up to this length go out in one piece with their separator and quotes.
constexpr std::size_t kShortString = 96;

}  // namespace

void appendJsonNumber(std::string& out, double value) {
  char buf[32];
  out.append(buf, static_cast<std::size_t>(writeNumber(buf, value) - buf));
}

void JsonWriter::newline() {
  *out_ += '\n';
  out_->append(2 * stack_.size(), ' ');
}

bool JsonWriter::beforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return false;
  }
  if (stack_.empty()) return false;
  Frame& top = stack_.back();
  bool comma = !top.empty;
  top.empty = false;
  if (!pretty_) return comma;
  if (comma) *out_ += ',';
  newline();
  return false;
}

void JsonWriter::key(std::string_view name) {
  Frame& top = stack_.back();
  bool comma = !top.empty;
  top.empty = false;
  afterKey_ = true;
  if (!pretty_ && name.size() <= kShortString && plainPrefix(name) == name.size()) {
    char buf[kShortString + 4];
    char* p = buf;
    *p = ',';
    p += comma;
    *p++ = '"';
    std::memcpy(p, name.data(), name.size());
    p += name.size();
    *p++ = '"';
    *p++ = ':';
    out_->append(buf, static_cast<std::size_t>(p - buf));
    return;
  }
  if (comma) *out_ += ',';
  if (pretty_) newline();
  appendJsonString(*out_, name);
  *out_ += pretty_ ? ": " : ":";
}

void JsonWriter::beginObject() {
  if (beforeValue()) *out_ += ',';
  *out_ += '{';
  stack_.push_back({true, true});
}

void JsonWriter::beginArray() {
  if (beforeValue()) *out_ += ',';
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
  out_->append(beforeValue() ? ",null" : "null");
}

void JsonWriter::boolean(bool value) {
  if (beforeValue()) *out_ += ',';
  *out_ += value ? "true" : "false";
}

void JsonWriter::integer(std::int64_t value) {
  char buf[24];
  char* p = buf;
  *p = ',';
  p += beforeValue();
  out_->append(buf, static_cast<std::size_t>(std::to_chars(p, buf + sizeof buf, value).ptr - buf));
}

void JsonWriter::number(double value) {
  char buf[33];
  char* p = buf;
  *p = ',';
  p += beforeValue();
  out_->append(buf, static_cast<std::size_t>(writeNumber(p, value) - buf));
}

void JsonWriter::string(std::string_view value) {
  bool comma = beforeValue();
  if (value.size() <= kShortString && plainPrefix(value) == value.size()) {
    char buf[kShortString + 3];
    char* p = buf;
    *p = ',';
    p += comma;
    *p++ = '"';
    std::memcpy(p, value.data(), value.size());
    p += value.size();
    *p++ = '"';
    out_->append(buf, static_cast<std::size_t>(p - buf));
    return;
  }
  if (comma) *out_ += ',';
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
