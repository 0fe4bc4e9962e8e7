#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;

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
}
