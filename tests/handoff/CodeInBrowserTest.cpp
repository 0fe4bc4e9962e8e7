// The CSS of each layer, laid on divs in an artboard-sized container, against renderSvg's
// drawing of the same snapshot: a person sees the same thing at the same points.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Render.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "Browser.hpp"
#include "Documents.hpp"

namespace orvane::test {
namespace {

struct Case {
  std::string name;
  int width, height;
  std::vector<std::string> layers;
};

std::vector<Case> cases() {
  const std::string red = solid(1, 0, 0);
  return {
      {"fills, fill opacity and color alpha",
       200,
       60,
       {layer("under", 10, 10, 120, 40, solid(0, 0, 1)),
        layer("over", 60, 20, 120, 30,
              R"("fills":[{"fillType":"color","color":)" + color(1, 0, 0) +
                  R"(},{"fillType":"color","opacity":0.5,"color":)" + color(0, 1, 0) + "}]"),
        layer("alpha", 150, 5, 40, 20, solid(0, 0, 0, 0.4))}},
      {"a child at its group's offset, layer opacity and rotation",
       200,
       80,
       {layer("g", 50, 10, 100, 60,
              R"("type":"group","interactionLevel":"bottom","layers":[)" +
                  layer("child", 20, 10, 40, 20, solid(0, 0.5, 0)) + "]," + solid(0.9, 0.9, 0.2)),
        layer("faded", 10, 10, 30, 30, red + R"(,"opacity":0.5)"),
        layer("turned", 160, 20, 30, 40, red + R"(,"rotation":30)")}},
      {"linear, radial and angular gradients",
       340,
       100,
       {layer("linear", 0, 0, 100, 100,
              gradient("linear", R"({"x":0,"y":0})", R"({"x":1,"y":0.6})")),
        layer("radial", 120, 0, 100, 100,
              gradient("radial", R"({"x":0.3,"y":0.4})", R"({"x":0.9,"y":0.4})")),
        layer("angular", 240, 0, 100, 100, gradient("angular", kMiddle, R"({"x":1,"y":0.5})"))}},
      {"borders, rounded corners and shadows",
       300,
       110,
       {layer("in", 20, 20, 60, 40, red + "," + border("inside") + R"(,"borderRadius":10)"),
        layer("out", 120, 20, 60, 40, red + "," + border("outside") + R"(,"borderRadius":10)"),
        layer("drop", 210, 20, 50, 40,
              red +
                  R"(,"borderRadius":8,"shadows":[{"type":"outer","offsetX":6,"offsetY":10,)"
                  R"("blurRadius":8,"spread":2,"color":)" +
                  color(0, 0, 0, 0.6) + "}]"),
        layer("sunk", 20, 70, 120, 30, red + "," + shadow("inner", 0, 8))}},
      {"text",
       240,
       70,
       {layer("words", 10, 10, 220, 50,
              R"("type":"text","content":"Hello, layered world","textStyles":[{"range":)"
              R"({"location":0,"length":20},"style":{"fontFace":"DejaVuSans-Bold",)"
              R"("fontSize":18,"lineHeight":24,"letterSpacing":0.5,"color":)" +
                  color(0.1, 0.2, 0.6) + R"(,"textAlign":"center"}}])")}},
  };
}

std::string cssPage(const Snapshot& snapshot, int width, int height) {
  std::string css =
      "html,body{margin:0}.artboard{position:relative;overflow:hidden;background:"
      "#fff;width:" +
      std::to_string(width) + "px;height:" + std::to_string(height) + "px}\n";
  std::string divs;
  for (const auto& layer : *snapshot.flattenedLayers()) {
    css += handoff::layerCss(*layer);
    std::string name = handoff::slug(layer->name(), "layer", "l-");
    divs += "<div class=\"" + name + "\">";
    if (layer->kind() && layer->kind()->asText()) divs += layer->kind()->asText()->content;
    divs += "</div>";
  }
  return "<!DOCTYPE html><html><head><meta charset=\"utf-8\"><style>" + css +
         "</style></head><body><div class=\"artboard\">" + divs + "</div></body></html>";
}

int distance(Pixel a, Pixel b) {
  return std::max(
      {std::abs(a.red - b.red), std::abs(a.green - b.green), std::abs(a.blue - b.blue)});
}

TEST(CodeInBrowser, CssLooksLikeTheDrawing) {
  auto browser = chromium();
  if (!browser) GTEST_SKIP() << "chromium is not installed: nothing compared";
  ScratchDir dir;
  Sheet sheet;
  const auto all = cases();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Case& c = all[i];
    auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(c.width, c.height, c.layers));
    std::string name = "case" + std::to_string(i);
    dir.write(name + ".svg", handoff::renderSvg(*snapshot));
    dir.write(name + ".html", cssPage(*snapshot, c.width, c.height));
    sheet.entries.push_back({name + ".svg", c.width, c.height});
    sheet.entries.push_back({name + ".html", c.width, c.height});
  }
  Image image = sheet.shoot(*browser, dir);
  for (std::size_t i = 0; i < all.size(); ++i) {
    SCOPED_TRACE(all[i].name);
    int svgTop = sheet.entries[2 * i].top, cssTop = sheet.entries[2 * i + 1].top;
    int points = 0, differing = 0, inked = 0;
    std::string examples;
    for (int y = 0; y < all[i].height; ++y) {
      for (int x = 0; x < all[i].width; ++x) {
        Pixel drawn = image.at(x, svgTop + y), styled = image.at(x, cssTop + y);
        ++points;
        if (distance(drawn, Pixel{255, 255, 255}) > 16) ++inked;
        if (distance(drawn, styled) <= 40) continue;
        if (++differing <= 5) {
          examples += " (" + std::to_string(x) + ", " + std::to_string(y) + ")";
        }
      }
    }
    EXPECT_GT(inked, points / 20) << "the drawing shows next to nothing";
    // Edges may round differently; nothing more.
    EXPECT_LE(differing, points / 100)
        << differing << " of " << points << " pixels differ, for instance at" << examples;
  }
}

}  // namespace
}  // namespace orvane::test
