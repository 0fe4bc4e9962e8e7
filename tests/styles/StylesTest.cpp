// What style records do that no document shows: a made border's fill, and project colors and text
// styles held as their plain record. What they read and write is in the corpus.
#include <orvane/internal/JsonWriter.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;

TEST(Border, AMadeBordersFillIsWrittenInTheBordersOwnObject) {
  auto made = Border::make(
      {.position = std::nullopt,
       .thickness = 1.5,
       .fill = Fill::make({.kind = std::nullopt, .opacity = 0.25, .blendMode = BlendMode::hue})});
  EXPECT_EQ(encodeJson(made), R"({"thickness":1.5,"opacity":0.25,"blendMode":"hue"})");
}

TEST(ProjectColor, IsWrittenWithoutItsIdentifierSoOnlyAPlainColorReadsItBack) {
  auto color =
      decodeJson<Ref<ProjectColor>>(R"({"_id":"c1","name":"Blue","r":0,"g":0,"b":1,"a":1})");
  // Held as a plain color, it still writes its own members.
  Ref<Color> held = color;
  auto written = encodeJson(held);
  EXPECT_EQ(written, R"({"name":"Blue","r":0,"g":0,"b":1,"a":1})");
  EXPECT_EQ(decodeJson<Ref<Color>>(written)->blue(), 1);

  auto made = ProjectColor::make({.name = "Red", .red = 1, .green = 0, .blue = 0, .alpha = 0.5});
  EXPECT_TRUE(made->identifier().isLocal());
  EXPECT_EQ(encodeJson(made), R"({"name":"Red","r":1,"g":0,"b":0,"a":0.5})");
}

TEST(ProjectColor, ListedThroughAPlainColorStillShowsItsOwnFields) {
  Ref<Color> color = ProjectColor::make(
      {.identifier = Identifier("c"), .name = "Red", .red = 1, .green = 0, .blue = 0, .alpha = 1});
  std::string out;
  JsonWriter writer(out, false);
  JsonFieldWriter fields(writer);
  describe(fields, color);
  EXPECT_EQ(out, R"({"red":1,"green":0,"blue":0,"alpha":1,"identifier":"c","name":"Red"})");
}

TEST(ProjectTextStyle, WritesNameAndSourceBesideTheStyleButNeverItsIdentifier) {
  auto style = decodeJson<Ref<ProjectTextStyle>>(
      R"({"textAlign":"right","fontSize":12,"fontFace":"Mono","name":"Code","_id":"t1"})");
  EXPECT_EQ(style->identifier(), Identifier("t1"));
  EXPECT_FALSE(style->sourceIdentifier());
  EXPECT_EQ(style->alignment(), TextStyle::Alignment::right);
  Ref<TextStyle> held = style;
  EXPECT_EQ(encodeJson(held),
            R"({"name":"Code","fontFace":"Mono","fontSize":12,"textAlign":"right"})");

  style->setSourceIdentifier(Identifier("src"));
  EXPECT_EQ(
      encodeJson(style),
      R"({"name":"Code","sourceId":"src","fontFace":"Mono","fontSize":12,"textAlign":"right"})");
}

// Its errors are corpus cases; the partial's color is read through the style's keys.
TEST(ProjectTextStylePartial, ReadsColorThroughTheStyleKeys) {
  auto p = decodeJson<ProjectTextStyle::Partial>(
      R"({"name":"Body","fontFace":"ignored","color":{"r":1,"g":1,"b":1,"a":0}})");
  EXPECT_FALSE(p.identifier());
  EXPECT_EQ(p.name(), "Body");
  EXPECT_EQ(p.color()->alpha(), 0);
}
