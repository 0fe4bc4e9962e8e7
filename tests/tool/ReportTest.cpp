// The tool's reports: the error JSON, the lines of `check`, warnings, one-line text.
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "tools/orvane/Report.hpp"

using namespace orvane;
using namespace orvane::tool;
using Kind = DecodingError::Kind;

namespace {

DecodingError placed(DecodingError error, std::optional<TextLocation> location,
                     std::optional<std::string> reason) {
  error.setLocation(location);
  error.setReason(std::move(reason));
  return error;
}

const DecodingError kInvalid(Kind::dataCorrupted, {}, "The given data was not valid JSON.");
const DecodingError kMissing(Kind::keyNotFound,
                             {CodingPathEntry::key("layers"), CodingPathEntry::index(2),
                              CodingPathEntry::key("rect")},
                             "No value associated with key \"height\".", "height");

}  // namespace

// Line and column follow the description when the error is placed, then the reason; each is
// left out when unknown.
TEST(ErrorJson, LocationAndReasonFollowTheDescriptionWhenKnown) {
  const std::string invalid = R"({"error":{"kind":"dataCorrupted","codingPath":[],"key":null,)"
                              R"("description":"The given data was not valid JSON.")";
  const std::string missing =
      R"({"error":{"kind":"keyNotFound","codingPath":["layers",2,"rect"],"key":"height",)"
      R"("description":"No value associated with key \"height\".")";
  struct Case {
    DecodingError error;
    std::string json;
  };
  const Case cases[] = {
      {kInvalid, invalid + "}}"},
      {placed(kInvalid, TextLocation{3, 14}, "unclosed string"),
       invalid + R"(,"line":3,"column":14,"reason":"unclosed string"}})"},
      {placed(kInvalid, std::nullopt, "unclosed \"string\""),
       invalid + R"(,"reason":"unclosed \"string\""}})"},
      {placed(kMissing, TextLocation{1, 1}, std::nullopt), missing + R"(,"line":1,"column":1}})"},
      {kMissing, missing + "}}"},
  };
  for (const auto& c : cases) EXPECT_EQ(errorJson(c.error), c.json);
}

// The plain and JSON lines themselves are corpus cases; a file name is text like any other:
// quoted in JSON, escaped on a line.
TEST(CheckLines, AFileNameIsQuotedInJsonAndEscapedOnALine) {
  EXPECT_EQ(checkLine("we\"ird\n.json", true), R"({"file":"we\"ird\n.json","ok":true})");
  EXPECT_EQ(checkLine("we\"ird\n.json", false), "we\"ird\\n.json: ok");
}

TEST(OneLine, ControlCharactersAreEscapedAndNothingElse) {
  const std::pair<std::string, std::string> cases[] = {
      {"a\nb\r\tc", "a\\nb\\r\\tc"},
      {std::string("nul\0x", 5), "nul\\u0000x"},
      {"\x1f", "\\u001f"},
      {"back\\slash \"quote\" \x7f \xc3\xa9", "back\\slash \"quote\" \x7f \xc3\xa9"},
  };
  for (const auto& [text, line] : cases) EXPECT_EQ(oneLine(text), line);
}
