// The CSS of each layer, laid on divs in an artboard-sized container, against renderSvg's
// drawing of the same snapshot: a person sees the same thing at the same points.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Find.hpp>
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
      {"a group drawn above its children keeps its opacity and rotation to itself",
       240,
       120,
       {layer("card", 40, 20, 160, 80,
              std::string(R"("type":"group","interactionLevel":"top","opacity":0.5,"rotation":8,)") +
                  R"("borderRadius":12,"borders":[{"position":"inside","thickness":6,"fillType":"color","color":)" +
                  color(0, 0, 1) + R"(}],"layers":[)" + layer("inner", 20, 20, 60, 40, solid(1, 0, 0)) +
                  "]")}},
      {"an inside border thicker than twice the radius, a fade to transparent",
       260,
       60,
       {layer("ring", 10, 10, 60, 40,
              R"("borderRadius":6,"borders":[{"position":"inside","thickness":12,)"
              R"("fillType":"color","color":)" + color(0, 1, 0) + "}]"),
        layer("fade", 90, 10, 160, 40,
              R"("fills":[{"fillType":"gradient","gradient":{"type":"linear","from":{"x":0,"y":0.5},)"
              R"("to":{"x":1,"y":0.5},"colorStops":[{"position":0,"color":)" +
                  color(1, 0, 0) + R"(},{"position":1,"color":)" + color(0, 0, 0, 0) + "}]}}]")}},
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

// A page of one div per drawn layer, each styled by its own rule.
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

// How many pixels of a width x height area differ between two places of the screenshot, with
// the first few named.
struct Difference {
  int points = 0, differing = 0, inked = 0;
  std::string examples;
};

Difference compare(const Image& image, int width, int height, int topA, int topB) {
  Difference d;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      Pixel a = image.at(x, topA + y), b = image.at(x, topB + y);
      ++d.points;
      if (distance(a, Pixel{255, 255, 255}) > 16) ++d.inked;
      if (distance(a, b) <= 40) continue;
      if (++d.differing <= 5) d.examples += " (" + std::to_string(x) + ", " + std::to_string(y) + ")";
    }
  }
  return d;
}

// Edges may round differently; nothing more.
void expectAlike(const Difference& d, const std::string& what, bool inked = true) {
  if (inked) {
    EXPECT_GT(d.inked, d.points / 20) << what << ": the drawing shows next to nothing";
  }
  EXPECT_LE(d.differing, d.points / 100) << what << ": " << d.differing << " of " << d.points
                                         << " pixels differ, for instance at" << d.examples;
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
    dir.write(name + "-whole.html", handoff::snapshotHtml(*snapshot));
    sheet.entries.push_back({name + ".svg", c.width, c.height});
    sheet.entries.push_back({name + ".html", c.width, c.height});
    sheet.entries.push_back({name + "-whole.html", c.width, c.height});
  }
  Image image = sheet.shoot(*browser, dir);
  for (std::size_t i = 0; i < all.size(); ++i) {
    SCOPED_TRACE(all[i].name);
    int svgTop = sheet.entries[3 * i].top;
    expectAlike(compare(image, all[i].width, all[i].height, svgTop, sheet.entries[3 * i + 1].top),
                "each layer's rule");
    expectAlike(compare(image, all[i].width, all[i].height, svgTop, sheet.entries[3 * i + 2].top),
                "the whole snapshot's page");
  }
}

// The example documents, each screen and component of the project with its style guide: the
// page `code css` writes for the whole snapshot looks like the drawing.
TEST(CodeInBrowser, ExamplePagesLookLikeTheirDrawings) {
  auto browser = chromium();
  if (!browser) GTEST_SKIP() << "chromium is not installed: nothing compared";
  struct Page {
    std::string name;
    Ref<Snapshot> snapshot;
  };
  std::vector<Page> pages;
  JsonDecoder decoder;
  auto read = [](const std::string& file) {
    std::ifstream in(std::string(ORVANE_SOURCE_DIR) + "/examples/" + file);
    return std::string(std::istreambuf_iterator<char>(in), {});
  };
  for (const char* file : {"trail-list.json", "snapshot.json"}) {
    pages.push_back({file, decoder.decode<Ref<Snapshot>>(read(file))});
  }
  auto project = decoder.decode<Ref<Project>>(read("project.json"));
  handoff::StyleGuide guide(*project);
  for (const auto& [id, screen] : *project->screensByIdentifier()) {
    pages.push_back({std::string(id.rawValue()), screen->latestVersion()->snapshot()});
  }
  pages.push_back({"cmp-button",
                   handoff::findComponent(*project, Identifier("cmp-button"))->latestVersion()->snapshot()});
  ScratchDir dir;
  Sheet sheet;
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const Snapshot& s = *pages[i].snapshot;
    int w = static_cast<int>(s.size().width), h = static_cast<int>(s.size().height);
    std::string name = "page" + std::to_string(i);
    dir.write(name + ".svg", handoff::renderSvg(s));
    dir.write(name + ".html", handoff::snapshotHtml(s, {.density = Density::_1x, .styleGuide = &guide}));
    sheet.entries.push_back({name + ".svg", w, h});
    sheet.entries.push_back({name + ".html", w, h});
  }
  Image image = sheet.shoot(*browser, dir);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    SCOPED_TRACE(pages[i].name);
    const Snapshot& s = *pages[i].snapshot;
    Difference d = compare(image, static_cast<int>(s.size().width), static_cast<int>(s.size().height),
                           sheet.entries[2 * i].top, sheet.entries[2 * i + 1].top);
    expectAlike(d, pages[i].name, false);
    std::cout << pages[i].name << ": " << d.differing << " of " << d.points << " pixels differ\n";
  }
}

}  // namespace
}  // namespace orvane::test
