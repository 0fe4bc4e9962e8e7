// The encoder writes compact text its own way (a member in one call, a comma after every value
// taken back where a container ends); the general writer is the reference it must match byte
// for byte, on every shape of document the coding interface can produce.
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/json/JsonEncoder.hpp>
#include <orvane/internal/JsonWriter.hpp>

using namespace orvane;

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
      c.encodeNil(key);
      return;
    case Tree::boolean:
      c.encode(key, v.b);
      return;
    case Tree::integer:
      c.encode(key, v.i);
      return;
    case Tree::number:
      c.encode(key, v.d);
      return;
    case Tree::string:
      c.encode(key, v.s);
      return;
    case Tree::object:
    case Tree::array:
      c.encode(key, v);
      return;
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
        c.encodeNil();
        break;
      case boolean:
        c.encode(b);
        break;
      case integer:
        c.encode(i);
        break;
      case number:
        c.encode(d);
        break;
      default:
        c.encode(s);
    }
  }
}

void reference(JsonWriter& w, const Tree& t) {
  if (t.isObject()) {
    w.beginObject();
    for (const auto& [k, child] : t.children) {
      w.key(k);
      reference(w, child);
    }
    w.endObject();
    return;
  }
  if (t.isArray()) {
    w.beginArray();
    for (const auto& child : t.children) reference(w, child.second);
    w.endArray();
    return;
  }
  switch (t.kind) {
    case Tree::null:
      w.null();
      break;
    case Tree::boolean:
      w.boolean(t.b);
      break;
    case Tree::integer:
      w.integer(t.i);
      break;
    case Tree::number:
      w.number(t.d);
      break;
    default:
      w.string(t.s);
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
// that must stay as it is) anywhere.
std::string randomText(std::mt19937_64& rng) {
  static const char* const specials[] = {"\"", "\\", "\n", "\x01", "\x1f", "\x7f", "\xc3\xa9", " "};
  std::size_t length = rng() % 8 == 0 ? 33 + rng() % 60 : rng() % 34;
  std::string text;
  while (text.size() < length) text += static_cast<char>('a' + rng() % 26);
  if (rng() % 2 && !text.empty()) text.replace(rng() % text.size(), 1, specials[rng() % 8]);
  return text;
}

Tree randomTree(std::mt19937_64& rng, int depth) {
  static const double numbers[] = {0,    -0.0,  0.5,     1,      -1,       0.25,   123.456,
                                   1e-7, 1e300, -2.5e-8, 100000, 1234567.891, 0.1 + 0.2};
  Tree t;
  auto kind = static_cast<Tree::Kind>(rng() % (depth > 0 ? 9 : 5));
  t.kind = kind;
  switch (kind) {
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

// Long text across many growth steps of `out`, with escapes spread over several slices.
TEST(JsonEncoderOutput, LongTextAndLargeDocumentsMatchTheWriter) {
  Tree root;
  root.kind = Tree::nestedObject;
  for (int i = 0; i < 40; ++i) {
    Tree text;
    text.kind = Tree::string;
    text.s.assign(9000 + 13 * i, 'x');
    for (std::size_t at = static_cast<std::size_t>(i); at < text.s.size(); at += 997)
      text.s[at] = i % 2 ? '"' : '\x02';
    Tree number;
    number.kind = Tree::number;
    number.d = i * 1.25;
    Tree list;
    list.kind = i % 3 ? Tree::nestedArray : Tree::array;
    list.children = {{"", text}, {"", number}};
    std::string key(i % 5 ? 20 : 5000, 'k');
    key += std::to_string(i) + (i % 4 ? "" : "\n");
    root.children.emplace_back(key, list);
    root.children.emplace_back(key + "n", number);
    root.children.emplace_back(key, text);
  }
  for (bool pretty : {false, true}) {
    std::string out = encoded(root, pretty), expected = reference(root, pretty);
    ASSERT_EQ(out.size(), expected.size()) << pretty;
    EXPECT_TRUE(out == expected) << pretty;  // too long to show
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
}
