// What the writer and the encoder write. Numbers and strings go through word-wise and short paths
// of their own, checked against plain references; the encoder writes compact text its own way (a
// member in one call, a comma after every value taken back where a container ends), and the
// general writer is the reference it must match byte for byte, on every shape of document.
#include <algorithm>
#include <bit>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/internal/JsonText.hpp>
#include <orvane/internal/JsonWriter.hpp>
#include <orvane/json/JsonEncoder.hpp>

using namespace orvane;

namespace {

std::string written(double value) {
  std::string out;
  appendJsonNumber(out, value);
  return out;
}

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

// Whether `text` is one JSON number, as the grammar has it (the scanner is checked against the
// parser in JsonTextTest).
bool isJsonNumber(std::string_view text) {
  return !text.empty() && (text[0] == '-' || (text[0] >= '0' && text[0] <= '9')) &&
         !scanJsonText(text, 1).invalidAt;
}

}  // namespace

// Every finite double, whatever path writes it: the text is JSON, reads back as the same double,
// and has exactly as many significant digits as the shortest scientific text; integral values
// have no fraction unless the text is scientific. Below 2^53 the writer's own paths for integers
// and short decimals must give the shortest round-trip text itself, also where scientific
// notation is shorter.
TEST(JsonNumbers, EveryDoubleIsWrittenInItsShortestDigits) {
  // Where the text is the writer's own choice: -0 keeps a fraction so that it reads back as a
  // double, and beyond 2^53 an integer's exact digits are more than the double holds.
  const std::pair<double, const char*> exact[] = {
      {-0.0, "-0.0"},
      {1e21, "1e+21"},
      {5e-324, "5e-324"},
      {-9007199254740994.0, "-9007199254740994"},
      {18446744073709551616.0, "1.8446744073709552e+19"},
      {123456789012341504.0, "123456789012341500"},
      {123456789012000000.0, "1.23456789012e+17"}};
  for (auto [value, text] : exact) EXPECT_EQ(written(value), text);

  std::vector<double> values = {
      // The classic hard cases of shortest printing and of reading back.
      5e-324, 1e-323, 2.2250738585072009e-308, 2.2250738585072014e-308, 1.7976931348623157e308,
      1e23, 8.41e21, 9007199254740993.0, 5.9604644775390625e-8, 9.5367431640625e-7, 0.1, 0.3,
      2.9802322387695312e-8, 1.0e22, 4.940656e-318, 1.18575755e-316, 2.989102097996e-312,
      9.0608011534336e15, 4.708356024711512e18, 9.409340012568248e18, 1.2345678e-7, 1e-7,
      123456789012341504.0, 0x1p53, 0x1p54, 0x1p63, 0x1p64, 1e15, 1e16, 1e17, 1e18, 1e19, 1e21,
      // The writer's short paths, and around 2^50 once scaled by a power of ten.
      0, 1, 9, 10, 99999, 100000, 120000, 1200000, 123e6, 1e14, -1e5, 12345678, 0.5, 0.001,
      0.0015, 0.0001, -0.125, 1.005, 2.675, 1e-3, 999.999, 1125899906842623.0, 1125899906842624.0,
      1125899906842.625, 0.1 + 0.2, 4503599627370495.5, 1125899906842.623, -1125899906842.623,
      112589990684262.4, 11258999068426.24, 1125899906842.6245, 999999.5, 1200000000,
      123456789012345.0};
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
  // Short decimals over many magnitudes, and integers scaled by powers of ten.
  for (int i = 0; i < 100000; ++i) {
    double m = static_cast<double>(rng() % 100000000);
    add(m / std::pow(10.0, static_cast<int>(rng() % 30)));
    add(m * std::pow(10.0, static_cast<int>(rng() % 20)));
  }
  for (int i = 0; i < 20000; ++i) {
    double magnitude = std::pow(10.0, static_cast<int>(rng() % 16));
    double v = std::uniform_real_distribution<double>(-magnitude, magnitude)(rng);
    double scale = std::pow(10.0, static_cast<int>(rng() % 6));
    values.push_back(v);
    values.push_back(std::round(v * scale) / scale);
    values.push_back(std::round(v) * std::pow(10.0, static_cast<int>(rng() % 6)));
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
    auto end = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific).ptr;
    ASSERT_EQ(significantDigits(text), significantDigits(std::string_view(buf, end))) << text;
    if (v != 0 && std::trunc(v) == v && text.find_first_of("eE") == std::string::npos) {
      ASSERT_EQ(text.find('.'), std::string::npos) << text;
    }
    if (std::fabs(v) < 0x1p53 && !(v == 0 && std::signbit(v))) {
      ASSERT_EQ(text, std::string(buf, std::to_chars(buf, buf + sizeof buf, v).ptr));
    }
  }
}

namespace {

// The JSON text of a string, one byte at a time: what the word-wise paths must match.
std::string referenceQuoted(std::string_view value) {
  static constexpr std::string_view named = "\"\\\n\r\t\b\f", letters = "\"\\nrtbf";
  std::string text = "\"";
  for (unsigned char c : value) {
    if (auto at = named.find(static_cast<char>(c)); at != std::string_view::npos) {
      text += '\\';
      text += letters[at];
    } else if (c < 0x20) {
      static constexpr char hex[] = "0123456789abcdef";
      text += "\\u00";
      text += hex[c >> 4];
      text += hex[c & 0xF];
    } else {
      text += static_cast<char>(c);
    }
  }
  return text + "\"";
}

}  // namespace

// Keys and member values have their own short path, array elements and longer text another;
// every length around the word and short-path sizes, with and without an escape anywhere, and
// with the bytes next to the escaped ones, which word-wise tests must not mistake for them. The
// writer runs ahead of the text in `out`: what was there stays, and its length reads the text
// while a value is open.
TEST(JsonStrings, KeysAndValuesOfEveryShortLengthAreEscapedAlike) {
  const std::string specials[] = {"",   "\"", "\\", "\n", "\x01", "\x1f", std::string(1, '\0'),
                                  " ",  "\x7f", "\xc3\xa9", "!",  "#",  "]"};
  for (std::size_t length = 0; length <= 40; ++length) {
    for (std::size_t at = 0; at <= length; ++at) {
      for (const auto& special : specials) {
        if (special.empty() && at > 0) continue;  // the same string at every position
        std::string s(length, 'k');
        for (std::size_t i = 0; i < length; ++i) s[i] = static_cast<char>('a' + i % 26);
        s.insert(at, special);
        const std::string q = referenceQuoted(s);
        for (bool pretty : {false, true}) {
          std::string out = "x";
          JsonWriter w(out, pretty);
          w.beginObject();
          w.key(s);
          w.string(s);
          w.key("n");
          w.beginArray();
          w.string(s);
          w.number(0.5);
          w.endArray();
          const std::string expected =
              pretty ? "x{\n  " + q + ": " + q + ",\n  \"n\": [\n    " + q + ",\n    0.5\n  ]\n}"
                     : "x{" + q + ":" + q + ",\"n\":[" + q + ",0.5]}";
          ASSERT_EQ(w.size(), expected.size() - (pretty ? 2 : 1));
          w.endObject();
          ASSERT_EQ(out, expected) << length << " " << at << " " << pretty;
        }
      }
    }
  }
}

namespace {

// Any JSON value, with the two ways a member can hold a container: as an encoded value, or as
// a nested container left open until the next member or the end of its object closes it.
struct Tree {
  enum Kind { null, boolean, integer, number, string, object, array, nestedObject, nestedArray };
  Kind kind = null;
  bool b = false;
  std::int64_t i = 0;
  double d = 0;
  std::string s;
  std::vector<std::pair<std::string, Tree>> children;  // keys unused in arrays

  bool isObject() const { return kind == object || kind == nestedObject; }
  bool isArray() const { return kind == array || kind == nestedArray; }
  void encode(Encoder& e) const;
};

void encodeMember(KeyedEncodingContainer& c, const std::string& key, const Tree& v) {
  switch (v.kind) {
    case Tree::null:
      return c.encodeNil(key);
    case Tree::boolean:
      return c.encode(key, v.b);
    case Tree::integer:
      return c.encode(key, v.i);
    case Tree::number:
      return c.encode(key, v.d);
    case Tree::string:
      return c.encode(key, v.s);
    case Tree::object:
    case Tree::array:
      return c.encode(key, v);
    case Tree::nestedObject: {
      auto nested = c.nestedContainer(key);
      for (const auto& [k, child] : v.children) encodeMember(nested, k, child);
      return;
    }
    case Tree::nestedArray: {
      auto nested = c.nestedUnkeyedContainer(key);
      for (const auto& child : v.children) nested.encode(child.second);
      return;
    }
  }
}

void Tree::encode(Encoder& e) const {
  if (isObject()) {
    auto c = e.container();
    for (const auto& [k, child] : children) encodeMember(c, k, child);
  } else if (isArray()) {
    auto a = e.unkeyedContainer();
    for (const auto& child : children) a.encode(child.second);
  } else {
    auto c = e.singleValueContainer();
    switch (kind) {
      case null:
        return c.encodeNil();
      case boolean:
        return c.encode(b);
      case integer:
        return c.encode(i);
      case number:
        return c.encode(d);
      default:
        return c.encode(s);
    }
  }
}

void reference(JsonWriter& w, const Tree& t) {
  if (t.isObject() || t.isArray()) {
    t.isObject() ? w.beginObject() : w.beginArray();
    for (const auto& [k, child] : t.children) {
      if (t.isObject()) w.key(k);
      reference(w, child);
    }
    return w.end();
  }
  switch (t.kind) {
    case Tree::null:
      return w.null();
    case Tree::boolean:
      return w.boolean(t.b);
    case Tree::integer:
      return w.integer(t.i);
    case Tree::number:
      return w.number(t.d);
    default:
      return w.string(t.s);
  }
}

std::string reference(const Tree& t, bool pretty, std::string out = {}) {
  JsonWriter w(out, pretty);
  reference(w, t);
  w.flush();
  return out;
}

std::string encoded(const Tree& t, bool pretty, std::string out = {}) {
  JsonEncoderOptions options;
  options.pretty = pretty;
  JsonEncoder(options).encodeInto(out, t);
  return out;
}

// Text of every length around the inline limits, now and then with a byte to escape (or one
// that must stay as it is) anywhere; now and then long text across many growth steps of `out`,
// with escapes spread over several slices.
std::string randomText(std::mt19937_64& rng) {
  static const char* const specials[] = {"\"", "\\", "\n", "\x01", "\x1f", "\x7f", "\xc3\xa9", " "};
  if (rng() % 100 == 0) {
    std::string text(9000 + rng() % 40000, 'x');
    for (std::size_t at = rng() % 997; at < text.size(); at += 997) text[at] = "\"\x02"[rng() % 2];
    return text;
  }
  std::size_t length = rng() % 8 == 0 ? 33 + rng() % 60 : rng() % 34;
  std::string text;
  while (text.size() < length) text += static_cast<char>('a' + rng() % 26);
  if (rng() % 2 && !text.empty()) text.replace(rng() % text.size(), 1, specials[rng() % 8]);
  return text;
}

Tree randomTree(std::mt19937_64& rng, int depth) {
  static const double numbers[] = {0,    -0.0,  0.5,     1,      -1,          0.25,     123.456,
                                   1e-7, 1e300, -2.5e-8, 100000, 1234567.891, 0.1 + 0.2};
  Tree t;
  t.kind = static_cast<Tree::Kind>(rng() % (depth > 0 ? 9 : 5));
  switch (t.kind) {
    case Tree::boolean:
      t.b = rng() % 2;
      break;
    case Tree::integer:
      t.i = rng() % 4 == 0 ? std::numeric_limits<std::int64_t>::min()
                           : static_cast<std::int64_t>(rng() % 2000) - 1000;
      break;
    case Tree::number:
      t.d = numbers[rng() % std::size(numbers)];
      break;
    case Tree::string:
      t.s = randomText(rng);
      break;
    case Tree::null:
      break;
    default: {
      std::size_t count = rng() % 5;  // empty containers too
      for (std::size_t n = 0; n < count; ++n)
        t.children.emplace_back(randomText(rng), randomTree(rng, depth - 1));
    }
  }
  return t;
}

}  // namespace

// Random documents of every shape, compact and indented, alone or after text already in `out`.
TEST(JsonEncoderOutput, MatchesTheWriterOnEveryShape) {
  std::mt19937_64 rng(11);
  for (int n = 0; n < 3000; ++n) {
    Tree t = randomTree(rng, 1 + n % 5);
    for (bool pretty : {false, true}) {
      ASSERT_EQ(encoded(t, pretty), reference(t, pretty)) << n << " " << pretty;
      ASSERT_EQ(encoded(t, pretty, "x,"), reference(t, pretty, "x,")) << n << " " << pretty;
    }
  }
}

namespace {

// Where two long texts first differ, with a little of each from there; empty when equal.
std::string difference(const std::string& a, const std::string& b) {
  if (a == b) return {};
  std::size_t at = std::mismatch(a.begin(), a.begin() + std::min(a.size(), b.size()), b.begin()).first -
                   a.begin();
  return "at " + std::to_string(at) + ": " + a.substr(at, 40) + " | " + b.substr(at, 40);
}

struct Pieces final : JsonSink {
  std::string text;
  int count = 0;
  void write(std::string_view piece) override {
    text += piece;
    ++count;
  }
};

}  // namespace

// Streamed text is the same bytes, cut anywhere (after a comma a container's end replaces, inside
// an empty container, in long escaped strings), and it comes in pieces, never whole.
TEST(JsonEncoderOutput, StreamedTextIsTheSameBytesInPieces) {
  std::mt19937_64 rng(5);
  for (int n = 0; n < 60; ++n) {
    Tree t;
    t.kind = n % 2 ? Tree::array : Tree::nestedObject;
    if (n < 20) {
      // Empty containers deep inside others, whose closing all at once needs more room than
      // opening the last one asked for: pieces then end inside an empty container.
      Tree deep;
      deep.kind = static_cast<Tree::Kind>(Tree::nestedObject + n % 2);
      for (int level = 0; level < 60 + 5 * n; ++level) {
        Tree outer;
        outer.kind = Tree::nestedObject;  // members close all at once, at the next one
        outer.children.emplace_back("k", std::move(deep));
        deep = std::move(outer);
      }
      const std::size_t size = reference(deep, false).size();
      for (std::size_t total = 0; total < 200'000; total += size) t.children.emplace_back("", deep);
    }
    for (std::size_t total = reference(t, false).size(); total < 300'000;) {
      t.children.emplace_back(randomText(rng), randomTree(rng, 1 + n % 6));
      total += reference(t.children.back().second, false).size();
    }
    for (bool pretty : {false, true}) {
      JsonEncoderOptions options;
      options.pretty = pretty;
      Pieces pieces;
      JsonEncoder(options).encodeTo(pieces, t);
      ASSERT_EQ(difference(pieces.text, reference(t, pretty)), "") << n << " " << pretty;
      EXPECT_GE(pieces.count, 4) << n << " " << pretty;

      // The writer alone streams alike (the tool's dump goes through it).
      Pieces written;
      std::string rest;
      {
        JsonWriter w(rest, pretty);
        w.streamTo([](void* sink, std::string_view text) { static_cast<Pieces*>(sink)->write(text); },
                   &written);
        reference(w, t);
      }
      ASSERT_EQ(difference(written.text + rest, reference(t, pretty)), "") << n << " " << pretty;
      EXPECT_GE(written.count, 2) << n << " " << pretty;
    }
  }
}

// A number JSON cannot hold stops the encoding with the path to it, whichever way it is written.
TEST(JsonEncoderErrors, NonFiniteNumbersNameTheirPath) {
  Tree bad;
  bad.kind = Tree::number;
  bad.d = std::numeric_limits<double>::infinity();
  Tree inner;
  inner.kind = Tree::object;
  inner.children = {{"ok", {}}, {"bad", bad}};
  Tree list;
  list.kind = Tree::array;
  list.children = {{"", {}}, {"", bad}};
  Tree nested = inner;
  nested.kind = Tree::nestedObject;

  const std::pair<Tree, std::string> cases[] = {
      {inner, "bad"}, {list, "[1]"}, {nested, "bad"}, {bad, "<root>"}};
  for (const auto& [value, path] : cases) {
    for (bool pretty : {false, true}) {
      Tree root;
      root.kind = Tree::object;
      root.children = {{"a", value}};
      std::string expected = path == "<root>" ? "a" : path[0] == '[' ? "a" + path : "a." + path;
      // Text already in the output stays as it was, and nothing of the failed value is added.
      const std::string before = "[\"kept\",";
      std::string out = before;
      try {
        JsonEncoderOptions options;
        options.pretty = pretty;
        JsonEncoder(options).encodeInto(out, root);
        ADD_FAILURE() << path << " " << pretty;
      } catch (const EncodingError& e) {
        EXPECT_EQ(formatCodingPath(e.codingPath()), expected) << pretty;
        EXPECT_EQ(e.description(), "Unable to encode Double.inf directly in JSON.");
      }
      EXPECT_EQ(out, before) << path << " " << pretty;
    }
  }
  EXPECT_THROW(JsonEncoder().encode(std::nan("")), EncodingError);
}
