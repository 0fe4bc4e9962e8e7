#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

TEST(Border, FillMembersStandInTheBordersOwnObject) {
  const char* json =
      R"({"position":"inside","thickness":2,"fillType":"color","color":{"r":0,"g":0,"b":0,"a":1}})";
  auto border = decodeJson<Ref<Border>>(json);
  EXPECT_EQ(border->position(), Border::Position::inside);
  EXPECT_EQ(border->thickness(), 2);
  ASSERT_TRUE(border->fill() && border->fill()->kind());
  EXPECT_EQ(border->fill()->kind()->asColor()->color->alpha(), 1);
  EXPECT_EQ(encodeJson(border), json);

  auto made = Border::make(
      {.position = std::nullopt,
       .thickness = 1.5,
       .fill = Fill::make({.kind = std::nullopt, .opacity = 0.25, .blendMode = BlendMode::hue})});
  EXPECT_EQ(encodeJson(made), R"({"thickness":1.5,"opacity":0.25,"blendMode":"hue"})");
}

TEST(Border, AlwaysGetsAFillEvenFromANestedOne) {
  // A fill nested under its own key is not where a border looks.
  auto border = decodeJson<Ref<Border>>(
      R"({"position":"outline","thickness":1,"fill":{"fillType":"color","color":{"r":0,"g":0,"b":0,"a":1}}})");
  EXPECT_FALSE(border->position());
  ASSERT_TRUE(border->fill());
  EXPECT_FALSE(border->fill()->kind() || border->fill()->opacity() || border->fill()->blendMode());
  EXPECT_EQ(encodeJson(border), R"({"thickness":1})");

  auto e = decodeError<Ref<Border>>(R"({"thickness":1,"fillType":"color"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "color");
  e = decodeError<Ref<Border>>(R"({"fillType":"color","color":{"r":0,"g":0,"b":0,"a":1}})");
  EXPECT_EQ(e.key(), "thickness");
}

TEST(Shadow, SpreadDefaultsToZeroAndIsAlwaysWritten) {
  const char* tail = R"("offsetX":1,"offsetY":-2,"blurRadius":4,)";
  const char* color = R"("color":{"r":0,"g":0,"b":0,"a":0.5})";
  for (const char* spread : {"", R"("spread":null,)"}) {
    SCOPED_TRACE(spread);
    auto shadow =
        decodeJson<Ref<Shadow>>(std::string("{\"type\":\"drop\",") + tail + spread + color + "}");
    EXPECT_EQ(shadow->spread(), 0);
    EXPECT_FALSE(shadow->kind());
    EXPECT_EQ(encodeJson(shadow), std::string("{") + tail + "\"spread\":0," + color + "}");
  }
  auto shadow = decodeJson<Ref<Shadow>>(std::string("{\"type\":\"inner\",") + tail +
                                        "\"spread\":3," + color + "}");
  EXPECT_EQ(shadow->kind(), Shadow::Kind::inner);
  EXPECT_EQ(shadow->x(), 1);
  EXPECT_EQ(shadow->y(), -2);
  EXPECT_EQ(shadow->spread(), 3);

  struct Case {
    const char* json;
    const char* key;
  };
  const Case cases[] = {
      {R"({"offsetY":1,"blurRadius":1,"color":{"r":0,"g":0,"b":0,"a":1}})", "offsetX"},
      {R"({"offsetX":1,"blurRadius":1,"color":{"r":0,"g":0,"b":0,"a":1}})", "offsetY"},
      {R"({"offsetX":1,"offsetY":1,"color":{"r":0,"g":0,"b":0,"a":1}})", "blurRadius"},
      {R"({"offsetX":1,"offsetY":1,"blurRadius":1,"spread":2})", "color"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    auto e = decodeError<Ref<Shadow>>(c.json);
    EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
    EXPECT_EQ(e.key(), c.key);
  }
}

TEST(Blur, KindIsTolerantRadiusIsRequired) {
  EXPECT_EQ(roundTrip<Ref<Blur>>(R"({"radius":10,"type":"background"})"),
            R"({"type":"background","radius":10})");
  EXPECT_EQ(roundTrip<Ref<Blur>>(R"({"type":"motion","radius":2})"), R"({"radius":2})");
  EXPECT_EQ(decodeError<Ref<Blur>>(R"({"type":"gaussian"})").key(), "radius");
}
