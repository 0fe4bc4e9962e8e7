#include <orvane/internal/JsonText.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

namespace orvane {

namespace {

constexpr std::size_t npos = static_cast<std::size_t>(-1);

bool isWhitespace(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool isDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}
bool isHex(char c) noexcept {
  return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
unsigned hexValue(char c) noexcept {
  if (isDigit(c)) return static_cast<unsigned>(c - '0');
  return static_cast<unsigned>((c | 0x20) - 'a' + 10);
}
unsigned char byte(std::string_view t, std::size_t i) noexcept {
  return static_cast<unsigned char>(t[i]);
}

std::size_t skipWhitespace(std::string_view t, std::size_t i) noexcept {
  while (i < t.size() && isWhitespace(t[i])) ++i;
  return i;
}

// Each step of the validating scan ends at the next byte to read, or fails at the byte where
// the text stops being JSON (`bad`).
struct Step {
  std::size_t next = 0;
  std::size_t bad = npos;
  bool ok() const noexcept { return bad == npos; }
};
Step fail(std::size_t at) noexcept {
  return {0, at};
}

// One UTF-8 sequence whose lead byte, at `i`, is not ASCII.
Step scanUtf8(std::string_view t, std::size_t i) noexcept {
  unsigned char lead = byte(t, i);
  std::size_t length;
  unsigned char low = 0x80, high = 0xBF;  // the second byte's range
  if (lead < 0xC2) return fail(i);        // a continuation, or an overlong two-byte lead
  if (lead < 0xE0) {
    length = 2;
  } else if (lead < 0xF0) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;   // overlong
    if (lead == 0xED) high = 0x9F;  // surrogates
  } else if (lead < 0xF5) {
    length = 4;
    if (lead == 0xF0) low = 0x90;   // overlong
    if (lead == 0xF4) high = 0x8F;  // beyond U+10FFFF
  } else {
    return fail(i);
  }
  for (std::size_t k = 1; k < length; ++k) {
    if (i + k >= t.size()) return fail(t.size());
    unsigned char c = byte(t, i + k);
    if (k == 1 ? (c < low || c > high) : (c < 0x80 || c > 0xBF)) return fail(i + k);
  }
  return {i + length};
}

// The four hex digits of a \u escape from `i`: a low surrogate when `low`, anything else when
// not (a low surrogate stands only after a high one).
Step scanHex4(std::string_view t, std::size_t i, bool low, unsigned& value) noexcept {
  value = 0;
  for (std::size_t k = 0; k < 4; ++k) {
    if (i + k >= t.size()) return fail(t.size());
    char c = t[i + k];
    if (!isHex(c)) return fail(i + k);
    value = value << 4 | hexValue(c);
    // Whether the escape is a low surrogate is settled by its first two digits.
    if (k == 0 && low && (c | 0x20) != 'd') return fail(i + k);
    if (k == 1 && (value >> 4) == 0xD && ((value & 0xF) >= 0xC) != low) return fail(i + k);
  }
  return {i + 4};
}

// A string from its opening quote at `i`.
Step scanString(std::string_view t, std::size_t i) noexcept {
  ++i;
  while (true) {
    if (i >= t.size()) return fail(t.size());
    unsigned char c = byte(t, i);
    if (c == '"') return {i + 1};
    if (c < 0x20) return fail(i);
    if (c < 0x80 && c != '\\') {
      ++i;
      continue;
    }
    if (c >= 0x80) {
      Step s = scanUtf8(t, i);
      if (!s.ok()) return s;
      i = s.next;
      continue;
    }
    if (++i >= t.size()) return fail(t.size());
    char e = t[i];
    if (e == '"' || e == '\\' || e == '/' || e == 'b' || e == 'f' || e == 'n' || e == 'r' ||
        e == 't') {
      ++i;
      continue;
    }
    if (e != 'u') return fail(i);
    unsigned code;
    Step s = scanHex4(t, i + 1, false, code);
    if (!s.ok()) return s;
    i = s.next;
    if (code >= 0xD800 && code <= 0xDBFF) {
      // A high surrogate stands only before a low one.
      if (i >= t.size()) return fail(t.size());
      if (t[i] != '\\') return fail(i);
      if (i + 1 >= t.size()) return fail(t.size());
      if (t[i + 1] != 'u') return fail(i + 1);
      s = scanHex4(t, i + 2, true, code);
      if (!s.ok()) return s;
      i = s.next;
    }
  }
}

// A number from its first byte at `i` (a '-' or a digit); `integral` when it has neither a
// fraction nor an exponent.
Step scanNumber(std::string_view t, std::size_t i, bool& integral) noexcept {
  auto digitAt = [&](std::size_t k) { return k < t.size() && isDigit(t[k]); };
  auto missing = [&](std::size_t k) { return fail(std::min(k, t.size())); };
  if (t[i] == '-') ++i;
  if (!digitAt(i)) return missing(i);
  if (t[i] == '0') {
    ++i;
  } else {
    while (digitAt(i)) ++i;
  }
  if (i < t.size() && t[i] == '.') {
    integral = false;
    if (!digitAt(++i)) return missing(i);
    while (digitAt(i)) ++i;
  }
  if (i < t.size() && (t[i] == 'e' || t[i] == 'E')) {
    integral = false;
    ++i;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) ++i;
    if (!digitAt(i)) return missing(i);
    while (digitAt(i)) ++i;
  }
  return {i};
}

// Whether a well-formed number that does not convert to a finite double is beyond the range
// (rather than below it, which reads as zero): the power of ten of its first significant
// digit is positive. Both are hundreds away from zero by then, so a rough sum does.
bool beyondDoubleRange(std::string_view number) noexcept {
  std::size_t i = number[0] == '-' ? 1 : 0;
  std::int64_t magnitude = 0;
  bool significant = false;
  for (; i < number.size() && isDigit(number[i]); ++i) {
    if (number[i] != '0') significant = true;
    if (significant) ++magnitude;
  }
  if (i < number.size() && number[i] == '.') {
    for (++i; i < number.size() && isDigit(number[i]); ++i) {
      if (significant) continue;
      if (number[i] != '0') {
        significant = true;
      } else {
        --magnitude;
      }
    }
  }
  if (!significant) return false;
  if (i < number.size()) {  // the exponent
    ++i;
    bool negative = number[i] == '-';
    if (number[i] == '+' || number[i] == '-') ++i;
    std::int64_t exponent = 0;
    for (; i < number.size(); ++i) {
      exponent = std::min<std::int64_t>(exponent * 10 + (number[i] - '0'), 1'000'000'000'000);
    }
    magnitude += negative ? -exponent : exponent;
  }
  return magnitude > 0;
}

// The number's value when it is beyond a 64-bit integer (if integral) or the double range.
std::optional<double> outOfRangeValue(std::string_view number, bool integral) noexcept {
  const char* first = number.data();
  const char* last = first + number.size();
  if (integral) {
    std::int64_t i;
    std::uint64_t u;
    bool fits = number[0] == '-' ? std::from_chars(first, last, i).ec == std::errc()
                                 : std::from_chars(first, last, u).ec == std::errc();
    if (fits) return std::nullopt;
  }
  double value;
  auto [end, ec] = std::from_chars(first, last, value);
  if (ec == std::errc() && end == last) {
    if (integral || std::isinf(value)) return value;
    return std::nullopt;
  }
  if (ec == std::errc::result_out_of_range && beyondDoubleRange(number)) {
    return number[0] == '-' ? -std::numeric_limits<double>::infinity()
                            : std::numeric_limits<double>::infinity();
  }
  return std::nullopt;
}

}  // namespace

JsonTextScan scanJsonText(std::string_view t, std::size_t maxDepth) {
  enum class Expect { value, valueOrClose, keyOrClose, key, colon, commaOrClose };
  JsonTextScan scan;
  std::vector<char> open;  // '{' or '[' per level
  Expect expect = Expect::value;
  std::size_t ordinal = 0;
  std::size_t i = 0;
  auto bad = [&](std::size_t at) {
    scan.invalidAt = at;
    return scan;
  };
  while (true) {
    i = skipWhitespace(t, i);
    if (i >= t.size()) {
      if (open.empty() && expect == Expect::commaOrClose) return scan;
      return bad(t.size());
    }
    char c = t[i];
    switch (expect) {
      case Expect::colon:
        if (c != ':') return bad(i);
        expect = Expect::value;
        ++i;
        continue;
      case Expect::commaOrClose: {
        if (open.empty()) return bad(i);  // something after the document
        bool object = open.back() == '{';
        if (c == ',') {
          expect = object ? Expect::key : Expect::value;
        } else if (c == (object ? '}' : ']')) {
          open.pop_back();
        } else {
          return bad(i);
        }
        ++i;
        continue;
      }
      case Expect::keyOrClose:
      case Expect::key: {
        if (c == '}' && expect == Expect::keyOrClose) {
          open.pop_back();
          expect = Expect::commaOrClose;
          ++i;
          continue;
        }
        if (c != '"') return bad(i);
        Step s = scanString(t, i);
        if (!s.ok()) return bad(s.bad);
        ++ordinal;
        expect = Expect::colon;
        i = s.next;
        continue;
      }
      case Expect::value:
      case Expect::valueOrClose:
        break;
    }
    // A value, or the end of an empty array.
    if (c == ']' && expect == Expect::valueOrClose) {
      open.pop_back();
      expect = Expect::commaOrClose;
      ++i;
      continue;
    }
    if (c == '{' || c == '[') {
      if (open.size() >= maxDepth) {
        // The parser does not count an empty container as a level.
        std::size_t j = skipWhitespace(t, i + 1);
        if (j >= t.size()) return bad(t.size());
        if (t[j] != (c == '{' ? '}' : ']')) return bad(i);
        expect = Expect::commaOrClose;
        i = j + 1;
        continue;
      }
      open.push_back(c);
      expect = c == '{' ? Expect::keyOrClose : Expect::valueOrClose;
      ++i;
      continue;
    }
    expect = Expect::commaOrClose;
    if (c == '"') {
      Step s = scanString(t, i);
      if (!s.ok()) return bad(s.bad);
      i = s.next;
    } else if (c == '-' || isDigit(c)) {
      bool integral = true;
      Step s = scanNumber(t, i, integral);
      if (!s.ok()) return bad(s.bad);
      std::string_view number = t.substr(i, s.next - i);
      if (auto value = outOfRangeValue(number, integral)) {
        scan.outOfRange.push_back({i, number.size(), ordinal, *value});
      }
      i = s.next;
    } else if (c == 't' || c == 'f' || c == 'n') {
      std::string_view literal = c == 't' ? "true" : c == 'f' ? "false" : "null";
      for (char expected : literal) {
        if (i >= t.size()) return bad(t.size());
        if (t[i] != expected) return bad(i);
        ++i;
      }
    } else {
      return bad(i);
    }
    ++ordinal;
  }
}

namespace {

// The end of the string that opens at `i`, or npos. Only run over text the parser accepted,
// but still bounded by the text.
std::size_t skipString(std::string_view t, std::size_t i) noexcept {
  for (++i; i < t.size(); ++i) {
    if (t[i] == '\\') {
      ++i;
    } else if (t[i] == '"') {
      return i + 1;
    }
  }
  return npos;
}

// The end of the value that starts at `i`, or npos.
std::size_t skipValue(std::string_view t, std::size_t i) noexcept {
  if (i >= t.size()) return npos;
  char c = t[i];
  if (c == '"') return skipString(t, i);
  if (c == '{' || c == '[') {
    std::size_t depth = 0;
    while (i < t.size()) {
      c = t[i];
      if (c == '"') {
        i = skipString(t, i);
        if (i == npos) return npos;
        continue;
      }
      if (c == '{' || c == '[') ++depth;
      if ((c == '}' || c == ']') && --depth == 0) return i + 1;
      ++i;
    }
    return npos;
  }
  std::size_t start = i;
  while (i < t.size() && !isWhitespace(t[i]) && t[i] != ',' && t[i] != '}' && t[i] != ']' &&
         t[i] != ':') {
    ++i;
  }
  return i == start ? npos : i;
}

void appendUtf8(std::string& out, unsigned code) {
  if (code < 0x80) {
    out += static_cast<char>(code);
  } else if (code < 0x800) {
    out += static_cast<char>(0xC0 | code >> 6);
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    out += static_cast<char>(0xE0 | code >> 12);
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | code >> 18);
    out += static_cast<char>(0x80 | (code >> 12 & 0x3F));
    out += static_cast<char>(0x80 | (code >> 6 & 0x3F));
    out += static_cast<char>(0x80 | (code & 0x3F));
  }
}

// The text of the string literal `quoted` (quotes included) with its escapes resolved.
std::string unescape(std::string_view quoted) {
  std::string out;
  std::string_view s = quoted.substr(1, quoted.size() - 2);
  auto hex4 = [&](std::size_t at, unsigned& code) {
    if (at + 4 > s.size()) return false;
    code = 0;
    for (std::size_t k = 0; k < 4; ++k) {
      if (!isHex(s[at + k])) return false;
      code = code << 4 | hexValue(s[at + k]);
    }
    return true;
  };
  for (std::size_t i = 0; i < s.size(); ++i) {
    if (s[i] != '\\' || i + 1 >= s.size()) {
      out += s[i];
      continue;
    }
    char e = s[++i];
    switch (e) {
      case 'b':
        out += '\b';
        break;
      case 'f':
        out += '\f';
        break;
      case 'n':
        out += '\n';
        break;
      case 'r':
        out += '\r';
        break;
      case 't':
        out += '\t';
        break;
      case 'u': {
        unsigned code, low;
        if (!hex4(i + 1, code)) break;
        i += 4;
        if (code >= 0xD800 && code <= 0xDBFF && i + 2 < s.size() && s[i + 1] == '\\' &&
            s[i + 2] == 'u' && hex4(i + 3, low)) {
          code = 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00);
          i += 6;
        }
        appendUtf8(out, code);
        break;
      }
      default:
        out += e;
        break;
    }
  }
  return out;
}

bool keyIs(std::string_view quoted, std::string_view key) {
  std::string_view raw = quoted.substr(1, quoted.size() - 2);
  if (raw.find('\\') == std::string_view::npos) return raw == key;
  return unescape(quoted) == key;
}

}  // namespace

std::optional<std::size_t> findJsonValue(std::string_view t, const CodingPath& path) {
  std::size_t i = skipWhitespace(t, 0);
  for (const auto& entry : path) {
    if (i >= t.size()) return std::nullopt;
    if (entry.isIndex()) {
      if (t[i] != '[') return std::nullopt;
      i = skipWhitespace(t, i + 1);
      if (i >= t.size() || t[i] == ']') return std::nullopt;
      for (std::size_t k = *entry.intValue(); k > 0; --k) {
        i = skipWhitespace(t, skipValue(t, i));
        if (i >= t.size() || t[i] != ',') return std::nullopt;  // the array ends before
        i = skipWhitespace(t, i + 1);
      }
      continue;
    }
    if (t[i] != '{') return std::nullopt;
    std::optional<std::size_t> found;
    i = skipWhitespace(t, i + 1);
    while (i < t.size() && t[i] == '"') {
      std::size_t keyEnd = skipString(t, i);
      if (keyEnd == npos) return std::nullopt;
      bool match = keyIs(t.substr(i, keyEnd - i), entry.stringValue());
      i = skipWhitespace(t, keyEnd);
      if (i >= t.size() || t[i] != ':') return std::nullopt;
      i = skipWhitespace(t, i + 1);
      if (match) found = i;  // a later duplicate wins
      i = skipWhitespace(t, skipValue(t, i));
      if (i >= t.size() || t[i] != ',') break;
      i = skipWhitespace(t, i + 1);
    }
    if (!found) return std::nullopt;
    i = *found;
  }
  if (i >= t.size()) return std::nullopt;
  return i;
}

TextLocation textLocation(std::string_view t, std::size_t offset) {
  offset = std::min(offset, t.size());
  std::string_view before = t.substr(0, offset);
  std::size_t lineStart = before.rfind('\n');
  lineStart = lineStart == std::string_view::npos ? 0 : lineStart + 1;
  auto lines = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
  return {lines + 1, offset - lineStart + 1};
}

}  // namespace orvane
