// Layer and snapshot code by structure: every style appears as its modifier with its value, in
// the platform's units under one rule, nothing dropped without a word, and code that compiles
// whatever the document holds.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "Documents.hpp"
#include "support/Layers.hpp"
#include "support/Text.hpp"

namespace orvane::handoff {
namespace {

using test::color;
using test::layer;
using test::snapshotJson;

Ref<Snapshot> decodeSnapshot(const std::string& json) {
  return JsonDecoder().decode<Ref<Snapshot>>(json);
}

const Layer& only(const Snapshot& snapshot) { return *snapshot.flattenedLayers()->front(); }

void expectAll(const std::string& code, const std::vector<std::string>& pieces) {
  for (const auto& piece : pieces)
    EXPECT_NE(code.find(piece), std::string::npos) << piece << "\n" << code;
}

void expectNone(const std::string& code, const std::vector<std::string>& pieces) {
  for (const auto& piece : pieces)
    EXPECT_EQ(code.find(piece), std::string::npos) << piece << "\n" << code;
}

// One layer with every style: two fills, an inside border, both shadows, rotation, opacity,
// blend and blur.
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
  // The snapshot's density is its images' export scale: it changes no length.
  return decodeSnapshot(
      snapshotJson(400, 400, layer("Pay Button", 20, 40, 200, 100, rest), R"("density":"3x")"));
}

TEST(LayerCode, CssStatesEveryStyle) {
  auto snapshot = styled();
  expectAll(layerCss(only(*snapshot)),
            {".pay-button {", "position: absolute;", "left: 20px;", "top: 40px;",
             "width: 200px;", "height: 100px;",
             // the top background first: the gradient lies over the color
             "background: linear-gradient(", "), #ff0000;", "border: 4px solid #000000;",
             "box-sizing: border-box;", "border-radius: 10px;",
             "box-shadow: inset 0px 4px 8px 0px #ffffff, 2px 6px 12px 0px rgba(0, 0, 0, 0.5);",
             "opacity: 0.5;", "mix-blend-mode: multiply;", "transform: rotate(-45deg);",
             "filter: blur(6px);"});
}

TEST(LayerCode, SwiftUIAndComposeStateEveryStyle) {
  auto snapshot = styled();
  const Layer& l = only(*snapshot);
  expectAll(layerSwiftUI(l),
            {"RoundedRectangle(cornerRadius: 10)", ".fill(Color(red: 1, green: 0, blue: 0)",
             ".shadow(.inner(color: Color(red: 1, green: 1, blue: 1), radius: 4, x: 0, y: 4))",
             ".frame(width: 200, height: 100)",
             ".overlay(RoundedRectangle(cornerRadius: 10).fill(LinearGradient(",
             "startPoint: UnitPoint(x: 0, y: 0), endPoint: UnitPoint(x: 1, y: 1)",
             ".strokeBorder(Color(red: 0, green: 0, blue: 0), lineWidth: 4)",
             ".shadow(color: Color(red: 0, green: 0, blue: 0, opacity: 0.5), radius: 6, x: 2, y: 6)",
             ".opacity(0.5)", ".blendMode(.multiply)", ".rotationEffect(.degrees(-45))",
             ".blur(radius: 6)", ".position(x: 120, y: 90)"});
  expectAll(layerCompose(l),
            {"Box(", ".offset(x = 20.dp, y = 40.dp)", ".size(width = 200.dp, height = 100.dp)",
             ".rotate(-45f)", "graphicsLayer { alpha = 0.5f; blendMode = BlendMode.Multiply }",
             ".blur(6.dp, edgeTreatment = BlurredEdgeTreatment.Unbounded)",
             ".shadow(elevation = 6.dp", "clip = false", ".clip(RoundedCornerShape(10.dp))",
             ".background(Color(0xFFFF0000))", ".drawBehind { drawRect(brush = Brush.linearGradient(",
             ".border(width = 4.dp, color = Color(0xFF000000), shape = RoundedCornerShape(10.dp))",
             "// inner shadows have no Compose modifier"});
}

// A text layer of the example project's size, read at each design scale: every language writes
// the same numbers, each divided by the scale.
TEST(LayerCode, OneUnitRuleForEveryLanguage) {
  auto snapshot = decodeSnapshot(snapshotJson(
      400, 400,
      layer("Label", 30, 60, 83, 22,
            R"("type":"text","content":"Hi","textStyles":[{"range":{"location":0,"length":2},)"
            R"("style":{"fontFace":"Inter-SemiBold","fontSize":17,"lineHeight":21,)"
            R"("letterSpacing":0.6}}],"borderRadius":6)"),
      R"("density":"3x")"));
  const Layer& l = only(*snapshot);
  struct Row {
    Density density;
    std::vector<std::string> css, swift, compose;
  } rows[] = {
      {Density::_1x,
       {"left: 30px;", "width: 83px;", "font-size: 17px;", "line-height: 21px;",
        "letter-spacing: 0.6px;", "border-radius: 6px;"},
       {"size: 17)", ".frame(width: 83, height: 22", ".kerning(0.6)", "line height 21",
        ".position(x: 71.5, y: 71)"},
       {".offset(x = 30.dp, y = 60.dp)", "fontSize = 17.sp", "lineHeight = 21.sp",
        "letterSpacing = 0.6.sp", "RoundedCornerShape(6.dp)"}},
      {Density::_3x,
       {"left: 10px;", "width: 27.6667px;", "font-size: 5.6667px;", "line-height: 7px;",
        "letter-spacing: 0.2px;", "border-radius: 2px;"},
       {"size: 5.6667)", ".frame(width: 27.6667, height: 7.3333", ".kerning(0.2)", "line height 7",
        ".position(x: 23.8333, y: 23.6667)"},
       {".offset(x = 10.dp, y = 20.dp)", "fontSize = 5.6667.sp", "lineHeight = 7.sp",
        "letterSpacing = 0.2.sp", "RoundedCornerShape(2.dp)"}},
      {Density::xxxhdpi,
       {"left: 7.5px;", "font-size: 4.25px;"},
       {"size: 4.25)"},
       {".offset(x = 7.5.dp, y = 15.dp)", "fontSize = 4.25.sp"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(rawValue(row.density)));
    CodeOptions options{.density = row.density, .styleGuide = nullptr};
    expectAll(layerCss(l, options), row.css);
    expectAll(layerSwiftUI(l, options), row.swift);
    expectAll(layerCompose(l, options), row.compose);
  }
}

TEST(LayerCode, SwiftUIShapesAlwaysStateTheirFill) {
  // An outline icon: without a fill of its own SwiftUI would fill it with the foreground color.
  auto snapshot = decodeSnapshot(
      snapshotJson(100, 100, layer("Icon", 0, 0, 24, 24, test::border("inside") + R"(,"borderRadius":6)")));
  std::string swift = layerSwiftUI(only(*snapshot));
  expectAll(swift, {"RoundedRectangle(cornerRadius: 6)\n    .fill(Color.clear)",
                    ".overlay(RoundedRectangle(cornerRadius: 6).strokeBorder("});
}

// What a language cannot say is said beside it; what it can say is said.
TEST(LayerCode, NothingIsDroppedSilently) {
  const std::string stops =
      R"("colorStops":[{"position":0,"color":)" + color(1, 0, 0) + R"(},{"position":1,"color":)" +
      color(0, 0, 1) + "}]";
  auto snapshot = decodeSnapshot(snapshotJson(
      400, 400,
      {layer("Turned", 0, 0, 100, 100,
             R"("fills":[{"fillType":"gradient","gradient":{"type":"linear","from":{"x":0,"y":0.5},)"
             R"("to":{"x":1,"y":0.5},"angle":90,)" + stops + R"(}}])"),
       layer("Oval", 0, 0, 100, 100,
             R"("fills":[{"fillType":"gradient","gradient":{"type":"radial","from":{"x":0.5,"y":0.5},)"
             R"("to":{"x":1,"y":0.5},"scale":0.5,)" + stops + R"(}}])"),
       layer("Blended", 0, 0, 100, 100,
             R"("fills":[{"fillType":"color","color":)" + color(1, 0, 0) +
                 R"(},{"fillType":"color","blendMode":"multiply","color":)" + color(0, 1, 0) + "}]"),
       layer("Shadowed", 0, 0, 100, 40,
             R"("type":"text","content":"Hi there","textStyles":[{"range":{"location":0,"length":3},)"
             R"("style":{"fontFace":"Inter","fontSize":12,"textAlign":"justify"}},{"range":)"
             R"({"location":3,"length":5},"style":{"fontFace":"Inter-BoldItalic","fontSize":14}}],)"
             R"("shadows":[{"type":"outer","offsetX":1,"offsetY":2,"blurRadius":3,"color":)" +
                 color(0, 0, 0) + "}]")}));
  const auto& layers = *snapshot->flattenedLayers();
  // The angle turns the gradient's line: from the middle of the left edge, now upwards.
  expectAll(layerSwiftUI(*layers[0]),
            {"startPoint: UnitPoint(x: 0, y: 0.5), endPoint: UnitPoint(x: 0, y: -0.5)"});
  expectAll(layerCompose(*layers[0]), {"start = Offset(0.dp.toPx(), 50.dp.toPx()), end = "
                                       "Offset(0.dp.toPx(), -50.dp.toPx())"});
  expectAll(layerSwiftUI(*layers[1]), {"// a radial gradient's scale (0.5) has no SwiftUI form"});
  expectAll(layerCompose(*layers[1]), {"// a radial gradient's scale (0.5) has no Compose brush",
                                       "radius = 50.dp.toPx()"});
  expectAll(layerSwiftUI(*layers[2]),
            {".fill(Color(red: 1, green: 0, blue: 0))",
             ".overlay(Rectangle().fill(Color(red: 0, green: 1, blue: 0)).blendMode(.multiply))"});
  expectAll(layerCompose(*layers[2]),
            {".background(Color(0xFFFF0000))",
             ".drawBehind { drawRect(color = Color(0xFF00FF00), blendMode = BlendMode.Multiply) }"});
  std::string compose = layerCompose(*layers[3]);
  expectAll(compose, {"shadow = with(LocalDensity.current) { Shadow(color = Color(0xFF000000), "
                      "offset = Offset(1.dp.toPx(), 2.dp.toPx()), blurRadius = 3.dp.toPx()) }",
                      "text = buildAnnotatedString {", "append(\"Hi \")",
                      "withStyle(SpanStyle(fontWeight = FontWeight(700), fontStyle = "
                      "FontStyle.Italic, fontSize = 14.sp)) { append(\"there\") }",
                      "textAlign = TextAlign.Justify"});
  expectAll(layerSwiftUI(*layers[3]), {"// SwiftUI has no justified text",
                                       "Text(verbatim: \"there\").font(Font.custom(\"Inter\", "
                                       "size: 14).weight(.bold).italic())"});
  expectAll(layerCss(*layers[3]),
            {"/* span \"there\": font-family: \"Inter\", \"Inter-BoldItalic\", sans-serif; "
             "font-weight: 700; font-style: italic; font-size: 14px; */"});
}

TEST(LayerCode, TextGoesInVerbatimAndUnstyledRunsTakeTheParagraphsStyle) {
  auto snapshot = decodeSnapshot(snapshotJson(
      100, 100,
      layer("Note", 0, 0, 100, 40,
            R"j("type":"text","content":"*Required* [docs](x)","textStyles":[{"range":)j"
            R"({"location":0,"length":10},"style":{"fontFace":"Inter-Bold","fontSize":12}}])")));
  std::string swift = layerSwiftUI(only(*snapshot));
  expectAll(swift, {"Text(verbatim: \"*Required*\").font(Font.custom(\"Inter\", size: 12)",
                    "+ Text(verbatim: \" [docs](x)\").font(Font.custom(\"Inter\", size: 12)"});
  expectNone(swift, {"Text(\""});
}

TEST(LayerCode, ComposeBrushesMeasureInDpAtDrawTime) {
  auto snapshot = decodeSnapshot(snapshotJson(
      400, 100, layer("Bar", 0, 0, 343, 52, test::gradient("linear", R"({"x":0,"y":0.5})",
                                                           R"({"x":1,"y":0.5})"))));
  std::string compose = layerCompose(only(*snapshot));
  expectAll(compose, {"drawBehind { drawRect(brush = Brush.linearGradient(0f to Color(0xFFFF0000), "
                      "1f to Color(0xFF0000FF), start = Offset(0.dp.toPx(), 26.dp.toPx()), end = "
                      "Offset(343.dp.toPx(), 26.dp.toPx())))"});
  expectNone(compose, {"Offset(343f"});
}

// Values no platform can hold, and gradients that paint nothing or one color: the code still
// compiles, and says what it did.
TEST(LayerCode, ExtremeValuesAreClampedAndSaid) {
  auto snapshot = decodeSnapshot(snapshotJson(
      400, 100,
      {layer("Huge", 0, 0, 10, 10, R"("rect":{"x":1e308,"y":-1e308,"width":10,"height":1e300})"),
       layer("Stopless", 0, 0, 10, 10,
             R"("fills":[{"fillType":"gradient","gradient":{"type":"linear","from":{"x":0,"y":0},)"
             R"("to":{"x":1,"y":1},"colorStops":[]}}])"),
       layer("One stop", 0, 0, 10, 10,
             R"("fills":[{"fillType":"gradient","gradient":{"type":"radial","from":{"x":0,"y":0},)"
             R"("to":{"x":1,"y":1},"colorStops":[{"position":0.5,"color":)" +
                 color(0, 0, 1) + "}]}}]")}));
  const auto& layers = *snapshot->flattenedLayers();
  for (const auto& code : {layerCss(*layers[0]), layerSwiftUI(*layers[0]), layerCompose(*layers[0])}) {
    expectAll(code, {"values beyond what a Float holds, or not numbers, are clamped",
                     "3.402823e+38"});
    // No number of hundreds of digits: no run of 40 digits.
    EXPECT_EQ(code.find(std::string(40, '0')), std::string::npos) << code;
  }
  for (const auto& code : {layerCss(*layers[1]), layerSwiftUI(*layers[1]), layerCompose(*layers[1])}) {
    expectAll(code, {"a gradient without stops paints nothing"});
    expectNone(code, {"Gradient", "gradient("});
  }
  expectAll(layerCompose(*layers[2]), {".background(Color(0xFF0000FF))"});
  expectAll(layerCss(*layers[2]), {"background: #0000ff;"});
}

TEST(LayerCode, StyleGuideValuesAreNamedByTheirTokens) {
  auto project = JsonDecoder().decode<Ref<Project>>(
      R"({"_id":"P","name":"Shop","icon":{"type":"car"},"created":"2024-01-01T00:00:00Z",)"
      R"("users":[],"colors":[{"_id":"c1","name":"Brand/500",)"
      R"("r":0.2,"g":0.4,"b":1,"a":1}],)"
      R"("textStyles":[{"_id":"t1","name":"Body","fontFace":"Inter-SemiBold","fontSize":17,)"
      R"("lineHeight":22,"color":{"r":0,"g":0,"b":0,"a":1}}]})");
  StyleGuide guide(*project);
  auto snapshot = decodeSnapshot(snapshotJson(
      100, 100,
      layer("Label", 0, 0, 100, 30,
            R"("type":"text","content":"Hi","textStyles":[{"range":{"location":0,"length":2},)"
            R"("style":{"fontFace":"Inter-SemiBold","fontSize":17,"lineHeight":22,"color":)" +
                color(0, 0, 0) + "}}]," + test::solid(0.2, 0.4, 1)) +
          "," + layer("Faded", 0, 0, 10, 10, test::solid(0.2, 0.4, 1, 0.5))));
  const auto& layers = *snapshot->flattenedLayers();
  CodeOptions options{.density = Density::_1x, .styleGuide = &guide};
  // The names the tokens file declares, in every language.
  expectAll(layerCss(*layers[0], options),
            {"background: var(--brand-500);", "font: var(--body-font);",
             "letter-spacing: var(--body-letter-spacing);", "color: var(--body-color);"});
  expectAll(layerSwiftUI(*layers[0], options),
            {"Color.brand500", ".font(.bodyStyle)", ".foregroundColor(Color.bodyColor)"});
  expectAll(layerCompose(*layers[0], options), {".background(brand500)", "style = body,"});
  // Another alpha is another color.
  EXPECT_EQ(layerCss(*layers[1], options).find("var("), std::string::npos);
}

TEST(Names, MadeFromDesignNames) {
  struct Row {
    std::string name, slug;
  } rows[] = {{"Primary Blue", "primary-blue"},
              {"  Card / Title -- 2 ", "card-title-2"},
              {"Émoji 🚀 Button", "emoji-button"},
              {"Überweiß", "uberweiss"},
              {"Ærø Ĳssel", "aero-ijssel"},
              {"ＦＵＬＬ", "full"},
              {"日本語", "layer"},
              {"", "layer"},
              {"!!!", "layer"},
              {"2x Icon", "l-2x-icon"},
              {"ALLCAPS", "allcaps"},
              {"bad \xff byte", "bad-byte"}};
  for (const auto& row : rows) EXPECT_EQ(slug(row.name, "layer", "l-"), row.slug) << row.name;
  UniqueNames names;
  EXPECT_EQ(names.take("a"), "a");
  EXPECT_EQ(names.take("a"), "a-2");
  EXPECT_EQ(names.take("a"), "a-3");
  EXPECT_EQ(names.take("a-2"), "a-2-2");
  UniqueNames camel(true);
  EXPECT_EQ(camel.take("a1"), "a1");
  EXPECT_EQ(camel.take("a-1"), "a-1-2");
  EXPECT_EQ(camelCase("primary-blue-2"), "primaryBlue2");
}


// Whatever a text holds, the string literal keeps it in its language's escapes.
TEST(LayerCode, TextBecomesAStringLiteralOfItsLanguage) {
  auto text = test::layer("T", Layer::Kind::text("a\"b\\c\x01$x\ny", {}), Rect(0, 0, 10, 10));
  EXPECT_NE(layerSwiftUI(*text).find(R"(Text(verbatim: "a\"b\\c\u{1}$x\ny"))"), std::string::npos)
      << layerSwiftUI(*text);
  EXPECT_NE(layerCompose(*text).find(R"(text = "a\"b\\c\u0001\$x\ny",)"), std::string::npos)
      << layerCompose(*text);
}

// --- The whole snapshot ------------------------------------------------------------------------

// A card group drawn above its children, with a title and an icon inside, and two layers that
// share a name.
Ref<Snapshot> screen() {
  return decodeSnapshot(snapshotJson(
      375, 300,
      {layer("Card", 16, 20, 200, 100,
             R"("type":"group","interactionLevel":"top","opacity":0.5,"rotation":10,)" +
                 test::solid(1, 1, 1) + R"(,"layers":[)" +
                 layer("Title", 10, 12, 120, 20,
                       R"("type":"text","content":"Eagle <Ridge>","textStyles":[{"range":)"
                       R"({"location":0,"length":5},"style":{"fontFace":"Inter-Bold","fontSize":16}},)"
                       R"({"range":{"location":6,"length":7},"style":{"fontFace":"Inter-Italic",)"
                       R"("fontSize":14}}])") +
                 "," + layer("Icon", 150, 30, 24, 24, test::solid(0, 0, 1)) + "]"),
       layer("Title", 16, 140, 120, 20, test::solid(1, 0, 0)),
       // A group the drawing leaves out: its child lies where the drawing puts it.
       layer("Loose", 100, 200, 50, 50,
             R"("type":"group","layers":[)" + layer("Dot", 5, 5, 10, 10, test::solid(0, 0, 0)) + "]")}));
}

TEST(SnapshotCode, HtmlNestsTheTreeWithUniqueNames) {
  auto snapshot = screen();
  std::string html = snapshotHtml(*snapshot);
  expectAll(html,
            {"<!DOCTYPE html>", "html, body {\n  margin: 0;\n}", ".artboard {\n  position: relative;",
             "width: 375px;\n  height: 300px;",
             // The group only places its children; its look is its own, above them.
             ".card {\n  position: absolute;\n  left: 16px;\n  top: 20px;\n  width: 200px;\n  "
             "height: 100px;\n}",
             ".card::after {\n  content: \"\";\n  position: absolute;\n  left: 0px;\n  top: 0px;",
             "opacity: 0.5;", "transform: rotate(-10deg);",
             // Children relative to the group; names unique in the snapshot.
             ".title {\n  position: absolute;\n  left: 10px;\n  top: 12px;",
             ".icon {\n  position: absolute;\n  left: 150px;\n  top: 30px;",
             ".title-2 {\n  position: absolute;\n  left: 16px;\n  top: 140px;",
             ".title-span {\n  font-family: \"Inter\", \"Inter-Italic\", sans-serif;",
             "<div class=\"card\">\n    <div class=\"title\">Eagle <span class=\"title-span\">"
             "&lt;Ridge&gt;</span></div>\n    <div class=\"icon\"></div>\n  </div>\n  <div class=\"title-2\">"});
  expectAll(html, {".dot {\n  position: absolute;\n  left: 105px;\n  top: 205px;",
                   "<div class=\"title-2\"></div>\n  <div class=\"dot\"></div>\n</div>"});
  expectNone(html, {"class=\"loose\"", ".loose"});
  // The rule of one layer names it as the whole snapshot does.
  const Layer& second = *snapshot->layers()->at(1);
  expectAll(layerCss(second), {".title-2 {"});
}

TEST(SnapshotCode, SwiftUIAndComposeNestTheTree) {
  auto snapshot = screen();
  std::string swift = snapshotSwiftUI(*snapshot, {.density = Density::_2x, .styleGuide = nullptr});
  expectAll(swift, {"import SwiftUI", "struct SnapshotView: View {", "var body: some View {",
                    "ZStack(alignment: .topLeading) {", "cardView\n                .position(x: 58, y: 35)",
                    "private var cardView: some View {", ".frame(width: 187.5, height: 150",
                    // The group's look lies above its children, in its own box.
                    "// Card, its own look", ".opacity(0.5)", ".position(x: 50, y: 25)",
                    // A child relative to the group, at half the design's size.
                    ".position(x: 35, y: 11)"});
  EXPECT_LT(swift.find("// Icon"), swift.find("// Card, its own look")) << swift;
  std::string compose = snapshotCompose(*snapshot);
  expectAll(compose, {"import androidx.compose.runtime.Composable", "@Composable\nfun SnapshotScreen() {",
                      "CardGroup()", "private fun CardGroup() {",
                      ".offset(x = 16.dp, y = 20.dp)\n            .size(width = 200.dp, height = 100.dp),",
                      ".offset(x = 150.dp, y = 30.dp)", "// Card, its own look"});
}

TEST(SnapshotCode, LargeContainersStaySplit) {
  std::vector<std::string> many;
  for (int i = 0; i < 95; ++i) many.push_back(layer("Dot " + std::to_string(i), i, 0, 1, 1, test::solid(0, 0, 0)));
  auto snapshot = decodeSnapshot(snapshotJson(100, 10, many));
  std::string swift = snapshotSwiftUI(*snapshot);
  // A view builder takes ten views a block.
  expectAll(swift, {"Group {"});
  std::string compose = snapshotCompose(*snapshot);
  expectAll(compose, {"SnapshotScreenPart()", "SnapshotScreenPart2()", "SnapshotScreenPart3()",
                      "private fun SnapshotScreenPart3() {"});
}

}  // namespace
}  // namespace orvane::handoff
