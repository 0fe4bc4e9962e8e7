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
