// The observer of values that tolerant keys drop; what the records' tolerant keys report is in
// the corpus (the tool's --warnings).
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
