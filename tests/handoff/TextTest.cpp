// How text layers are read: font face names, and content cut into runs by ranged styles.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orvane/handoff/Text.hpp>

namespace orvane::handoff {
namespace {

TEST(FontFace, WordsGiveFamilyWeightAndStyle) {
  struct Row {
    std::string name, family;
    int weight;
    bool italic;
  } rows[] = {
      {"Inter-SemiBold", "Inter", 600, false},
      {"Inter-semibold", "Inter", 600, false},
      {"Inter-Bold-Italic", "Inter", 700, true},
      {"Roboto-BoldItalic", "Roboto", 700, true},
      {"SFProText-Semibold", "SF Pro Text", 600, false},
      {"HelveticaNeue", "Helvetica Neue", 400, false},
      {"HelveticaNeue-Light", "Helvetica Neue", 300, false},
      {"SourceSansPro-It", "Source Sans Pro", 400, true},
      {"Avenir-Heavy", "Avenir", 900, false},
      {"Lato-Hairline", "Lato", 100, false},
      {"Roboto-UltraLight", "Roboto", 200, false},
      {"Inter-ExtraLight", "Inter", 200, false},
      {"NotoSans-DemiBold", "Noto Sans", 600, false},
      {"Gotham-Demi", "Gotham", 600, false},
      {"Inter-ExtraBold", "Inter", 800, false},
      {"Inter-UltraBold", "Inter", 800, false},
      {"GothamRounded-Book", "Gotham Rounded", 400, false},
      {"Times-Roman", "Times", 400, false},
      {"Inter-Oblique", "Inter", 400, true},
      {"RobotoCondensed-Bold", "Roboto Condensed", 700, false},
      {"BookAntiqua-Bold", "Book Antiqua", 700, false},
      {"Black", "Black", 400, false},
      {"Inter-Condensed", "Inter Condensed", 400, false},
      {"Helvetica", "Helvetica", 400, false},
      {"-Bold", "Bold", 400, false},
      {"", "", 400, false},
  };
  for (const auto& row : rows) {
    FontFace face = fontFace(row.name);
    EXPECT_EQ(face.family, row.family) << row.name;
    EXPECT_EQ(face.weight, row.weight) << row.name;
    EXPECT_EQ(face.italic, row.italic) << row.name;
  }
}

Ref<RangedTextStyle> ranged(std::int64_t location, std::int64_t length, const std::string& font) {
  return RangedTextStyle::make({.range = Range{location, length},
                                .textStyle = TextStyle::make({.fontName = font,
                                                              .fontSize = 12,
                                                              .lineHeight = std::nullopt,
                                                              .letterSpacing = std::nullopt,
                                                              .color = nullptr,
                                                              .alignment = std::nullopt})});
}

// Each run as "text:font", "-" for unstyled text.
std::vector<std::string> runs(const std::string& content,
                              const std::vector<Ref<RangedTextStyle>>& styles) {
  std::vector<std::string> out;
  for (const auto& run : textRuns(content, styles)) {
    out.push_back(content.substr(run.begin, run.end - run.begin) + ":" +
                  (run.style ? run.style->fontName() : "-"));
  }
  return out;
}

using Runs = std::vector<std::string>;

TEST(TextRuns, RangesCountUtf16UnitsAndCoverTheContentWhole) {
  // "é" is one unit in two bytes, the emoji two units in four bytes.
  const std::string text = "a\u00e9\U0001F600b";
  EXPECT_EQ(runs(text, {ranged(1, 1, "E"), ranged(2, 2, "F")}),
            (Runs{"a:-", "\u00e9:E", "\U0001F600:F", "b:-"}));
  // A bound inside the surrogate pair moves past it.
  EXPECT_EQ(runs(text, {ranged(3, 2, "X")}), (Runs{"a\u00e9\U0001F600:-", "b:X"}));
  EXPECT_EQ(runs(text, {ranged(0, 3, "X")}), (Runs{"a\u00e9\U0001F600:X", "b:-"}));
}

TEST(TextRuns, OutOfRangeAndEmptyRangesAreClamped) {
  EXPECT_EQ(runs("hello", {ranged(-3, 5, "A"), ranged(3, 99, "B")}), (Runs{"he:A", "l:-", "lo:B"}));
  EXPECT_EQ(runs("hello", {ranged(2, 0, "A"), ranged(9, 2, "B"), ranged(1, -4, "C")}),
            (Runs{"hello:-"}));
  EXPECT_EQ(runs("", {ranged(0, 3, "A")}), Runs{});
  EXPECT_EQ(runs("hi", {ranged(INT64_MAX, INT64_MAX, "A"), ranged(0, INT64_MAX, "B")}),
            (Runs{"hi:B"}));
}

TEST(TextRuns, TheLaterOfOverlappingRangesWinsAndEqualNeighboursMerge) {
  auto a = ranged(0, 6, "A");
  EXPECT_EQ(runs("abcdef", {a, ranged(2, 2, "B")}), (Runs{"ab:A", "cd:B", "ef:A"}));
  EXPECT_EQ(runs("abcdef", {ranged(2, 2, "B"), a}), (Runs{"abcdef:A"}));
  EXPECT_EQ(runs("abcdef", {ranged(0, 3, "A"), ranged(3, 3, "A")}),
            (Runs{"abc:A", "def:A"}));  // two styles that look alike are two styles
  auto shared = a->textStyle();
  auto again = RangedTextStyle::make({.range = Range{3, 3}, .textStyle = shared});
  EXPECT_EQ(runs("abcdef", {ranged(0, 3, "X"), again, ranged(0, 3, "A")}),
            (Runs{"abc:A", "def:A"}));
}

TEST(TextRuns, BytesThatAreNotUtf8CountOneUnitEach) {
  EXPECT_EQ(runs("a\xff\xfe"
                 "b",
                 {ranged(1, 2, "X")}),
            (Runs{"a:-", "\xff\xfe:X", "b:-"}));
}

}  // namespace
}  // namespace orvane::handoff
