// What renderSvg writes, read as text: which layers, in which order, and what is left out.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include <orvane/handoff/Render.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "support/Text.hpp"

namespace orvane::handoff {
namespace {

Ref<Snapshot> decode(const std::string& json) {
  return JsonDecoder().decode<Ref<Snapshot>>(json);
}

std::string shape(const std::string& id, const std::string& rest = "") {
  return R"({"_id":")" + id + R"(","name":")" + id + R"(","sourceId":")" + id +
         R"(","type":"shape","rect":{"x":1,"y":2,"width":30,"height":20},"opacity":1)" +
         (rest.empty() ? "" : "," + rest) + "}";
}

std::string group(const std::string& id, const std::string& level, const std::string& children) {
  return R"({"_id":")" + id + R"(","name":")" + id + R"(","sourceId":")" + id +
         R"(","type":"group","layers":[)" + children + "]" +
         (level.empty() ? "" : R"(,"interactionLevel":")" + level + "\"") +
         R"(,"rect":{"x":10,"y":10,"width":50,"height":50},"opacity":1})";
}


TEST(RenderSvg, DrawsTheFlattenedLayersInOrderAndNothingElse) {
  auto snapshot = decode(R"({"_id":"s","width":375.5,"height":812,"layers":[)" +
                         group("top", "top", shape("a") + "," + shape("b")) + "," +
                         group("bottom", "bottom", shape("c")) + "," +
                         group("none", "", shape("d")) + "," + shape("e") + "]}");
  std::string svg = renderSvg(*snapshot);
  EXPECT_EQ(test::valuesAfter(svg, "data-layer=\"", "\""),
            (std::vector<std::string>{"a", "b", "top", "bottom", "c", "d", "e"}));
  EXPECT_NE(svg.find(R"(width="375.5" height="812" viewBox="0 0 375.5 812")"), std::string::npos);
  EXPECT_EQ(svg.find("id=\"bg\""), std::string::npos) << "no background color, no background";
  for (const char* overlay : {"data-link", "data-grid", "data-assets"}) {
    EXPECT_EQ(svg.find(overlay), std::string::npos) << overlay << " drawn unasked";
  }
}

TEST(RenderSvg, FetchesNothingTheDocumentNames) {
  auto snapshot =
      decode(R"({"_id":"s","width":10,"height":10,"url":"https://cdn.example.com/s.png",)"
             R"("assets":[{"_id":"a","displayName":"x","layerName":"a","contents":[)"
             R"({"url":"https://cdn.example.com/a.png","format":"png"}]}],"layers":[)" +
             shape("a") + "]}");
  std::string svg = renderSvg(*snapshot, {.links = true, .grid = true, .assets = true});
  EXPECT_EQ(svg.find("example.com"), std::string::npos);
  EXPECT_EQ(svg.find("href="), std::string::npos) << svg;
  EXPECT_EQ(svg.find("src="), std::string::npos) << svg;
}

TEST(RenderSvg, OutlinesExportableLayersAndTheLayersAssetsName) {
  auto snapshot =
      decode(R"({"_id":"s","width":100,"height":100,"assets":[)"
             R"({"_id":"1","displayName":"x","layerName":"other","layerId":"byId","contents":[]},)"
             R"({"_id":"2","displayName":"y","layerName":"byName","contents":[]}],"layers":[)" +
             shape("byId") + "," + shape("byName") + "," + shape("plain") + "," +
             shape("exported", R"("exportable":true)") + "," +
             group("hidden", "", shape("inside")) + "]}");
  std::string svg = renderSvg(*snapshot, {.assets = true});
  EXPECT_EQ(test::valuesAfter(svg, "data-asset-layer=\"", "\""),
            (std::vector<std::string>{"byId", "byName", "exported"}));
}

TEST(RenderSvg, SaysWhereABlendModeIsApproximated) {
  auto snapshot = decode(R"({"_id":"s","width":10,"height":10,"layers":[)" +
                         shape("exact", R"("blendMode":"multiply")") + "," +
                         shape("near", R"("blendMode":"linear-burn")") + "," +
                         shape("none", R"("blendMode":"source-in")") + "]}");
  std::string svg = renderSvg(*snapshot);
  EXPECT_NE(svg.find("<!-- blend mode linear-burn drawn as multiply -->"), std::string::npos);
  EXPECT_NE(svg.find("<!-- blend mode source-in drawn as normal -->"), std::string::npos);
  EXPECT_EQ(svg.find("blend mode multiply"), std::string::npos);
  EXPECT_EQ(test::valuesAfter(svg, "mix-blend-mode:", ";\""),
            (std::vector<std::string>{"multiply", "multiply"}));
}

TEST(RenderSvg, NumbersAreShortAndFinite) {
  auto snapshot = decode(R"({"_id":"s","width":1,"height":1,"layers":[)" + shape("n") + "]}");
  Ref<Layer> layer = snapshot->layers()->front();
  layer->setFrame(Rect(0.1 + 0.2, NAN, 1e300 * 1e10, -4));
  layer->setRotation(1.0 / 3);
  layer->setOpacity(NAN);
  snapshot->setLayers(snapshot->layers());  // flattened anew, with the frame above
  snapshot->setSize(Size{NAN, -1});
  std::string svg = renderSvg(*snapshot);
  EXPECT_NE(svg.find(R"(width="0" height="0")"), std::string::npos) << svg;
  EXPECT_NE(svg.find("rotate(-0.3333 "), std::string::npos) << svg;
  for (const char* bad : {"nan", "inf", "e+", "0.30000"}) {
    EXPECT_EQ(svg.find(bad), std::string::npos) << bad << " in " << svg;
  }
}

}  // namespace
}  // namespace orvane::handoff
