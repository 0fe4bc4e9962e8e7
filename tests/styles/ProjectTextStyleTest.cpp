#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using Alignment = TextStyle::Alignment;

TEST(ProjectTextStyle, WritesNameAndSourceBesideTheStyleButNeverItsIdentifier) {
  auto style = decodeJson<Ref<ProjectTextStyle>>(
      R"({"textAlign":"right","fontSize":12,"fontFace":"Mono","name":"Code","_id":"t1"})");
  EXPECT_EQ(style->identifier(), Identifier("t1"));
  EXPECT_FALSE(style->sourceIdentifier());
  EXPECT_EQ(style->alignment(), Alignment::right);
  Ref<TextStyle> held = style;
  EXPECT_EQ(encodeJson(held),
            R"({"name":"Code","fontFace":"Mono","fontSize":12,"textAlign":"right"})");

  style->setSourceIdentifier(Identifier("src"));
  EXPECT_EQ(
      encodeJson(style),
      R"({"name":"Code","sourceId":"src","fontFace":"Mono","fontSize":12,"textAlign":"right"})");
}

TEST(ProjectTextStylePartial, ReadsColorThroughTheStyleKeys) {
  auto p = decodeJson<ProjectTextStyle::Partial>(
      R"({"name":"Body","fontFace":"ignored","color":{"r":1,"g":1,"b":1,"a":0}})");
  EXPECT_FALSE(p.identifier());
  EXPECT_EQ(p.name(), "Body");
  ASSERT_TRUE(p.color());
  EXPECT_EQ(p.color()->alpha(), 0);
  EXPECT_FALSE(decodeJson<ProjectTextStyle::Partial>(R"({"color":null})").color());
  auto e = decodeError<ProjectTextStyle::Partial>(R"({"color":{"r":1}})");
  EXPECT_EQ(e.key(), "g");
}
