#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/internal/JsonText.hpp>

using namespace orvane;

namespace {

// A text split where it stops being JSON: the scan must fail at the first byte of `rest`.
struct Broken {
  std::string good;
  std::string rest;
};

// Reads nothing: decoding it checks only that the text parses.
struct Anything {
  static Anything decode(const Decoder&) { return {}; }
};

std::optional<std::size_t> invalidAt(std::string_view text, std::size_t maxDepth = 512) {
  return scanJsonText(text, maxDepth).invalidAt;
}

}  // namespace

TEST(JsonText, StopsAtTheFirstByteThatCannotContinueJson) {
  const Broken cases[] = {
      // Structure.
      {"", ""}, {"  \n ", ""}, {"{", ""}, {"[1,", "]"}, {"{\"a\" ", "1}"}, {"{\"a\":1", "]"},
      {"{", "1:2}"}, {"{\"a\":1,", "}"}, {"[1 ", "2]"}, {"{\"a\":1} ", "x"},
      {"{\"a\":1}", std::string("\0", 1)}, {"", "\xEF\xBB\xBF{}"}, {"[", "}"}, {"", "]"},
      // Literals.
      {"[tru", "]"}, {"[nul", ""}, {"[f", "x]"}, {"true", "x"}, {"", "True"},
      // Numbers; a leading zero then more digits: the zero is fine, the next is not.
      {"[0", "1]"}, {"[1.", "]"}, {"[-", "]"}, {"[1e", "]"}, {"[1e+", "]"}, {"[", ".5]"},
      {"[", "+1]"}, {"[-0", "1"}, {"[1", "x]"}, {"1e", ""},
      // Strings and escapes.
      {"\"abc", ""}, {"[\"a", "\n\"]"}, {"\"a", std::string("\0\"", 2)}, {"\"\\", "x\""},
      {"\"\\u12", "G4\""}, {"\"\\u00", ""}, {"\"\\ud800", "x\""}, {"\"\\ud800\\", "n\""},
      {"\"\\ud800\\u", "0041\""}, {"\"\\uD800\\uD", "800\""}, {"\"\\ud", "c00\""},
      // UTF-8.
      {"\"", "\x80\""}, {"\"", "\xC0\x80\""}, {"\"\xC3", "\x28\""}, {"\"\xE0", "\x80\x80\""},
      {"\"\xED", "\xA0\x80\""}, {"\"\xF0", "\x80\x80\x80\""}, {"\"\xF4", "\x90\x80\x80\""},
      {"\"", "\xF5\x80\x80\x80\""}, {"\"\xE2\x82", ""}, {"[", "\xC3\xA9]"}};
  // The decoder refuses each one, and says where.
  JsonDecoder decoder;
  for (const auto& c : cases) {
    std::string text = c.good + c.rest;
    EXPECT_EQ(invalidAt(text), c.good.size()) << text;
    try {
      decoder.decode<Anything>(text);
      ADD_FAILURE() << "decoded: " << text;
    } catch (const DecodingError& e) {
      EXPECT_EQ(e.location(), textLocation(text, c.good.size())) << text;
    }
  }
  // Depth: the bracket that opens one level too many.
  EXPECT_EQ(invalidAt("[[[1]]]", 3), std::nullopt);
  EXPECT_EQ(invalidAt("[[{\"a\":[1]}]]", 3), 7u);
  EXPECT_EQ(invalidAt("[[[[1]]]]", 3), 3u);
  EXPECT_EQ(invalidAt("[[[[ ]]]]", 3), std::nullopt);  // as the parser has it
  EXPECT_EQ(invalidAt("[[[{}]]", 3), 7u);
}

TEST(JsonText, AcceptsWhatJsonAllows) {
  for (const char* text :
       {"0", "-0", "-0.0e-0", "1E+2", " \t\r\n[ ]\n", "{}", "\"\"", "[true,false,null]",
        "{\"a\":{\"b\":[{},[],\"\"]},\"a\":1}", "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u0000\\uFFFF\"",
        "\"\\ud83d\\ude00\\uDBFF\\uDFFF\"",
        "\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\xF4\x8F\xBF\xBF\"",
        "[100000000000000000000,1e400,-1E+999,1e-400]", "\"\x7F\""}) {
    EXPECT_EQ(invalidAt(text), std::nullopt) << text;
  }
}

TEST(JsonText, PathsLeadToTheValueTheDecoderReads) {
  using E = CodingPathEntry;
  const std::string text =
      "{\"a\": {\"b\": [10, {\"c\": null}, \"x]\"]},\n"
      " \"s\\u0074r\": \"\\\"{\",\n"
      " \"dup\": 1, \"dup\": [\n   2]}";
  struct Case {
    CodingPath path;
    std::optional<TextLocation> at;
  };
  const Case cases[] = {
      {{}, TextLocation{1, 1}}, {{E::key("a")}, TextLocation{1, 7}},
      {{E::key("a"), E::key("b")}, TextLocation{1, 13}},
      {{E::key("a"), E::key("b"), E::index(0)}, TextLocation{1, 14}},
      {{E::key("a"), E::key("b"), E::index(1), E::key("c")}, TextLocation{1, 24}},
      {{E::key("a"), E::key("b"), E::index(2)}, TextLocation{1, 31}},
      {{E::key("str")}, TextLocation{2, 14}}, {{E::key("dup"), E::index(0)}, TextLocation{4, 4}},
      {{E::key("dup")}, TextLocation{3, 19}},  // the last one counts
      // Paths the text does not have.
      {{E::key("a"), E::key("b"), E::index(3)}, std::nullopt},
      {{E::key("a"), E::key("b"), E::index(0), E::key("c")}, std::nullopt},
      {{E::key("a"), E::index(0)}, std::nullopt}, {{E::key("missing")}, std::nullopt},
      {{E::key("st")}, std::nullopt}};
  for (const auto& c : cases) {
    auto at = findJsonValue(text, c.path);
    std::optional<TextLocation> location;
    if (at) location = textLocation(text, *at);
    EXPECT_EQ(location, c.at) << formatCodingPath(c.path);
  }
  EXPECT_EQ(findJsonValue("[]", {E::index(0)}), std::nullopt);
  EXPECT_EQ(findJsonValue("  ", {}), std::nullopt);
  EXPECT_EQ(textLocation("ab\ncd\n", 6), (TextLocation{3, 1}));
}

TEST(JsonText, AgreesWithTheParserOnEveryMutation) {
  // Each seed changed at one byte at a time, many times over: wherever the parser refuses the
  // text, the scan must find where, and wherever it accepts, the scan must too.
  const std::string seeds[] = {
      R"({"name":"a\u00e9\"b","list":[1,-2.5e3,true,false,null,{"k":[]}],"big":1e400})",
      "[\"\xC3\xA9\xF0\x9F\x98\x80\",\"\\ud83d\\ude00\",0.5,100000000000000000000]",
      R"({"a":{"b":{"c":[[[]]]}}})",
  };
  const std::string alphabet = std::string("{}[],:\"\\ 0123456789eE.+-truefalsnx/u\n\t") +
                               "\xC3\xA9\xED\xA0\xF4\x90\x80" + std::string(1, '\0');
  using E = CodingPathEntry;
  const CodingPath paths[] = {{},
                              {E::key("name")},
                              {E::key("list"), E::index(5), E::key("k")},
                              {E::index(1)},
                              {E::key("a"), E::key("b"), E::key("c"), E::index(0), E::index(0)}};
  std::mt19937 random(20240501);
  JsonDecoderOptions options;
  options.maxDepth = 5;
  JsonDecoder decoder(options);
  int refused = 0;
  for (int round = 0; round < 30000; ++round) {
    std::string text = seeds[random() % std::size(seeds)];
    for (int edits = 1 + random() % 2; edits > 0 && !text.empty(); --edits) {
      std::size_t at = random() % text.size();
      char c = alphabet[random() % alphabet.size()];
      switch (random() % 4) {
        case 0:
          text[at] = c;
          break;
        case 1:
          text.insert(text.begin() + static_cast<std::ptrdiff_t>(at), c);
          break;
        case 2:
          text.erase(at, 1);
          break;
        default:
          text.resize(at);
          break;
      }
    }
    auto scan = scanJsonText(text, options.maxDepth);
    std::optional<TextLocation> location;
    bool parsed = true;
    try {
      decoder.decode<Anything>(text);
    } catch (const DecodingError& e) {
      parsed = false;
      location = e.location();
      ASSERT_EQ(e.description(), "The given data was not valid JSON.");
      ASSERT_TRUE(e.reason());
    }
    ASSERT_EQ(parsed, !scan.invalidAt) << text;
    // Paths are only walked in text the parser took, but any text must be safe to walk.
    for (const auto& path : paths) {
      auto at = findJsonValue(text, path);
      ASSERT_TRUE(!at || *at < text.size()) << text;
    }
    if (!parsed) {
      ++refused;
      ASSERT_EQ(location, textLocation(text, *scan.invalidAt)) << text;
    }
  }
  EXPECT_GT(refused, 10000);  // the mutations reach far beyond valid text
}
