#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/internal/JsonWriter.hpp>

using namespace orvane;

namespace {

std::string shortest(double value) {
  char buf[32];
  return std::string(buf, std::to_chars(buf, buf + sizeof buf, value).ptr);
}

std::string written(double value) {
  std::string out;
  appendJsonNumber(out, value);
  return out;
}

}  // namespace

// The writer has its own path for integers and short decimals; it must agree with the
// shortest round-trip text everywhere, including where scientific notation is shorter.
TEST(JsonNumbers, ShortDecimalsAreWrittenAsTheShortestRoundTripText) {
  std::vector<double> values = {0,      1,       -1,      9,        10,     99999,  100000,
                                120000, 1200000, 123e6,   1e14,     -1e5,   12345678, 0.5,
                                0.001,  0.0015,  0.0001,  -0.125,   1.005,  2.675,  0.3,
                                1e-3,   999.999, 1125899906842623.0, 1125899906842624.0,
                                1125899906842.625, 0.1 + 0.2, 4503599627370495.5,
                                // Around 2^50 once scaled by a power of ten.
                                1125899906842.623, -1125899906842.623, 112589990684262.4,
                                11258999068426.24, 1125899906842.6245, 999999.5, 100000,
                                1000000, 1200000000, 123456789012345.0};
  std::mt19937_64 rng(7);
  for (int i = 0; i < 20000; ++i) {
    double magnitude = std::pow(10.0, static_cast<int>(rng() % 16));
    double v = std::uniform_real_distribution<double>(-magnitude, magnitude)(rng);
    int places = static_cast<int>(rng() % 6);
    double scale = std::pow(10.0, places);
    values.push_back(v);
    values.push_back(std::round(v * scale) / scale);
    values.push_back(std::round(v) * std::pow(10.0, static_cast<int>(rng() % 6)));
  }
  for (double v : values) {
    // Written differently on purpose: integers from 2^53 in their shortest digits (to_chars
    // writes their exact ones), and -0 with a fraction so that it reads back as a double.
    if (std::fabs(v) >= 0x1p53 || (v == 0 && std::signbit(v))) continue;
    ASSERT_EQ(written(v), shortest(v)) << v;
  }
}

namespace {

// The significant digits of a number's text: no sign, point, exponent, or leading and trailing
// zeros (zero has none).
std::string significantDigits(std::string_view text) {
  std::string digits;
  for (char c : text.substr(0, text.find_first_of("eE"))) {
    if (c >= '0' && c <= '9') digits += c;
  }
  digits.erase(0, digits.find_first_not_of('0'));
  digits.erase(digits.find_last_not_of('0') + 1);
  return digits;
}

// Whether `text` is one JSON number, as the grammar has it (no leading zeros, no bare point).
bool isJsonNumber(std::string_view text) {
  std::size_t i = 0;
  auto digits = [&] {
    std::size_t from = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
    return i - from;
  };
  if (i < text.size() && text[i] == '-') ++i;
  std::size_t start = i, whole = digits();
  if (whole == 0 || (whole > 1 && text[start] == '0')) return false;
  if (i < text.size() && text[i] == '.' && (++i, digits() == 0)) return false;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (digits() == 0) return false;
  }
  return i == text.size();
}

}  // namespace

// Every finite double, whatever path writes it: the text is JSON, reads back as the same
// double, and has exactly as many significant digits as the shortest scientific text; integral
// values have no fraction unless the text is scientific.
TEST(JsonNumbers, EveryDoubleIsWrittenInItsShortestDigits) {
  std::vector<double> values = {// The classic hard cases of shortest printing and of reading back.
                                5e-324,
                                1e-323,
                                2.2250738585072009e-308,
                                2.2250738585072014e-308,
                                1.7976931348623157e308,
                                1e23,
                                8.41e21,
                                9007199254740993.0,
                                5.9604644775390625e-8,
                                9.5367431640625e-7,
                                0.1,
                                0.3,
                                2.9802322387695312e-8,
                                1.0e22,
                                4.940656e-318,
                                1.18575755e-316,
                                2.989102097996e-312,
                                9.0608011534336e15,
                                4.708356024711512e18,
                                9.409340012568248e18,
                                1.2345678e-7,
                                1e-7,
                                123456789012341504.0,
                                0x1p53,
                                0x1p54,
                                0x1p63,
                                0x1p64,
                                1e15,
                                1e16,
                                1e17,
                                1e18,
                                1e19,
                                1e21};
  std::mt19937_64 rng(53);
  auto add = [&](double v) {
    values.push_back(v);
    values.push_back(-v);
  };
  // Random bit patterns: every exponent, subnormals included.
  for (int i = 0; i < 300000; ++i) {
    double v = std::bit_cast<double>(rng());
    if (std::isfinite(v)) values.push_back(v);
  }
  // Subnormals and their edge.
  for (int i = 0; i < 20000; ++i) add(std::bit_cast<double>(rng() >> (12 + rng() % 52)));
  add(DBL_MIN);
  add(std::nextafter(DBL_MIN, 0.0));
  // Short decimals over many magnitudes.
  for (int i = 0; i < 100000; ++i) {
    double m = static_cast<double>(rng() % 100000000);
    add(m / std::pow(10.0, static_cast<int>(rng() % 30)));
    add(m * std::pow(10.0, static_cast<int>(rng() % 20)));
  }
  // Integers around 2^50 to 2^64 and beyond, and their neighbours.
  for (int e = 49; e <= 80; ++e) {
    double power = std::ldexp(1.0, e);
    for (double v = power, up = power, k = 0; k < 64; ++k) {
      add(v = std::nextafter(v, 0.0));
      add(up = std::nextafter(up, HUGE_VAL));
    }
    for (int i = 0; i < 4000; ++i) add(std::ldexp(static_cast<double>(rng() >> 11), e - 53));
  }
  for (double v : values) {
    std::string text = written(v);
    ASSERT_TRUE(isJsonNumber(text)) << text;
    double back = std::strtod(text.c_str(), nullptr);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(back), std::bit_cast<std::uint64_t>(v)) << text;
    char buf[32];
    auto shortest = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific).ptr;
    ASSERT_EQ(significantDigits(text), significantDigits(std::string_view(buf, shortest))) << text;
    if (v != 0 && std::trunc(v) == v && text.find_first_of("eE") == std::string::npos) {
      ASSERT_EQ(text.find('.'), std::string::npos) << text;
    }
  }
}

namespace {

// The JSON text of a string, one byte at a time: what the writer's word-wise paths must match.
std::string referenceQuoted(std::string_view value) {
  std::string text = "\"";
  for (unsigned char c : value) {
    switch (c) {
      case '"':
        text += "\\\"";
        break;
      case '\\':
        text += "\\\\";
        break;
      case '\n':
        text += "\\n";
        break;
      case '\r':
        text += "\\r";
        break;
      case '\t':
        text += "\\t";
        break;
      case '\b':
        text += "\\b";
        break;
      case '\f':
        text += "\\f";
        break;
      default:
        if (c < 0x20) {
          static constexpr char hex[] = "0123456789abcdef";
          text += "\\u00";
          text += hex[c >> 4];
          text += hex[c & 0xF];
        } else {
          text += static_cast<char>(c);
        }
    }
  }
  return text + "\"";
}

}  // namespace

// Keys and member values have their own short path, array elements and longer text another;
// every length around the word and short-path sizes, with and without an escape anywhere, and
// with the bytes next to the escaped ones, which word-wise tests must not mistake for them.
TEST(JsonStrings, KeysAndValuesOfEveryShortLengthAreEscapedAlike) {
  const std::string specials[] = {"",     "\"",   "\\", "\n", "\x01", "\x1f", " ",
                                  "\x7f", "\xc3\xa9", "!",  "#",  "]"};
  for (std::size_t length = 0; length <= 40; ++length) {
    for (std::size_t at = 0; at <= length; ++at) {
      for (const auto& special : specials) {
        if (special.empty() && at > 0) continue;  // the same string at every position
        std::string s(length, 'k');
        for (std::size_t i = 0; i < length; ++i) s[i] = static_cast<char>('a' + i % 26);
        s.insert(at, special);
        const std::string q = referenceQuoted(s);
        for (bool pretty : {false, true}) {
          std::string out;
          JsonWriter w(out, pretty);
          w.beginObject();
          w.key(s);
          w.string(s);
          w.key("n");
          w.beginArray();
          w.string(s);
          w.number(0.5);
          w.endArray();
          w.endObject();
          const std::string expected =
              pretty ? "{\n  " + q + ": " + q + ",\n  \"n\": [\n    " + q + ",\n    0.5\n  ]\n}"
                     : "{" + q + ":" + q + ",\"n\":[" + q + ",0.5]}";
          ASSERT_EQ(out, expected) << length << " " << at << " " << pretty;
        }
      }
    }
  }
}

// The writer runs ahead of the text in `out`; what was there stays, its length reads the text
// while a value is open, and `out` holds exactly the text once the outermost value ends, across
// many growth steps and with escapes on both sides of each.
TEST(JsonWriterOutput, LongTextGrowsOutAndEndsExact) {
  std::string out = "prefix";
  std::string expected = "prefix[";
  JsonWriter w(out);
  w.beginArray();
  for (int i = 0; i < 12; ++i) {
    std::string s(30000 + 7 * i, 'x');
    for (std::size_t at = static_cast<std::size_t>(i); at < s.size(); at += 997) s[at] = '"';
    for (std::size_t at = 500; at < s.size(); at += 4093) s[at] = '\x02';
    if (i) expected += ',';
    expected += referenceQuoted(s);
    w.string(s);
    w.number(i * 1.25);
    expected += "," + shortest(i * 1.25);
    ASSERT_EQ(w.size(), expected.size()) << i;
  }
  w.beginObject();
  w.key(std::string(70000, 'k') + "\n");
  w.integer(-9223372036854775807 - 1);
  w.endObject();
  w.endArray();
  expected += ",{" + referenceQuoted(std::string(70000, 'k') + "\n") + ":-9223372036854775808}]";
  EXPECT_EQ(out.size(), expected.size());
  EXPECT_EQ(out, expected);
}
