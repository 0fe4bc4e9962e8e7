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
