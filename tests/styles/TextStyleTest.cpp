#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;
using Alignment = TextStyle::Alignment;

TEST(TextStyle, OnlyTheFontIsRequiredAndOnlyWhatIsHeldIsWritten) {
  auto style = decodeJson<Ref<TextStyle>>(R"({"fontFace":"Inter","fontSize":14})");
  EXPECT_FALSE(style->lineHeight() || style->letterSpacing() || style->color() ||
               style->alignment());
  EXPECT_EQ(encodeJson(style), R"({"fontFace":"Inter","fontSize":14})");

  const char* full = R"({"fontFace":"Inter","fontSize":14,"lineHeight":20,"letterSpacing":-0.5,)"
                     R"("color":{"r":0,"g":0,"b":0,"a":1},"textAlign":"justify"})";
  EXPECT_EQ(roundTrip<Ref<TextStyle>>(full), full);
}

TEST(TextStyle, AlignmentIsTolerant) {
  struct Case {
    const char* member;
    std::optional<Alignment> alignment;
  };
  const Case cases[] = {
      {R"("textAlign":"center")", Alignment::center},
      {R"("textAlign":"centre")", std::nullopt},
      {R"("textAlign":"LEFT")", std::nullopt},
      {R"("textAlign":null)", std::nullopt},
      {R"("textAlign":3)", std::nullopt},
      {R"("textAlign":{"x":1})", std::nullopt},
      {R"("alignment":"left")", std::nullopt},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.member);
    auto style = decodeJson<Ref<TextStyle>>(std::string(R"({"fontFace":"A","fontSize":1,)") +
                                            c.member + "}");
    EXPECT_EQ(style->alignment(), c.alignment);
  }
  auto e = decodeError<Alignment>(R"("centre")");
  EXPECT_EQ(e.description(), "Cannot initialize Alignment from invalid String value centre");
}

TEST(TextStyle, FailuresOutsideTheAlignmentStillFail) {
  auto e = decodeError<Ref<TextStyle>>(R"({"fontName":"Inter","fontSize":14})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "fontFace");
  e = decodeError<Ref<TextStyle>>(
      R"({"fontFace":"Inter","fontSize":14,"color":{"r":0,"g":0,"b":0},"textAlign":"nope"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "a");
  EXPECT_EQ(pathOf(e), "color");
  e = decodeError<Ref<TextStyle>>(R"({"fontFace":"Inter","fontSize":14,"lineHeight":"tall"})");
  EXPECT_EQ(e.kind(), ErrorKind::typeMismatch);
}

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

  auto e = decodeError<Ref<ProjectTextStyle>>(R"({"_id":"t","fontFace":"A","fontSize":1})");
  EXPECT_EQ(e.key(), "name");
  e = decodeError<Ref<ProjectTextStyle>>(R"({"_id":"t","name":"n","fontSize":1})");
  EXPECT_EQ(e.key(), "fontFace");
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

TEST(RangedTextStyle, RangeAndStyleAreRequiredAndKeptAsRead) {
  const char* json = R"({"range":{"location":3,"length":0},"style":{"fontFace":"A","fontSize":9}})";
  auto ranged = decodeJson<Ref<RangedTextStyle>>(json);
  EXPECT_EQ(ranged->range(), (Range{3, 0}));
  EXPECT_EQ(encodeJson(ranged), json);

  struct Case {
    const char* json;
    const char* key;
    const char* path;
  };
  const Case cases[] = {
      {R"({"style":{"fontFace":"A","fontSize":9}})", "range", "<root>"},
      {R"({"range":{"length":1},"style":{"fontFace":"A","fontSize":9}})", "location", "range"},
      {R"({"range":{"location":0,"length":1}})", "style", "<root>"},
      {R"({"range":{"location":0,"length":1},"style":{"fontFace":"A"}})", "fontSize", "style"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    auto e = decodeError<Ref<RangedTextStyle>>(c.json);
    EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
    EXPECT_EQ(e.key(), c.key);
    EXPECT_EQ(pathOf(e), c.path);
  }
}
