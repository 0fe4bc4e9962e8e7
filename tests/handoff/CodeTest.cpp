// Layer code by structure: every style of a layer appears as its modifier with its value, in
// the platform's units, and style-guide values by their tokens.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "Documents.hpp"
#include "support/Layers.hpp"

namespace orvane::handoff {
namespace {

using test::color;
using test::layer;
using test::snapshotJson;

// One layer with every style: two fills, an inside border, both shadows, rotation, opacity,
// blend and blur, in a snapshot at 2x.
Ref<Snapshot> styled() {
  std::string rest =
      R"("fills":[{"fillType":"color","color":)" + color(1, 0, 0) +
      R"(},{"fillType":"gradient","gradient":{"type":"linear","from":{"x":0,"y":0},)"
      R"("to":{"x":1,"y":1},"colorStops":[{"position":0,"color":)" +
      color(0, 0, 1) + R"(},{"position":1,"color":)" + color(0, 1, 0) +
      R"(}]}}],"borders":[{"position":"inside",)"
      R"("thickness":4,"fillType":"color","color":)" +
      color(0, 0, 0) +
      R"(}],"shadows":[{"type":"outer","offsetX":2,"offsetY":6,"blurRadius":12,"color":)" +
      color(0, 0, 0, 0.5) + R"(},{"type":"inner","offsetX":0,"offsetY":4,"blurRadius":8,"color":)" +
      color(1, 1, 1) +
      R"(}],"rotation":45,"opacity":0.5,"blendMode":"multiply",)"
      R"("blur":{"type":"gaussian","radius":6},"borderRadius":10)";
  std::string json =
      snapshotJson(400, 400, layer("Pay Button", 20, 40, 200, 100, rest), R"("density":"2x")");
  // The layer's own "opacity" comes after the helper's: the last member counts.
  return JsonDecoder().decode<Ref<Snapshot>>(json);
}

void expectAll(const std::string& code, const std::vector<std::string>& pieces) {
  for (const auto& piece : pieces)
    EXPECT_NE(code.find(piece), std::string::npos) << piece << "\n" << code;
}

TEST(LayerCode, CssStatesEveryStyle) {
  auto snapshot = styled();
  std::string css = layerCss(*snapshot->flattenedLayers()->front());
  expectAll(css, {".pay-button {", "position: absolute;", "left: 20px;", "top: 40px;",
                  "width: 200px;", "height: 100px;",
                  // the top background first: the gradient lies over the color
                  "background: linear-gradient(", "), #ff0000;", "border: 4px solid #000000;",
                  "box-sizing: border-box;", "border-radius: 10px;",
                  "box-shadow: inset 0px 4px 8px 0px #ffffff, 2px 6px 12px 0px rgba(0, 0, 0, 0.5);",
                  "opacity: 0.5;", "mix-blend-mode: multiply;", "transform: rotate(-45deg);",
                  "filter: blur(6px);"});
}

TEST(LayerCode, SwiftUIAndComposeStateEveryStyleInTheirUnits) {
  auto snapshot = styled();
  const Layer& l = *snapshot->flattenedLayers()->front();
  // At 2x a document unit is half a point.
  expectAll(
      layerSwiftUI(l),
      {"RoundedRectangle(cornerRadius: 5)", ".fill(Color(red: 1, green: 0, blue: 0)",
       ".shadow(.inner(color: Color(red: 1, green: 1, blue: 1), radius: 2, x: 0, y: 2))",
       ".frame(width: 100, height: 50)",
       ".overlay(RoundedRectangle(cornerRadius: 5).fill(LinearGradient(",
       "startPoint: UnitPoint(x: 0, y: 0), endPoint: UnitPoint(x: 1, y: 1)",
       ".strokeBorder(Color(red: 0, green: 0, blue: 0), lineWidth: 2)",
       ".shadow(color: Color(red: 0, green: 0, blue: 0, opacity: 0.5), radius: 3, x: 1, y: 3)",
       ".opacity(0.5)", ".blendMode(.multiply)", ".rotationEffect(.degrees(-45))",
       ".blur(radius: 3)", ".position(x: 60, y: 45)"});
  expectAll(layerCompose(l),
            {"Box(", ".offset(x = 10.dp, y = 20.dp)", ".size(width = 100.dp, height = 50.dp)",
             ".rotate(-45f)", "graphicsLayer { alpha = 0.5f; blendMode = BlendMode.Multiply }",
             ".shadow(elevation = 3.dp", ".clip(RoundedCornerShape(5.dp))",
             ".background(Color(0xFFFF0000))", ".background(Brush.linearGradient(",
             ".border(width = 2.dp, color = Color(0xFF000000), shape = RoundedCornerShape(5.dp))",
             ".blur(3.dp)", "// inner shadows have no Compose modifier"});
  // A density given outright wins over the snapshot's.
  EXPECT_NE(
      layerCompose(l, {.density = Density::_1x, .styleGuide = nullptr}).find("size(width = 200.dp"),
      std::string::npos);
}

TEST(LayerCode, StyleGuideValuesAreNamedByTheirTokens) {
  auto project = JsonDecoder().decode<Ref<Project>>(
      R"({"_id":"P","name":"Shop","icon":{"type":"car"},"created":"2024-01-01T00:00:00Z",)"
      R"("users":[],"colors":[{"_id":"c1","name":"Brand/Primary Blue",)"
      R"("r":0.2,"g":0.4,"b":1,"a":1}],)"
      R"("textStyles":[{"_id":"t1","name":"Body","fontFace":"Inter-SemiBold","fontSize":17,)"
      R"("lineHeight":22,"color":{"r":0,"g":0,"b":0,"a":1}}]})");
  StyleGuide guide(*project);
  auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(
      100, 100,
      layer("Label", 0, 0, 100, 30,
            R"("type":"text","content":"Hi","textStyles":[{"range":{"location":0,"length":2},)"
            R"("style":{"fontFace":"Inter-SemiBold","fontSize":17,"lineHeight":22,"color":)" +
                color(0, 0, 0) + "}}]," + test::solid(0.2, 0.4, 1)) +
          "," + layer("Faded", 0, 0, 10, 10, test::solid(0.2, 0.4, 1, 0.5))));
  const auto& layers = *snapshot->flattenedLayers();
  CodeOptions options{.density = std::nullopt, .styleGuide = &guide};
  expectAll(layerCss(*layers[0], options),
            {"background: var(--brand-primary-blue);", "font: var(--body-font);",
             "color: var(--body-color);"});
  expectAll(layerSwiftUI(*layers[0], options), {"Color.brandPrimaryBlue", ".font(.bodyStyle)"});
  expectAll(layerCompose(*layers[0], options), {".background(brandPrimaryBlue)", "style = body,"});
  // Another alpha is another color.
  EXPECT_EQ(layerCss(*layers[1], options).find("var("), std::string::npos);
}

TEST(Names, MadeFromDesignNames) {
  struct Row {
    std::string name, slug;
  } rows[] = {{"Primary Blue", "primary-blue"},
              {"  Card / Title -- 2 ", "card-title-2"},
              {"Émoji 🚀 Button", "moji-button"},
              {"", "layer"},
              {"!!!", "layer"},
              {"2x Icon", "l-2x-icon"},
              {"ALLCAPS", "allcaps"}};
  for (const auto& row : rows) EXPECT_EQ(slug(row.name, "layer", "l-"), row.slug) << row.name;
  UniqueNames names;
  EXPECT_EQ(names.take("a"), "a");
  EXPECT_EQ(names.take("a"), "a-2");
  EXPECT_EQ(names.take("a"), "a-3");
  EXPECT_EQ(names.take("a-2"), "a-2-2");
  EXPECT_EQ(camelCase("primary-blue-2"), "primaryBlue2");
}

}  // namespace
}  // namespace orvane::handoff

namespace orvane::handoff {
namespace {

// Whatever a text holds, the string literal keeps it in its language's escapes.
TEST(LayerCode, TextBecomesAStringLiteralOfItsLanguage) {
  auto text = test::layer("T", Layer::Kind::text("a\"b\\c\x01$x\ny", {}), Rect(0, 0, 10, 10));
  EXPECT_NE(layerSwiftUI(*text).find(R"(Text("a\"b\\c\u{1}$x\ny"))"), std::string::npos)
      << layerSwiftUI(*text);
  EXPECT_NE(layerCompose(*text).find(R"(text = "a\"b\\c\u0001\$x\ny",)"), std::string::npos)
      << layerCompose(*text);
}

}  // namespace
}  // namespace orvane::handoff
