// The observer of values that tolerant keys drop.
#include <string>
#include <vector>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;

namespace {

struct Collected : DecodingWarnings {
  std::vector<std::string> lines;
  void dropped(const CodingPath& path, const std::string& reason) override {
    lines.push_back(formatCodingPath(path) + ": " + reason);
  }
};

std::string layer(const std::string& extra) {
  return R"({"_id":"L","name":"n","sourceId":"s","rect":{"x":0,"y":0,"width":1,"height":1},)"
         R"("opacity":1)" +
         extra + "}";
}

// Tolerant scalars, which no record of the model has, read through the containers directly.
struct TolerantScalars {
  std::optional<std::string> text;
  std::optional<double> number;
  static TolerantScalars decode(const Decoder& d) {
    auto c = d.container();
    return {c.decodeTolerant<std::string>("text"), c.decodeTolerant<double>("number")};
  }
};

}  // namespace

TEST(DecodingWarnings, ReportPresentValuesThatTolerantKeysDropAndNothingElse) {
  struct Case {
    std::string json;
    std::vector<std::string> expected;
  };
  const Case cases[] = {
      {layer(R"(,"blendMode":"nope")"),
       {"blendMode: Cannot initialize BlendMode from invalid String value nope"}},
      {layer(R"(,"type":7,"blendMode":["multiply"])"),
       {"type: Expected to decode String but found a number instead.",
        "blendMode: Expected to decode String but found an array instead."}},
      // Absent, null and readable values are no warnings.
      {layer(R"(,"blendMode":null,"type":"shape")"), {}},
      {layer(R"(,"blendMode":"multiply")"), {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    Collected collected;
    JsonDecoderOptions options;
    options.warnings = &collected;
    auto decoded = decodeJson<Ref<Layer>>(c.json, std::move(options));
    EXPECT_EQ(collected.lines, c.expected);
    // The observer changes nothing in what is decoded.
    EXPECT_EQ(encodeJson(decoded), roundTrip<Ref<Layer>>(c.json));
  }

  // A scalar read of another record.
  Collected collected;
  JsonDecoderOptions options;
  options.warnings = &collected;
  decodeJson<Ref<TextStyle>>(R"({"fontFace":"A","fontSize":1,"textAlign":true})",
                             std::move(options));
  EXPECT_EQ(collected.lines,
            std::vector<std::string>{
                "textAlign: Expected to decode String but found a boolean instead."});
}

TEST(DecodingWarnings, TolerantScalarsKeepTheirValueOrSayWhyNot) {
  const std::string longText(300, 'x');  // beyond any inline storage of a string
  Collected collected;
  JsonDecoderOptions options;
  options.warnings = &collected;
  auto read = decodeJson<TolerantScalars>(R"({"text":")" + longText + R"(","number":"7"})",
                                          std::move(options));
  EXPECT_EQ(read.text, longText);
  EXPECT_FALSE(read.number);
  EXPECT_EQ(collected.lines, std::vector<std::string>{
                                 "number: Expected to decode Double but found a string instead."});
}
