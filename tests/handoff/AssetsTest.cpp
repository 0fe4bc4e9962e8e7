// What a developer exports from a snapshot: the files each platform wants of its assets and
// exportable layers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <simdjson.h>

#include <orvane/handoff/Assets.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "Documents.hpp"

namespace orvane::handoff {
namespace {

using test::layer;
using test::snapshotJson;

// Each file as "PATH DENSITY URL", what a platform's list says.
std::vector<std::string> files(const std::vector<ExportFile>& list) {
  std::vector<std::string> out;
  for (const auto& f : list) {
    out.push_back(f.path + " " + (f.density.empty() ? "-" : f.density) + " " +
                  (f.url ? std::string(f.url->text()) : "-"));
  }
  return out;
}

Ref<Snapshot> decode(const std::string& layers, const std::string& assets) {
  return JsonDecoder().decode<Ref<Snapshot>>(
      snapshotJson(100, 100, layers, R"("assets":[)" + assets + "]"));
}

std::string content(const std::string& density, const std::string& format) {
  std::string url = "https://x.example/" + density + "." + format;
  return R"({"url":")" + url + "\"" + (density.empty() ? "" : R"(,"density":")" + density + "\"") +
         R"(,"format":")" + format + "\"}";
}

TEST(Assets, AnAssetsFilesFollowItsContents) {
  auto snapshot = decode(
      layer("start", 0, 0, 10, 10, R"("exportable":true)"),
      R"({"_id":"a","displayName":"Start button","layerName":"start","layerId":"start",)"
      R"("contents":[)" +
          content("1x", "png") + "," + content("xhdpi", "png") + "," + content("3x", "jpg") + "," +
          content("hdpi", "png") + "," + content("xxxhdpi", "png") + "," + content("", "svg") +
          "," + content("", "pdf") + "," + content("2x", "png") + R"(,{"density":"1x"}]})");
  std::vector<Export> exports = exportsOf(*snapshot);
  ASSERT_EQ(exports.size(), 1u);  // the exported layer is the asset's, not listed again
  const Export& e = exports[0];
  EXPECT_EQ(e.name, "start-button");
  EXPECT_EQ(e.layer, snapshot->layers()->front());
  const std::string u = "https://x.example/";
  EXPECT_EQ(files(e.ios), (std::vector<std::string>{
                              "start-button.png 1x " + u + "1x.png",
                              "start-button@2x.png 2x " + u + "xhdpi.png",
                              "start-button@3x.jpg 3x " + u + "3x.jpg",
                              "start-button.svg - " + u + ".svg",
                              "start-button.pdf - " + u + ".pdf",
                          }));
  EXPECT_EQ(files(e.android), (std::vector<std::string>{
                                  "drawable-mdpi/start_button.png mdpi " + u + "1x.png",
                                  "drawable-xhdpi/start_button.png xhdpi " + u + "xhdpi.png",
                                  "drawable-xxhdpi/start_button.jpg xxhdpi " + u + "3x.jpg",
                                  "drawable-hdpi/start_button.png hdpi " + u + "hdpi.png",
                                  "drawable-xxxhdpi/start_button.png xxxhdpi " + u + "xxxhdpi.png",
                                  "drawable/start_button.xml - " + u + ".svg",
                              }));
  EXPECT_EQ(files(e.web), (std::vector<std::string>{
                              "start-button.png 1x " + u + "1x.png",
                              "start-button@2x.png 2x " + u + "xhdpi.png",
                              "start-button@3x.jpg 3x " + u + "3x.jpg",
                              "start-button@1.5x.png 1.5x " + u + "hdpi.png",
                              "start-button@4x.png 4x " + u + "xxxhdpi.png",
                              "start-button.svg - " + u + ".svg",
                          }));
}

TEST(Assets, ExportableLayersArePngsAtEveryScale) {
  auto snapshot = decode(layer("icon", 0, 0, 1, 1, R"("name":"Icon","exportable":true)") + "," +
                             layer("plain", 0, 0, 1, 1),
                         "");
  std::vector<Export> exports = exportsOf(*snapshot);
  ASSERT_EQ(exports.size(), 1u);
  EXPECT_FALSE(exports[0].asset);
  EXPECT_EQ(files(exports[0].ios),
            (std::vector<std::string>{"icon.png 1x -", "icon@2x.png 2x -", "icon@3x.png 3x -"}));
  EXPECT_EQ(files(exports[0].web), files(exports[0].ios));
  EXPECT_EQ(files(exports[0].android), (std::vector<std::string>{
                                           "drawable-mdpi/icon.png mdpi -",
                                           "drawable-hdpi/icon.png hdpi -",
                                           "drawable-xhdpi/icon.png xhdpi -",
                                           "drawable-xxhdpi/icon.png xxhdpi -",
                                           "drawable-xxxhdpi/icon.png xxxhdpi -",
                                       }));
}

// Names unique in one list, and Android's valid as resource names.
TEST(Assets, NamesAreUniqueAndAndroidResourceNames) {
  auto exportable = [](const std::string& id, const std::string& name) {
    return layer(id, 0, 0, 1, 1, R"("name":")" + name + R"(","exportable":true)");
  };
  auto snapshot = decode(exportable("a", "Icon") + "," + exportable("b", "icon") + "," +
                             exportable("c", "3D Icon") + "," + exportable("d", "New") + "," +
                             exportable("e", "!!") + "," + exportable("f", "Icon 2") + "," +
                             exportable("g", "Cart") + "," + exportable("h", "Cart"),
                         R"({"_id":"x","displayName":"Cart","layerName":"Cart","contents":[]})");
  std::vector<std::string> names, android;
  for (const auto& e : exportsOf(*snapshot)) {
    names.push_back(e.name);
    android.push_back(e.android.empty() ? "" : e.android[0].path);
  }
  // The asset named no layer identifier: the layers of its layer name are its own.
  EXPECT_EQ(names, (std::vector<std::string>{"cart", "icon", "icon-2", "l-3d-icon", "new", "layer",
                                             "icon-2-2"}));
  EXPECT_EQ(android,
            (std::vector<std::string>{"", "drawable-mdpi/icon.png", "drawable-mdpi/icon_2.png",
                                      "drawable-mdpi/l_3d_icon.png", "drawable-mdpi/new_.png",
                                      "drawable-mdpi/layer.png", "drawable-mdpi/icon_2_2.png"}));
}

TEST(Assets, TheTreeAndItsJsonListEveryFile) {
  auto snapshot = decode(layer("icon", 0, 0, 1, 1, R"("exportable":true)"),
                         R"({"_id":"a","displayName":"Logo","layerName":"gone","isBitmap":true,)"
                         R"("contents":[)" +
                             content("2x", "png") + "]}");
  InspectNode tree = inspectAssets(*snapshot);
  simdjson::dom::parser parser;
  simdjson::dom::element json = parser.parse(inspectJson(tree));
  EXPECT_EQ(std::string_view(json.at_pointer("/assets/0/displayName")), "Logo");
  EXPECT_TRUE(bool(json.at_pointer("/assets/0/isBitmap")));
  EXPECT_EQ(std::string_view(json.at_pointer("/assets/0/contents/0/density")), "2x");
  EXPECT_EQ(std::string_view(json.at_pointer("/assets/0/android/0/file")),
            "drawable-xhdpi/logo.png");
  EXPECT_EQ(std::string_view(json.at_pointer("/assets/0/web/0/url")), "https://x.example/2x.png");
  EXPECT_EQ(std::string_view(json.at_pointer("/layers/0/ios/2/file")), "icon@3x.png");
  std::string text = inspectText(tree);
  EXPECT_NE(text.find("asset Logo from gone, bitmap"), std::string::npos) << text;
  EXPECT_NE(text.find("logo@2x.png from https://x.example/2x.png"), std::string::npos) << text;
}

}  // namespace
}  // namespace orvane::handoff
