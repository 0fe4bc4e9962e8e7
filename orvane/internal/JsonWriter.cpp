#include <orvane/internal/JsonWriter.hpp>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace orvane {

using json_detail::copyPlain;

namespace {

constexpr char kPairs[] =
    "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
    "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
    "8081828384858687888990919293949596979899";

// Writes the `count` lowest decimal digits of `u` at `p`, zero-padded, and returns their end.
char* writeDigits(char* p, std::uint64_t u, int count) {
  char* end = p + count;
  char* q = end;
  for (; count >= 2; count -= 2) {
    q -= 2;
    std::memcpy(q, kPairs + 2 * (u % 100), 2);
    u /= 100;
  }
  if (count) *--q = static_cast<char>('0' + u % 10);
  return end;
}

int digitCount(std::uint64_t u) {
  int count = 1;
  for (std::uint64_t limit = 10; count < 20 && u >= limit; limit *= 10) ++count;
  return count;
}

// Writes a whole number below 2^53 at `p`, or returns null where scientific text is shorter
// (many trailing zeros).
char* writeWhole(char* p, std::uint64_t u) {
  int count = digitCount(u);
  if (count > 5) {
    int zeros = 0;
    for (std::uint64_t v = u; zeros < count - 1 && v % 10 == 0; v /= 10) ++zeros;
    // Scientific text is "d" or "d.ddd" with "e+XX": shorter beyond these.
    if (count - zeros == 1 || zeros > 5) return nullptr;
  }
  return writeDigits(p, u, count);
}

// The text after the integral digits of m / 1000, by m % 1000: the point and up to three
// digits without trailing zeros (nothing for zero), and how many of the four bytes count.
struct Fractions {
  char text[1000][4];
  unsigned char length[1000];
};
constexpr Fractions kFractions = [] {
  Fractions table{};
  for (int f = 0; f < 1000; ++f) {
    table.text[f][0] = '.';
    table.text[f][1] = static_cast<char>('0' + f / 100);
    table.text[f][2] = static_cast<char>('0' + f / 10 % 10);
    table.text[f][3] = static_cast<char>('0' + f % 10);
    int k = (f != 0) + (f % 100 != 0) + (f % 10 != 0);
    table.length[f] = static_cast<unsigned char>(k == 0 ? 0 : k + 1);
  }
  return table;
}();

// The longest text writeJsonNumber writes.
constexpr std::size_t kMaxNumber = 32;

// Whole numbers from 2^53 below 1e18, at `p` after their sign: the shortest digits that read
// back as the value, padded with zeros to the units (not the value's exact digits, which would
// claim a precision the double does not have), or scientific text where that is shorter.
char* writeLargeWhole(char* p, double magnitude) {
  // "d.ddde+XX": the exponent is 15 to 17 here, so it always has two digits.
  char* end = std::to_chars(p, p + kMaxNumber, magnitude, std::chars_format::scientific).ptr;
  int exponent = (end[-2] - '0') * 10 + (end[-1] - '0');
  int digits = end - p > 5 ? static_cast<int>(end - p) - 5 : 1;
  if (end - p < exponent + 1) return end;
  if (digits > 1) std::memmove(p + 1, p + 2, static_cast<std::size_t>(digits - 1));
  std::memset(p + digits, '0', static_cast<std::size_t>(exponent + 1 - digits));
  return p + exponent + 1;
}

// Every finite number the short path does not take: -0, large or long ones.
[[gnu::noinline]] char* writeOtherNumber(char* p, double value) {
  if (value == 0) {
    // "-0" would read back as the integer zero and lose its sign.
    std::memcpy(p, "-0.0", 4);
    return p + 4;
  }
  double magnitude = std::fabs(value);
  if (std::trunc(value) == value && magnitude < 1e18) {
    *p = '-';
    char* digits = p + (value < 0);
    // Below 2^53 every integer is a double: its own digits are the shortest. Fixed notation
    // where that is not longer.
    if (magnitude < 0x1p53) {
      if (char* end = writeWhole(digits, static_cast<std::uint64_t>(magnitude))) return end;
    } else {
      return writeLargeWhole(digits, magnitude);
    }
  }
  // Integral text beyond 64 bits would read back as an integer too large for the parser.
  return magnitude >= 1e18
             ? std::to_chars(p, p + kMaxNumber, value, std::chars_format::scientific).ptr
             : std::to_chars(p, p + kMaxNumber, value).ptr;
}

// A scaled number `u` whose integral part is beyond four digits, after its sign at `p`;
// `start` is where the sign would go. Out of line, and reached by a tail call, so that the
// common case keeps nothing across calls and saves no registers.
[[gnu::noinline]] char* writeLargeNumber(char* start, char* p, std::uint64_t u, double value) {
  std::uint64_t integral = u / 1000;
  auto fraction = static_cast<unsigned>(u % 1000);
  p = fraction == 0 ? writeWhole(p, integral) : writeDigits(p, integral, digitCount(integral));
  if (!p) return writeOtherNumber(start, value);
  std::memcpy(p, kFractions.text[fraction], 4);
  return p + kFractions.length[fraction];
}

}  // namespace

// Integers, and numbers with at most three decimals, below 2^50 in magnitude once scaled by
// 1000: their shortest round-trip text is the integer m of value * 10^k for the least k with
// m / 10^k == value (the division rounds as a parser does), with the point put back. A value
// that is m / 10^k is m * 10^(3-k) / 1000 too (the same quotient, rounded the same way), and
// the reverse: so one test with k = 3 decides, and m's trailing zeros give the least k. Fixed
// notation is then never longer than scientific, except for integers with many trailing zeros.
// Writes the same text as to_chars, several times faster. Few branches: whether a value is
// whole, and its length, vary unpredictably from one to the next.
char* writeJsonNumber(char* p, double value) {
  double x = value * 1000;
  if (!(std::fabs(x) < 0x1p50)) return writeOtherNumber(p, value);
  // When some m passes the test, x lies within a quarter of it: rounding half away from zero
  // finds the same m as rounding to nearest would.
  auto m = static_cast<std::int64_t>(x + std::copysign(0.5, x));
  if (static_cast<double>(m) / 1000 != value || (m == 0 && std::signbit(value)))
    return writeOtherNumber(p, value);
  char* start = p;
  *p = '-';
  p += m < 0;
  auto u = static_cast<std::uint64_t>(m < 0 ? -m : m);
  if (u >= 10000000) return writeLargeNumber(start, p, u, value);
  std::uint64_t integral = u / 1000;
  auto fraction = static_cast<unsigned>(u % 1000);
  // The integral part, four digits at most, in a register (not a buffer read back across two
  // stores, which stalls), without their leading zeros but the last.
  std::uint16_t high, low;
  std::memcpy(&high, kPairs + 2 * (integral / 100), 2);
  std::memcpy(&low, kPairs + 2 * (integral % 100), 2);
  std::uint32_t digits, values;
  int zeros;
  if constexpr (std::endian::native == std::endian::little) {
    digits = high | std::uint32_t{low} << 16;
    values = (digits ^ 0x30303030u) | 0x01000000u;
    zeros = std::countr_zero(values) / 8;
    digits >>= 8 * zeros;
  } else {
    digits = std::uint32_t{high} << 16 | low;
    values = (digits ^ 0x30303030u) | 0x00000001u;
    zeros = std::countl_zero(values) / 8;
    digits <<= 8 * zeros;
  }
  std::memcpy(p, &digits, 4);
  p += 4 - zeros;
  std::memcpy(p, kFractions.text[fraction], 4);
  return p + kFractions.length[fraction];
}

void appendJsonString(std::string& out, std::string_view value) {
  JsonWriter(out).string(value);
}

void appendJsonNumber(std::string& out, double value) {
  char buf[kMaxNumber];
  out.append(buf, static_cast<std::size_t>(writeJsonNumber(buf, value) - buf));
}

void JsonWriter::grow(std::size_t n) {
  std::size_t used = size();
  if (sink_ && used >= kStreamPiece / 2) {
    sink_(sinkContext_, std::string_view(out_->data(), used));
    used = 0;
  }
  // Ahead by as much as is written, within bounds: few resizes (each clears what it adds), and
  // a short text keeps a small buffer.
  std::size_t ahead = std::clamp<std::size_t>(used, 256, std::size_t{64} << 10);
  if (sink_) ahead = kStreamPiece;  // one piece's buffer, cleared once
  out_->resize(used + std::max(n, ahead));
  cur_ = out_->data() + used;
  end_ = out_->data() + out_->size();
}

void JsonWriter::flush() {
  if (!cur_) return;
  out_->resize(size());
  cur_ = end_ = nullptr;
}

char* JsonWriter::newline(char* p) {
  *p++ = '\n';
  std::size_t indent = 2 * stack_.size();
  std::memset(p, ' ', indent);
  return p + indent;
}

char* JsonWriter::beforeValue(std::size_t n) {
  if (afterKey_) {
    afterKey_ = false;
    return reserve(n);
  }
  if (stack_.empty()) return reserve(n);
  Frame& top = stack_.back();
  bool comma = !top.empty;
  top.empty = false;
  char* p = reserve(n + 1 + (pretty_ ? 1 + 2 * stack_.size() : 0));
  *p = ',';
  p += comma;
  return pretty_ ? newline(p) : p;
}

char* JsonWriter::quoted(char* p, std::string_view value) {
  *p++ = '"';
  std::size_t plain = copyPlain(p, value.data(), value.size());
  p += plain;
  if (plain != value.size()) {
    cur_ = p;
    escaped(value.data() + plain, value.size() - plain);
    p = reserve(8);
  }
  *p++ = '"';
  return p;
}

char* json_detail::writeEscaped(char* p, const char* s, std::size_t n) {
  static constexpr char hex[] = "0123456789abcdef";
  while (n > 0) {
    std::size_t plain = copyPlain(p, s, n);
    p += plain;
    s += plain;
    n -= plain;
    if (n == 0) break;
    auto c = static_cast<unsigned char>(*s++);
    --n;
    switch (c) {
      case '"':
        p = std::copy_n("\\\"", 2, p);
        break;
      case '\\':
        p = std::copy_n("\\\\", 2, p);
        break;
      case '\n':
        p = std::copy_n("\\n", 2, p);
        break;
      case '\r':
        p = std::copy_n("\\r", 2, p);
        break;
      case '\t':
        p = std::copy_n("\\t", 2, p);
        break;
      case '\b':
        p = std::copy_n("\\b", 2, p);
        break;
      case '\f':
        p = std::copy_n("\\f", 2, p);
        break;
      default:
        if (c < 0x20) {
          p = std::copy_n("\\u00", 4, p);
          *p++ = hex[c >> 4];
          *p++ = hex[c & 0xF];
        } else {
          // A plain byte in a short run that copyPlain gave back whole.
          *p++ = static_cast<char>(c);
        }
    }
  }
  return p;
}

void JsonWriter::escaped(const char* s, std::size_t n) {
  // In slices, so that a long text needs no room for six times its length at once.
  while (n > 0) {
    std::size_t slice = std::min<std::size_t>(n, json_detail::kEscapeSlice);
    cur_ = json_detail::writeEscaped(reserve(6 * slice), s, slice);
    s += slice;
    n -= slice;
  }
}

void JsonWriter::anyKey(std::string_view name) {
  Frame& top = stack_.back();
  bool comma = !top.empty;
  top.empty = false;
  afterKey_ = true;
  char* p = reserve(name.size() + 5 + (pretty_ ? 1 + 2 * stack_.size() : 0));
  *p = ',';
  p += comma;
  if (pretty_) p = newline(p);
  p = quoted(p, name);
  *p++ = ':';
  if (pretty_) *p++ = ' ';
  cur_ = p;
}

void JsonWriter::open(bool isObject, char bracket) {
  char* p = beforeValue(1);
  *p++ = bracket;
  cur_ = p;
  stack_.push_back({isObject, true});
}

void JsonWriter::beginObject() {
  open(true, '{');
}

void JsonWriter::beginArray() {
  open(false, '[');
}

void JsonWriter::end() {
  Frame top = stack_.back();
  stack_.pop_back();
  char* p = reserve(pretty_ ? 2 + 2 * stack_.size() : 1);
  if (pretty_ && !top.empty) p = newline(p);
  *p++ = top.isObject ? '}' : ']';
  afterValue(p);
}

void JsonWriter::endObject() {
  end();
}

void JsonWriter::endArray() {
  end();
}

void JsonWriter::null() {
  char* p = beforeValue(4);
  std::memcpy(p, "null", 4);
  afterValue(p + 4);
}

void JsonWriter::boolean(bool value) {
  char* p = beforeValue(5);
  std::memcpy(p, value ? "true" : "false", 5);  // with its terminator for "true"
  afterValue(p + (value ? 4 : 5));
}

void JsonWriter::integer(std::int64_t value) {
  char* p = beforeValue(20);
  afterValue(std::to_chars(p, p + 20, value).ptr);
}

void JsonWriter::anyNumber(double value) {
  char* p = beforeValue(kMaxNumber);
  afterValue(writeJsonNumber(p, value));
}

void JsonWriter::anyString(std::string_view value) {
  char* p = beforeValue(value.size() + 2);
  afterValue(quoted(p, value));
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
