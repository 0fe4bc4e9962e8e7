#include <orvane/json/JsonWriter.hpp>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace orvane {

namespace {

constexpr std::uint64_t kOnes = 0x0101010101010101ull;
constexpr std::uint64_t kHighs = 0x8080808080808080ull;

// The high bit of each of the eight bytes of `w` that is a control character, a quote or a
// backslash; bytes from 0x80 up (UTF-8 sequences) never count. Bits above the first flagged
// byte may be spurious, the first one never is.
inline std::uint64_t needsEscape(std::uint64_t w) {
  auto zeroByte = [](std::uint64_t v) { return (v - kOnes) & ~v & kHighs; };
  std::uint64_t control = (w - 0x20 * kOnes) & ~w & kHighs;
  return control | zeroByte(w ^ ('"' * kOnes)) | zeroByte(w ^ ('\\' * kOnes));
}

// The index in memory order of the first byte flagged in `mask`.
inline std::size_t firstFlagged(std::uint64_t mask) {
  if constexpr (std::endian::native == std::endian::little)
    return static_cast<std::size_t>(std::countr_zero(mask)) / 8;
  else
    return static_cast<std::size_t>(std::countl_zero(mask)) / 8;
}

inline std::uint64_t load64(const char* p) {
  std::uint64_t w;
  std::memcpy(&w, p, 8);
  return w;
}
inline std::uint32_t load32(const char* p) {
  std::uint32_t w;
  std::memcpy(&w, p, 4);
  return w;
}

// Copies from `s` to `d` the longest prefix of the `n` bytes that needs no escaping (for fewer
// than eight bytes, either all or none) and returns its length. Writes nothing at or beyond
// d + n, but may write past the prefix. Word-sized moves instead of a call to memcpy: nearly
// every key and string is short.
inline std::size_t copyPlain(char* d, const char* s, std::size_t n) {
  if (n >= 8) {
    std::size_t i = 0;
    for (; i + 8 <= n; i += 8) {
      std::uint64_t w = load64(s + i);
      std::memcpy(d + i, &w, 8);
      if (std::uint64_t m = needsEscape(w)) return i + firstFlagged(m);
    }
    if (i == n) return n;
    // The last bytes, in a word that overlaps the one before (whose bytes are plain).
    std::uint64_t w = load64(s + n - 8);
    std::memcpy(d + n - 8, &w, 8);
    if (std::uint64_t m = needsEscape(w)) return n - 8 + firstFlagged(m);
    return n;
  }
  if (n >= 4) {
    // Two words that overlap when n < 8.
    std::uint32_t a = load32(s), b = load32(s + n - 4);
    if (needsEscape(a | std::uint64_t{b} << 32)) return 0;
    std::memcpy(d, &a, 4);
    std::memcpy(d + n - 4, &b, 4);
    return n;
  }
  if (n == 0) return 0;
  // The first, middle and last bytes cover one to three, padded with a plain letter.
  auto a = static_cast<unsigned char>(s[0]);
  auto b = static_cast<unsigned char>(s[n / 2]);
  auto c = static_cast<unsigned char>(s[n - 1]);
  std::uint64_t w = a | std::uint64_t{b} << 8 | std::uint64_t{c} << 16 | 0x6161616161000000ull;
  if (needsEscape(w)) return 0;
  d[0] = static_cast<char>(a);
  d[n / 2] = static_cast<char>(b);
  d[n - 1] = static_cast<char>(c);
  return n;
}

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

// Writes a whole number below 2^50 at `p`, or returns null where scientific text is shorter
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

// Integers, and numbers with at most three decimals, below 2^50 in magnitude: their shortest
// round-trip text is the integer m of value * 10^k for the least k with m / 10^k == value (the
// division rounds as a parser does), with the point put back. Fixed notation is then never
// longer than scientific, except for integers with many trailing zeros, which are left to
// to_chars. Writes the same text as to_chars, several times faster.
// Writes the text at `p` (room for 32 bytes) and returns its end, or null when the value is
// not such a number.
char* writeShortDecimal(char* p, double value) {
  // A value that is m / 10^k is m * 10^(3-k) / 1000 too (the same quotient, rounded the same
  // way), and the reverse: so one test with k = 3 decides, and m's trailing zeros give the
  // least k. Few branches: whether a value is whole, and its length, vary from one to the next.
  double x = value * 1000;
  if (!(std::fabs(x) < 0x1p50)) {
    if (!(std::fabs(value) < 0x1p50) || std::trunc(value) != value) return nullptr;
    auto whole = static_cast<std::int64_t>(value);
    *p = '-';
    return writeWhole(p + (whole < 0), static_cast<std::uint64_t>(whole < 0 ? -whole : whole));
  }
  // When some m passes the test, x lies within a quarter of it: rounding half away from zero
  // finds the same m as rounding to nearest would.
  auto m = static_cast<std::int64_t>(x + std::copysign(0.5, x));
  if (static_cast<double>(m) / 1000 != value) return nullptr;
  *p = '-';
  p += m < 0;
  auto u = static_cast<std::uint64_t>(m < 0 ? -m : m);
  std::uint64_t integral = u / 1000;
  auto fraction = static_cast<unsigned>(u % 1000);
  int k = (fraction != 0) + (fraction % 100 != 0) + (fraction % 10 != 0);
  if (integral < 10000) {
    // Four digits in a register (not a buffer read back across two stores, which stalls), of
    // which the last `count` are kept.
    std::uint16_t high, low;
    std::memcpy(&high, kPairs + 2 * (integral / 100), 2);
    std::memcpy(&low, kPairs + 2 * (integral % 100), 2);
    int count = 1 + (integral >= 10) + (integral >= 100) + (integral >= 1000);
    auto drop = static_cast<unsigned>(8 * (4 - count));
    std::uint32_t digits;
    if constexpr (std::endian::native == std::endian::little)
      digits = (high | std::uint32_t{low} << 16) >> drop;
    else
      digits = (std::uint32_t{high} << 16 | low) << drop;
    std::memcpy(p, &digits, 4);
    p += count;
  } else {
    p = k == 0 ? writeWhole(p, integral) : writeDigits(p, integral, digitCount(integral));
    if (!p) return nullptr;
  }
  // The point and three digits, of which the point and the first k are kept.
  p[0] = '.';
  p[1] = static_cast<char>('0' + fraction / 100);
  std::memcpy(p + 2, kPairs + 2 * (fraction % 100), 2);
  return p + k + (k != 0);
}

// The longest text writeNumber writes.
constexpr std::size_t kMaxNumber = 32;

// Keys and strings up to this length, and numbers, are written without a call when there is
// this much room ahead.
constexpr std::size_t kShortText = 64;
constexpr std::size_t kShortRoom = kShortText + 8;

// Writes the JSON text of a finite double at `p` (room for kMaxNumber bytes) and returns its end.
char* writeNumber(char* p, double value) {
  if (value == 0 && std::signbit(value)) {
    // "-0" would read back as the integer zero and lose its sign.
    std::memcpy(p, "-0.0", 4);
    return p + 4;
  }
  if (char* end = writeShortDecimal(p, value)) return end;
  // Integral text beyond 64 bits would read back as an integer too large for the parser.
  return std::fabs(value) >= 1e18
             ? std::to_chars(p, p + kMaxNumber, value, std::chars_format::scientific).ptr
             : std::to_chars(p, p + kMaxNumber, value).ptr;
}

}  // namespace

void appendJsonString(std::string& out, std::string_view value) {
  JsonWriter(out).string(value);
}

void appendJsonNumber(std::string& out, double value) {
  char buf[kMaxNumber];
  out.append(buf, static_cast<std::size_t>(writeNumber(buf, value) - buf));
}

void JsonWriter::grow(std::size_t n) {
  std::size_t used = size();
  // Ahead by as much as is written, within bounds: few resizes (each clears what it adds), and
  // a short text keeps a small buffer.
  std::size_t ahead = std::clamp<std::size_t>(used, 256, std::size_t{64} << 10);
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

void JsonWriter::escaped(const char* s, std::size_t n) {
  static constexpr char hex[] = "0123456789abcdef";
  while (n > 0) {
    char* p = reserve(n + 6);
    std::size_t plain = copyPlain(p, s, n);
    p += plain;
    s += plain;
    n -= plain;
    if (n == 0) {
      cur_ = p;
      return;
    }
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
    cur_ = p;
  }
}

void JsonWriter::key(std::string_view name) {
  // The common case first, with nothing to call: compact text, room ahead, a short plain key.
  char* p = cur_;
  if (!pretty_ && name.size() <= kShortText && static_cast<std::size_t>(end_ - p) >= kShortRoom) {
    Frame& top = stack_.back();
    *p = ',';
    p += !top.empty;
    *p++ = '"';
    if (copyPlain(p, name.data(), name.size()) == name.size()) {
      p += name.size();
      p[0] = '"';
      p[1] = ':';
      cur_ = p + 2;
      top.empty = false;
      afterKey_ = true;
      return;
    }
  }
  anyKey(name);
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

void JsonWriter::number(double value) {
  if (afterKey_ && static_cast<std::size_t>(end_ - cur_) >= kShortRoom) {
    afterKey_ = false;
    cur_ = writeNumber(cur_, value);
    return;
  }
  char* p = beforeValue(kMaxNumber);
  afterValue(writeNumber(p, value));
}

void JsonWriter::string(std::string_view value) {
  // A member's short plain value, as key() does.
  char* p = cur_;
  if (afterKey_ && value.size() <= kShortText &&
      static_cast<std::size_t>(end_ - p) >= kShortRoom) {
    *p++ = '"';
    if (copyPlain(p, value.data(), value.size()) == value.size()) {
      p += value.size();
      *p++ = '"';
      cur_ = p;
      afterKey_ = false;
      return;
    }
  }
  p = beforeValue(value.size() + 2);
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
