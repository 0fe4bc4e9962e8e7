#include <charconv>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/json/JsonWriter.hpp>

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
    // Written differently on purpose: large integers in scientific notation, and -0 with a
    // fraction so that it reads back as a double.
    if (std::fabs(v) >= 1e18 || (v == 0 && std::signbit(v))) continue;
    ASSERT_EQ(written(v), shortest(v)) << v;
  }
}

TEST(JsonStrings, EscapesAreFoundAtEveryPositionOfAWord) {
  // Bytes that must be escaped and bytes that must not, at every offset across word edges.
  const std::pair<std::string, std::string> bytes[] = {
      {"\"", "\\\""}, {"\\", "\\\\"}, {"\n", "\\n"},   {"\x1f", "\\u001f"},
      {"\x7f", "\x7f"}, {"\xc3\xa9", "\xc3\xa9"}, {" ", " "}, {"!", "!"}, {"#", "#"},
      {"]", "]"},       {"\x20", " "}};
  for (std::size_t length = 0; length < 20; ++length) {
    for (std::size_t at = 0; at <= length; ++at) {
      for (const auto& [raw, escaped] : bytes) {
        std::string value(length, 'a');
        value.insert(at, raw);
        std::string out = "x";
        appendJsonString(out, value);
        std::string expected = "x\"" + std::string(at, 'a') + escaped +
                               std::string(length - at, 'a') + "\"";
        ASSERT_EQ(out, expected) << length << " " << at;
      }
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
// every length around the word and short-path sizes, with and without an escape anywhere.
TEST(JsonStrings, KeysAndValuesOfEveryShortLengthAreEscapedAlike) {
  const std::string specials[] = {"", "\"", "\\", "\n", "\x01", "\x1f", " ", "\x7f", "\xc3\xa9"};
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
