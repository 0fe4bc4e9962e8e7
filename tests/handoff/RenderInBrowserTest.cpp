// Snapshots drawn by renderSvg, looked at in headless Chromium: each case names points of the
// screenshot and the colors a person would see there.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <orvane/handoff/Render.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "Browser.hpp"
#include "Documents.hpp"
#include "support/Layers.hpp"

namespace orvane::test {
namespace {

const Pixel kWhite{255, 255, 255}, kBlack{0, 0, 0}, kRed{255, 0, 0}, kGreen{0, 255, 0},
    kBlue{0, 0, 255}, kYellow{255, 255, 0};

struct Probe {
  int x, y;
  Pixel expected;
  int tolerance = 10;
};

// Checks beyond single points; `top` is where the case starts in the screenshot.
using Check = std::function<void(const Image& image, int top)>;

struct Case {
  std::string name;
  int width, height;
  std::vector<std::string> layers;
  std::vector<Probe> probes;
  Check check = nullptr;
  handoff::RenderOptions options = {};
  std::string extra = "";  // further snapshot members
};

bool near(Pixel a, Pixel b, int tolerance) {
  return std::abs(a.red - b.red) <= tolerance && std::abs(a.green - b.green) <= tolerance &&
         std::abs(a.blue - b.blue) <= tolerance;
}

std::string describe(Pixel p) {
  return "(" + std::to_string(p.red) + ", " + std::to_string(p.green) + ", " +
         std::to_string(p.blue) + ")";
}

int gray(const Image& image, int x, int y) {
  Pixel p = image.at(x, y);
  return (p.red + p.green + p.blue) / 3;
}

std::vector<Case> cases() {
  const std::string red = solid(1, 0, 0), black = solid(0, 0, 0);
  return {
      {"a fill inside its absolute frame, the background outside",
       100,
       60,
       {layer("a", 20, 10, 40, 20, red)},
       {{40, 20, kRed}, {21, 11, kRed}, {10, 5, kWhite}, {70, 20, kWhite}, {40, 35, kWhite}}},
      {"a child at its group's offset",
       100,
       60,
       {layer("g", 50, 20, 40, 30,
              R"("type":"group","layers":[)" + layer("c", 10, 5, 20, 10, solid(0, 0, 1)) + "]")},
       {{70, 30, kBlue}, {20, 10, kWhite}, {55, 22, kWhite}}},
      {"layer opacity, fill opacity and color alpha blend over the background",
       110,
       30,
       {layer("layer", 0, 0, 30, 30, black + R"(,"opacity":0.5)"),
        layer("fill", 35, 0, 30, 30, solid(0, 0, 0, 1, R"("opacity":0.5)")),
        layer("alpha", 70, 0, 30, 30, solid(0, 0, 0, 0.5))},
       {{15, 15, {128, 128, 128}, 6}, {50, 15, {128, 128, 128}, 6}, {85, 15, {128, 128, 128}, 6}}},
      {"a linear gradient's two ends and middle",
       200,
       20,
       {layer("g", 0, 0, 200, 20, gradient("linear", R"({"x":0,"y":0.5})", R"({"x":1,"y":0.5})"))},
       {{1, 10, kRed, 12}, {198, 10, kBlue, 12}, {100, 10, {128, 0, 128}, 12}}},
      {"radial and angular gradients",
       230,
       100,
       {layer("radial", 0, 0, 100, 100, gradient("radial", kMiddle, R"({"x":1,"y":0.5})")),
        layer("angular", 120, 0, 100, 100, gradient("angular", kMiddle, R"({"x":0.5,"y":0})"))},
       {{50, 50, kRed, 12},
        {98, 50, kBlue, 16},
        {3, 3, kBlue, 12},
        {174, 8, kRed, 40},
        {166, 8, kBlue, 40},
        {170, 92, {128, 0, 128}, 30}}},
      {"borders by position: inside within the frame, outside beyond it, centre across it",
       300,
       80,
       {layer("in", 20, 20, 60, 40, border("inside")),
        layer("out", 120, 20, 60, 40, border("outside")),
        layer("mid", 220, 20, 60, 40, border("center"))},
       {{22, 40, kGreen},
        {18, 40, kWhite},
        {30, 40, kWhite},
        {118, 40, kGreen},
        {121, 40, kWhite},
        {114, 40, kWhite},
        {219, 40, kGreen},
        {220, 40, kGreen},
        {216, 40, kWhite},
        {224, 40, kWhite}}},
      {"an outer shadow at its offset, outside the layer only; an inner one inside",
       200,
       90,
       {layer("outer", 20, 20, 30, 30, red + "," + shadow("outer", 20, 20)),
        layer("inner", 110, 20, 60, 40, red + "," + shadow("inner", 0, 10))},
       {{60, 60, kBlack},
        {45, 45, kRed},
        {15, 45, kWhite},
        {60, 15, kWhite},
        {140, 25, kBlack},
        {140, 55, kRed},
        {140, 15, kWhite},
        {140, 65, kWhite}}},
      {"a rotated layer's ends turn counter-clockwise about its centre",
       100,
       100,
       {layer("r", 20, 40, 60, 20, black + R"(,"rotation":30)")},
       {{74, 37, kBlack, 30},
        {26, 63, kBlack, 30},
        {74, 63, kWhite, 30},
        {26, 37, kWhite, 30},
        {50, 50, kBlack}}},
      {"a blend mode mixes with what lies below",
       100,
       40,
       {layer("below", 0, 0, 100, 40, solid(1, 1, 0)),
        layer("above", 20, 0, 60, 40, solid(0, 1, 1) + R"(,"blendMode":"multiply")")},
       {{50, 20, kGreen}, {10, 20, kYellow}}},
      {"a layer's blur softens its edges; a background blur blurs only what it covers",
       200,
       60,
       {layer("soft", 40, 20, 20, 20, black + R"(,"blur":{"type":"gaussian","radius":4})"),
        layer("top", 100, 0, 100, 20, black),
        layer("glass", 120, 10, 60, 20, R"("blur":{"type":"background","radius":4})")},
       {{50, 30, kBlack, 60}, {28, 30, kWhite, 30}, {110, 18, kBlack, 30}, {150, 8, kBlack, 60}},
       [](const Image& image, int top) {
         int edge = gray(image, 38, top + 30);
         EXPECT_GT(edge, 40) << "the blurred edge is not black";
         EXPECT_LT(edge, 215) << "the blurred edge is not white";
         int seam = gray(image, 150, top + 19);
         EXPECT_GT(seam, 40) << "the background blur leaves the seam sharp";
         EXPECT_LT(seam, 215) << "the background blur leaves the seam sharp";
         EXPECT_LT(gray(image, 110, top + 19), 30) << "blurred beyond the glass layer";
       }},
      {"text in its frame and nowhere else",
       200,
       60,
       {layer("t", 10, 10, 180, 40,
              R"("type":"text","content":"HHHHHH","textStyles":[{"range":)"
              R"({"location":0,"length":6},"style":{"fontFace":"DejaVuSans-Bold",)"
              R"("fontSize":30}}])")},
       {},
       [](const Image& image, int top) {
         int inside = 0, outside = 0;
         for (int y = 0; y < 60; ++y) {
           for (int x = 0; x < 200; ++x) {
             if (gray(image, x, top + y) > 100) continue;
             bool in = x >= 10 && x < 190 && y >= 10 && y < 50;
             (in ? inside : outside)++;
           }
         }
         EXPECT_GT(inside, 300) << "no text drawn in the frame";
         EXPECT_EQ(outside, 0) << "text drawn outside the frame";
       }},
      {"text under a frosted bar shows through it, blurred",
       200,
       60,
       {layer("words", 10, 10, 180, 40,
              R"("type":"text","content":"HHHHHH","textStyles":[{"range":)"
              R"({"location":0,"length":6},"style":{"fontFace":"DejaVuSans-Bold",)"
              R"("fontSize":30}}])"),
        layer("bar", 0, 0, 200, 60, R"("blur":{"type":"background","radius":3})")},
       {},
       [](const Image& image, int top) {
         int darkest = 255;
         for (int y = 10; y < 50; ++y) {
           for (int x = 10; x < 190; ++x) darkest = std::min(darkest, gray(image, x, top + y));
         }
         EXPECT_LT(darkest, 160) << "the text below the bar is gone";
         EXPECT_GT(darkest, 20) << "the text below the bar is not blurred";
       }},
      {"a gradient to a transparent stop fades without a dark fringe",
       200,
       20,
       {layer("fade", 0, 0, 200, 20,
              R"("fills":[{"fillType":"gradient","gradient":{"type":"linear","from":{"x":0,"y":0.5},)"
              R"("to":{"x":1,"y":0.5},"colorStops":[{"position":0,"color":)" +
                  color(1, 0, 0) + R"(},{"position":1,"color":)" + color(0, 0, 0, 0) + "}]}}]")},
       // Half-way, half the red over white: no black mixed in.
       {{100, 10, {255, 128, 128}, 12}, {2, 10, kRed, 12}, {197, 10, kWhite, 12}}},
      {"an inside border thicker than twice the radius keeps the corners round",
       100,
       60,
       {layer("ring", 20, 10, 60, 40, R"("borderRadius":6,"borders":[{"position":"inside",)"
                                      R"("thickness":12,"fillType":"color","color":)" +
                                          color(0, 1, 0) + "}]")},
       {{20, 10, kWhite, 30}, {79, 49, kWhite, 30}, {20, 49, kWhite, 30}, {23, 30, kGreen},
        {50, 14, kGreen}, {50, 30, kWhite}}},
      {"a link outlined where it is",
       100,
       60,
       {},
       {{10, 25, {255, 149, 0}, 40}, {30, 50, kWhite}},
       nullptr,
       {.links = true},
       R"("links":[{"rect":{"x":10,"y":10,"width":50,"height":30},)"
       R"("destination":{"type":"previous"}}])"},
  };
}

TEST(RenderInBrowser, EachCaseLooksAsDrawn) {
  auto browser = chromium();
  if (!browser) GTEST_SKIP() << "chromium is not installed: nothing looked at";
  ScratchDir dir;
  Sheet sheet;
  const auto all = cases();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Case& c = all[i];
    auto snapshot =
        JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(c.width, c.height, c.layers, c.extra));
    std::string name = "case" + std::to_string(i) + ".svg";
    dir.write(name, handoff::renderSvg(*snapshot, c.options));
    sheet.entries.push_back({name, c.width, c.height});
  }
  Image image = sheet.shoot(*browser, dir);
  for (std::size_t i = 0; i < all.size(); ++i) {
    SCOPED_TRACE(all[i].name);
    int top = sheet.entries[i].top;
    for (const Probe& p : all[i].probes) {
      Pixel seen = image.at(p.x, top + p.y);
      EXPECT_TRUE(near(seen, p.expected, p.tolerance))
          << "at (" << p.x << ", " << p.y << "): saw " << describe(seen) << ", expected "
          << describe(p.expected);
    }
    if (all[i].check) all[i].check(image, top);
  }
}

// Viewers that draw no HTML take the SVG text beside it: the same words, in the frame.
TEST(RenderInBrowser, TextSurvivesWithoutHtml) {
  auto browser = chromium();
  if (!browser) GTEST_SKIP() << "chromium is not installed: nothing looked at";
  auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(
      200, 80,
      layer("t", 10, 10, 180, 60,
            R"("type":"text","content":"HHHH HHHH HHHH HHHH","textStyles":[{"range":)"
            R"({"location":0,"length":19},"style":{"fontFace":"DejaVuSans-Bold",)"
            R"("fontSize":20,"lineHeight":24}}])")));
  std::string svg = handoff::renderSvg(*snapshot);
  // What a viewer without HTML sees: the drawing without its foreignObject.
  std::size_t start = svg.find("<foreignObject");
  ASSERT_NE(start, std::string::npos);
  std::size_t end = svg.find("</foreignObject>", start);
  svg.erase(start, end + std::string_view("</foreignObject>").size() - start);
  ScratchDir dir;
  dir.write("plain.svg", svg);
  Sheet sheet;
  sheet.entries.push_back({"plain.svg", 200, 80});
  Image image = sheet.shoot(*browser, dir);
  int inside = 0, outside = 0, secondLine = 0;
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 200; ++x) {
      if (gray(image, x, y) > 100) continue;
      bool in = x >= 10 && x < 190 && y >= 10 && y < 70;
      (in ? inside : outside)++;
      if (in && y >= 34) ++secondLine;
    }
  }
  EXPECT_GT(inside, 300) << "no text drawn without HTML";
  EXPECT_EQ(outside, 0) << "text drawn outside the frame";
  EXPECT_GT(secondLine, 100) << "the text does not wrap at the frame's width";
}

// Whatever the document holds, the SVG parses: escaped text, no characters XML forbids.
TEST(RenderInBrowser, HostileTextStillParses) {
  auto browser = chromium();
  if (!browser) GTEST_SKIP() << "chromium is not installed: nothing parsed";
  const std::string hostile = "a<b>&\"c\" \x01 \xff\xfe end";
  auto style = RangedTextStyle::make({.range = Range{0, 40},
                                      .textStyle = TextStyle::make({.fontName = "Evil\"-<Bold>",
                                                                    .fontSize = 12,
                                                                    .lineHeight = std::nullopt,
                                                                    .letterSpacing = std::nullopt,
                                                                    .color = nullptr,
                                                                    .alignment = std::nullopt})});
  auto text = layer(hostile.c_str(), Layer::Kind::text(hostile, {style}), Rect(0, 0, 100, 20));
  text->setIsExportable(true);
  auto snapshot = makeSnapshot(std::vector<Ref<Layer>>{text});
  snapshot->setSize(Size{100, 20});
  ScratchDir dir;
  dir.write("hostile.svg", handoff::renderSvg(*snapshot, {.assets = true}));
  std::string dom = dumpDom(*browser, dir.file("hostile.svg"));
  EXPECT_EQ(dom.find("parsererror"), std::string::npos) << dom;
  const std::string escaped =
      "a&lt;b&gt;&amp;&quot;c&quot; \xEF\xBF\xBD \xEF\xBF\xBD\xEF\xBF\xBD end";
  EXPECT_NE(dom.find("data-layer=\"" + escaped + "\""), std::string::npos) << dom;
}

}  // namespace
}  // namespace orvane::test
