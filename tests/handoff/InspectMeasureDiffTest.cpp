// The tool for people, in the library: project and snapshot trees, measurements between
// frames, and what changed between two snapshots.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <cmath>

#include <simdjson.h>

#include <orvane/handoff/Diff.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Inspect.hpp>
#include <orvane/handoff/Measure.hpp>
#include <orvane/json/JsonDecoder.hpp>

#include "Documents.hpp"

namespace orvane::handoff {
namespace {

using test::layer;
using test::snapshotJson;

std::string version(const std::string& id) {
  return R"({"_id":")" + id +
         R"(","created":"2024-02-01T00:00:00Z","creator":{"_id":"u","email":)"
         R"("a@example.com","username":"ana"},"snapshot":{"_id":"s)" +
         id + R"(","width":10,"height":10}})";
}

std::string screen(const std::string& id, const std::string& extra = "") {
  return R"({"_id":")" + id + R"(","name":"Screen )" + id + R"(","latestVersion":)" +
         version(id + "-2") + R"(,"versions":[)" + version(id + "-1") + "," + version(id + "-2") +
         "]" + extra + "}";
}

Ref<Project> project() {
  std::string screens;
  for (int i = 0; i < 20; ++i) screens += "," + screen("X" + std::to_string(i));
  return JsonDecoder().decode<Ref<Project>>(
      R"({"_id":"P","name":"Shop","icon":{"type":"car"},"created":"2024-01-01T00:00:00Z",)"
      R"("users":[{"user":{"_id":"u","email":"a@example.com"},"role":"owner"}],)"
      R"("sections":[{"_id":"sec","name":"Main","screens":["S2","S1","gone"]}],"screens":[)" +
      screen("S1", R"(,"dots":[{"_id":"d","name":"Logo","x":1,"y":2,"color":)" +
                       test::color(1, 0, 0) +
                       R"(,"comments":[{"_id":"c","note":"n",)"
                       R"("created":"2024-01-01T00:00:00Z","updated":"2024-01-01T00:00:00Z"}]}])") +
      "," + screen("S2") + screens +
      R"(],"componentSections":[{"_id":"cs","name":"Controls","componentSections":[{"_id":"in",)"
      R"("name":"Buttons","components":[{"_id":"C","name":"Button","latestVersion":)" +
      version("C-1") + "}]}]}]}");
}

TEST(Inspect, AProjectTreeNamesEverythingWithItsPaths) {
  simdjson::dom::parser parser;
  simdjson::dom::element tree = parser.parse(inspectJson(inspectProject(*project())));
  auto section = tree["sections"].at(0);
  EXPECT_EQ(std::string_view(section["name"]), "Main");
  auto named = section["screens"];
  // In the section's order; an identifier the project lacks is still shown.
  EXPECT_EQ(std::string_view(named.at(0)["identifier"]), "S2");
  EXPECT_EQ(std::string_view(named.at(1)["identifier"]), "S1");
  EXPECT_EQ(std::string_view(named.at(2)["identifier"]), "gone");
  auto s1 = named.at(1);
  EXPECT_EQ(std::string_view(s1["versionsPath"]), "v2/projects/P/screens/S1/versions");
  // The latest and the listed versions, once each.
  EXPECT_EQ(simdjson::dom::array(s1["versions"]).size(), 2u);
  EXPECT_EQ(std::string_view(s1["versions"].at(0)["identifier"]), "S1-2");
  EXPECT_EQ(std::string_view(s1["versions"].at(1)["creator"]), "ana");
  EXPECT_EQ(int64_t(s1["dots"].at(0)["commentCount"]), 1);
  // The other screens, by identifier, none shortened in JSON.
  EXPECT_EQ(simdjson::dom::array(tree["screens"]).size(), 20u);
  EXPECT_EQ(std::string_view(tree["screens"].at(0)["identifier"]), "X0");
  auto component = tree["componentSections"].at(0)["componentSections"].at(0)["components"].at(0);
  EXPECT_EQ(std::string_view(component["versionsPath"]),
            "projects/P/componentSections/cs/in/components/C/versions");
  EXPECT_EQ(std::string_view(tree["members"].at(0)["role"]), "owner");

  std::string text = inspectText(inspectProject(*project()), 5);
  EXPECT_NE(text.find("├─ screens (20)\n│  ├─ screen Screen X0 (X0), 2 versions"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("│  └─ … and 15 more\n"), std::string::npos) << text;
}

// A project whose style guide has a color and a text style, with one screen whose snapshot
// holds `layers`.
Ref<Project> guidedProject(const std::string& layers, const std::string& extra = "") {
  return JsonDecoder().decode<Ref<Project>>(
      R"({"_id":"P","name":"Shop","icon":{"type":"car"},"created":"2024-01-01T00:00:00Z",)"
      R"("users":[],"colors":[{"_id":"c","name":"Brand/500","r":0.2,"g":0.4,"b":1,"a":1}],)"
      R"("textStyles":[{"_id":"t","name":"Body","fontFace":"Inter-SemiBold","fontSize":16,)"
      R"("lineHeight":24}],"screens":[{"_id":"S","name":"Home","latestVersion":{"_id":"V",)"
      R"("created":"2024-02-01T00:00:00Z","snapshot":)" +
      snapshotJson(200, 100, layers, extra) + "}}]}");
}

const Ref<Snapshot>& onlySnapshot(const Project& project) {
  return project.screensByIdentifier()->begin()->second->latestVersion()->snapshot();
}

TEST(Inspect, ASnapshotTreeShowsLayersLinksAndAssets) {
  auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(
      100, 100,
      layer("Card", 10, 20, 50, 50,
            R"("type":"group","layers":[)" + layer("Dot", 5, 5, 4, 4, test::solid(1, 0, 0)) + "]"),
      R"("links":[{"rect":{"x":0,"y":0,"width":5,"height":5},"destination":{"type":"screen",)"
      R"("name":"Screen S1"}}],"assets":[{"_id":"a","displayName":"dot","layerName":"Dot",)"
      R"("contents":[{"density":"2x","format":"png","url":"https://x.example/dot.png"}]}])"));
  auto p = project();
  simdjson::dom::parser parser;
  simdjson::dom::element tree = parser.parse(inspectJson(inspectSnapshot(*snapshot, p.get())));
  auto dot = tree["layers"].at(0)["layers"].at(0);
  EXPECT_EQ(std::string_view(dot["kind"]), "shape");
  EXPECT_EQ(double(dot["absoluteFrame"]["x"]), 15);
  EXPECT_EQ(double(dot["absoluteFrame"]["y"]), 25);
  EXPECT_EQ(double(dot["frame"]["x"]), 5);
  EXPECT_EQ(std::string_view(dot["fills"].at(0)["color"]["hex"]), "#ff0000");
  EXPECT_EQ(std::string_view(tree["links"].at(0)["screen"]), "S1");
  EXPECT_EQ(std::string_view(tree["assets"].at(0)["contents"].at(0)["format"]), "png");
  EXPECT_EQ(std::string_view(tree["assets"].at(0)["contents"].at(0)["url"]),
            "https://x.example/dot.png");
  EXPECT_EQ(std::string_view(tree["backgroundColor"]["hex"]), "#ffffff");
}

// Every style a layer can have, in its structured form, colors and text styles that the style
// guide holds named by their tokens.
TEST(Inspect, LayerStylesAreStructuredWithTheirTokens) {
  std::string styled =
      R"("rotation":30,"borderRadius":6,"blendMode":"multiply","opacity":0.5,"fills":[)"
      R"({"fillType":"color","color":)" +
      test::color(0.2, 0.4, 1) +
      R"(,"opacity":0.25},)"
      R"({"fillType":"gradient","gradient":{"type":"radial","from":{"x":0.5,"y":0.5},)"
      R"("to":{"x":1,"y":0.5},"angle":45,"colorStops":[{"position":0,"color":)" +
      test::color(1, 0, 0) + R"(},{"position":1,"color":)" + test::color(0.2, 0.4, 1) +
      R"(}]}}],)" + test::border("inside") + "," + test::shadow("inner", 2, 4) +
      R"(,"blur":{"type":"background","radius":8})";
  std::string text =
      R"("type":"text","content":"Hello","textStyles":[{"range":{"location":0,"length":5},)"
      R"("style":{"fontFace":"Inter-SemiBold","fontSize":16,"lineHeight":24}},)"
      R"({"range":{"location":1,"length":2},"style":{"fontFace":"Inter-Italic","fontSize":12,)"
      R"("letterSpacing":0.5,"color":)" +
      test::color(0.2, 0.4, 1) + R"(,"textAlign":"right"}}])";
  auto project = guidedProject(layer("box", 10, 10, 40, 20, styled) + "," +
                               layer("label", 0, 50, 100, 24, text));
  simdjson::dom::parser parser;
  simdjson::dom::element tree =
      parser.parse(inspectJson(inspectSnapshot(*onlySnapshot(*project), project.get())));
  auto at = [&](const char* pointer) { return tree.at_pointer(pointer); };
  auto str = [&](const char* pointer) { return std::string_view(at(pointer)); };
  auto num = [&](const char* pointer) { return double(at(pointer)); };

  EXPECT_EQ(num("/layers/0/opacity"), 0.5);
  EXPECT_EQ(str("/layers/0/blendMode"), "multiply");
  EXPECT_EQ(num("/layers/0/rotation"), 30);
  EXPECT_EQ(num("/layers/0/cornerRadius"), 6);
  EXPECT_EQ(str("/layers/0/fills/0/kind"), "color");
  EXPECT_EQ(str("/layers/0/fills/0/color/hex"), "#3366ff");
  EXPECT_EQ(str("/layers/0/fills/0/color/token"), "Brand/500");
  EXPECT_EQ(num("/layers/0/fills/0/opacity"), 0.25);
  EXPECT_EQ(str("/layers/0/fills/1/gradient/kind"), "radial");
  EXPECT_EQ(num("/layers/0/fills/1/gradient/to/x"), 1);
  EXPECT_EQ(num("/layers/0/fills/1/gradient/angle"), 45);
  EXPECT_TRUE(at("/layers/0/fills/1/gradient/scale").is_null());
  EXPECT_EQ(num("/layers/0/fills/1/gradient/stops/1/position"), 1);
  EXPECT_EQ(str("/layers/0/fills/1/gradient/stops/1/color/token"), "Brand/500");
  EXPECT_TRUE(at("/layers/0/fills/1/gradient/stops/0/color/token").error());  // not the guide's
  EXPECT_EQ(str("/layers/0/borders/0/position"), "inside");
  EXPECT_EQ(num("/layers/0/borders/0/thickness"), 4);
  EXPECT_EQ(str("/layers/0/borders/0/fill/color/hex"), "#00ff00");
  EXPECT_EQ(str("/layers/0/shadows/0/kind"), "inner");
  EXPECT_EQ(num("/layers/0/shadows/0/y"), 4);
  EXPECT_EQ(str("/layers/0/blur/kind"), "background");
  EXPECT_EQ(num("/layers/0/blur/radius"), 8);
  EXPECT_TRUE(at("/layers/0/content").error());  // a shape has no text

  EXPECT_EQ(str("/layers/1/content"), "Hello");
  EXPECT_EQ(num("/layers/1/textStyles/1/range/location"), 1);
  EXPECT_EQ(num("/layers/1/textStyles/1/range/length"), 2);
  EXPECT_EQ(str("/layers/1/textStyles/0/fontFamily"), "Inter");
  EXPECT_EQ(int64_t(at("/layers/1/textStyles/0/fontWeight")), 600);
  EXPECT_EQ(str("/layers/1/textStyles/0/fontStyle"), "normal");
  EXPECT_EQ(str("/layers/1/textStyles/1/fontStyle"), "italic");
  EXPECT_EQ(str("/layers/1/textStyles/0/token"), "Body");
  EXPECT_TRUE(at("/layers/1/textStyles/1/token").error());
  EXPECT_TRUE(at("/layers/1/textStyles/0/color").is_null());
  EXPECT_EQ(str("/layers/1/textStyles/1/color/token"), "Brand/500");
  EXPECT_EQ(num("/layers/1/textStyles/1/letterSpacing"), 0.5);
  EXPECT_EQ(str("/layers/1/textStyles/1/alignment"), "right");

  // The same facts, briefly, on the layer's line.
  std::string lines = inspectText(inspectSnapshot(*onlySnapshot(*project), project.get()));
  for (const char* part :
       {"fill rgba(51, 102, 255, 0.25) (Brand/500), fill radial gradient", ", multiply",
        "border 4 inside #00ff00", "inner shadow 2,4 blur 0 #000000", "background blur 8",
        "radius 6", "opacity 0.5", "rotated 30°", "\"Hello\" Inter-SemiBold 16/24 (Body)",
        "and 1 more style"}) {
    EXPECT_NE(lines.find(part), std::string::npos) << part << " in\n" << lines;
  }
}

// At 2x every length is halved, in both forms, and nothing else is.
TEST(Inspect, LengthsAreDividedByTheDensity) {
  std::string styled = R"("borderRadius":6,"rotation":30,)" + test::border("inside") + "," +
                       R"("shadows":[{"offsetX":2,"offsetY":4,"blurRadius":6,"spread":8,"color":)" +
                       test::color(0, 0, 0) + R"(}],"blur":{"radius":10},)" +
                       test::gradient("linear", "{\"x\":0,\"y\":0}", "{\"x\":1,\"y\":1}");
  std::string text =
      R"("type":"text","content":"A","textStyles":[{"range":{"location":0,"length":1},)"
      R"("style":{"fontFace":"Inter","fontSize":16,"lineHeight":24,"letterSpacing":2}}])";
  auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(
      200, 100, layer("box", 10, 20, 40, 60, styled) + "," + layer("label", 2, 4, 6, 8, text)));
  simdjson::dom::parser one, two;
  simdjson::dom::element at1 = one.parse(inspectJson(inspectSnapshot(*snapshot, nullptr)));
  simdjson::dom::element at2 =
      two.parse(inspectJson(inspectSnapshot(*snapshot, nullptr, Density::_2x)));
  struct Row {
    const char* pointer;
    bool length;
  } rows[] = {
      {"/size/width", true},
      {"/layers/0/absoluteFrame/x", true},
      {"/layers/0/frame/height", true},
      {"/layers/0/cornerRadius", true},
      {"/layers/0/borders/0/thickness", true},
      {"/layers/0/shadows/0/x", true},
      {"/layers/0/shadows/0/y", true},
      {"/layers/0/shadows/0/blurRadius", true},
      {"/layers/0/shadows/0/spread", true},
      {"/layers/0/blur/radius", true},
      {"/layers/1/textStyles/0/fontSize", true},
      {"/layers/1/textStyles/0/lineHeight", true},
      {"/layers/1/textStyles/0/letterSpacing", true},
      {"/layers/0/rotation", false},
      {"/layers/0/opacity", false},
      {"/layers/0/fills/0/gradient/to/x", false},
  };
  for (const auto& row : rows) {
    double a = at1.at_pointer(row.pointer), b = at2.at_pointer(row.pointer);
    EXPECT_NE(a, 0) << row.pointer;
    EXPECT_EQ(b, row.length ? a / 2 : a) << row.pointer;
  }
  std::string lines = inspectText(inspectSnapshot(*snapshot, nullptr, Density::_2x));
  for (const char* part : {"snapshot s, 100 × 50", "(5, 10, 20 × 30)", "radius 3", "border 2",
                           "shadow 1,2 blur 3 spread 4", "blur 5", "Inter 8/12"}) {
    EXPECT_NE(lines.find(part), std::string::npos) << part << " in\n" << lines;
  }
}

TEST(Inspect, ValuesThatAreNoNumbersAreNull) {
  auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(
      snapshotJson(10, 10, layer("n", 0, 0, 1, 1, test::solid(0, 0, 0))));
  Ref<Layer> layer = snapshot->layers()->front();
  layer->setFrame(Rect(NAN, 1e300 * 1e10, 1, 1));
  layer->setOpacity(NAN);
  layer->setRotation(INFINITY);
  layer->setCornerRadius(-INFINITY);
  snapshot->setLayers(snapshot->layers());
  simdjson::dom::parser parser;
  simdjson::dom::element tree;
  ASSERT_EQ(parser.parse(inspectJson(inspectSnapshot(*snapshot))).get(tree), simdjson::SUCCESS);
  for (const char* pointer : {"/layers/0/opacity", "/layers/0/rotation", "/layers/0/cornerRadius",
                              "/layers/0/frame/x", "/layers/0/absoluteFrame/y"}) {
    EXPECT_TRUE(tree.at_pointer(pointer).is_null()) << pointer;
  }
}

TEST(FindLayer, NamesOneLayerOrListsEveryCandidate) {
  auto snapshot = JsonDecoder().decode<Ref<Snapshot>>(
      snapshotJson(100, 100,
                   {layer("card", 0, 0, 50, 50,
                          R"("name":"Card","type":"group","layers":[)" +
                              layer("t1", 0, 0, 10, 10, R"("name":"Title")") + "," +
                              layer("bb", 0, 0, 10, 10, R"("name":"Blue box")") + "]"),
                    layer("t2", 0, 0, 10, 10, R"("name":"Title")"), layer("Footer", 0, 0, 10, 10),
                    layer("x", 0, 0, 1, 1, R"("name":"t1")"),
                    layer("slash", 0, 0, 1, 1, R"("name":"Card/Blue box")"),
                    layer("icon", 0, 0, 1, 1, R"("name":"Icon / Cart")")}));
  struct Row {
    const char* text;
    std::vector<std::string> candidates;  // identifier and path of each
  } rows[] = {
      {"Footer", {"Footer Footer"}},             // identifier and name of one layer
      {"card", {"card Card"}},                   // identifier
      {"Card/Title", {"t1 Card/Title"}},         // path
      {"Icon / Cart", {"icon Icon / Cart"}},     // a name with slashes
      {"Title", {"t1 Card/Title", "t2 Title"}},  // two names
      {"t1", {"t1 Card/Title", "x t1"}},         // an identifier that is another's name
      {"Card/Blue box", {"bb Card/Blue box", "slash Card/Blue box"}},  // a path and a name
      {"Nope", {}},
      {"Card/Nope", {}},
      {"Card/Title/More", {}},
  };
  for (const auto& row : rows) {
    FoundLayer found = findLayer(*snapshot, row.text);
    std::vector<std::string> seen;
    for (const auto& c : found.candidates) {
      seen.push_back(std::string(c.layer->identifier().rawValue()) + " " + c.path);
    }
    EXPECT_EQ(seen, row.candidates) << row.text;
    EXPECT_EQ(found.layer != nullptr, row.candidates.size() == 1) << row.text;
    if (found.layer) {
      EXPECT_EQ(found.layer, found.candidates[0].layer);
    }
    EXPECT_EQ(found.error.empty(), row.candidates.size() == 1) << row.text;
  }
  EXPECT_EQ(findLayer(*snapshot, "Nope").error, "no layer Nope");
  EXPECT_EQ(findLayer(*snapshot, "Title").error,
            "Title names 2 layers; name one by its identifier or its path:");
}

TEST(Measure, ApartInsideOrOverlapping) {
  using R = Measurement::Relation;
  struct Row {
    Rect a, b;
    R relation;
    std::vector<double> values;  // apart: h, v; inside: top, right, bottom, left; overlap: w, h
    bool innerIsA = true;
  } rows[] = {
      {Rect(0, 0, 10, 10), Rect(30, 50, 10, 10), R::apart, {20, 40}},
      {Rect(0, 0, 10, 10), Rect(10, 0, 10, 10), R::apart, {0, 0}},  // touching
      {Rect(0, 0, 10, 10), Rect(5, 20, 10, 10), R::apart, {0, 10}},
      {Rect(40, 40, 10, -10), Rect(0, 0, 10, 10), R::apart, {30, 20}},  // standardized
      {Rect(10, 20, 5, 5), Rect(0, 0, 100, 50), R::inside, {20, 85, 25, 10}},
      {Rect(0, 0, 100, 50), Rect(10, 20, 5, 5), R::inside, {20, 85, 25, 10}, false},
      {Rect(0, 0, 10, 10), Rect(0, 0, 10, 10), R::inside, {0, 0, 0, 0}},
      {Rect(0, 0, 10, 10), Rect(6, 7, 10, 10), R::overlap, {4, 3}},
  };
  for (const auto& row : rows) {
    Measurement m = measure(row.a, row.b);
    ASSERT_EQ(m.relation, row.relation);
    std::vector<double> seen =
        m.relation == R::apart    ? std::vector<double>{m.horizontal, m.vertical}
        : m.relation == R::inside ? std::vector<double>{m.top, m.right, m.bottom, m.left}
                                  : std::vector<double>{m.width, m.height};
    EXPECT_EQ(seen, row.values);
    if (m.relation == R::inside) {
      EXPECT_EQ(m.innerIsA, row.innerIsA);
    }
  }
}

TEST(Measure, InsetsOfAFrameInAnother) {
  struct Row {
    Rect inner, outer;
    std::vector<double> insets;  // top, right, bottom, left
  } rows[] = {
      {Rect(10, 20, 5, 5), Rect(0, 0, 100, 50), {20, 85, 25, 10}},
      {Rect(-5, 0, 10, 60), Rect(0, 0, 100, 50), {0, 95, -10, -5}},        // sticking out
      {Rect(15, 25, -5, -5), Rect(100, 50, -100, -50), {20, 85, 25, 10}},  // standardized
  };
  for (const auto& row : rows) {
    Insets i = insets(row.inner, row.outer);
    EXPECT_EQ((std::vector<double>{i.top, i.right, i.bottom, i.left}), row.insets);
  }
}

// Each change kind once, on its own layer, over a group that moves.
TEST(Diff, ReportsEachKindOfChangeOnce) {
  auto doc = [](bool after) {
    auto pick = [&](const std::string& a, const std::string& b) { return after ? b : a; };
    std::string text = R"("type":"text","textStyles":[],"content":")" + pick("Hi", "Ho") + "\"";
    std::string children =
        layer("same", 1, 1, 5, 5) + "," +
        layer("name", 1, 1, 5, 5, pick("", R"("name":"renamed")")) + "," +
        layer("move", 1, after ? 2 : 1, 5, 5) + "," + layer("size", 1, 1, 5, after ? 6 : 5) + "," +
        layer("turn", 1, 1, 5, 5, pick("", R"("rotation":90)")) + "," +
        layer("paint", 1, 1, 5, 5, pick("", test::solid(1, 0, 0))) + "," +
        layer("text", 1, 1, 5, 5, text) + "," +
        layer("kind", 1, 1, 5, 5, pick("", R"("type":"group","layers":[])")) + "," +
        (after ? "" : layer("gone", 1, 1, 5, 5) + ",") + layer("hop", 1, 1, 5, 5);
    std::string group = layer("group", after ? 40 : 10, 10, 80, 80,
                              R"("type":"group","layers":[)" + children + "]");
    std::string other = layer("other", 0, 0, 5, 5,
                              R"("type":"group","layers":[)" +
                                  std::string(after ? layer("hop", 1, 1, 5, 5) + "," : "") +
                                  (after ? layer("new", 0, 0, 1, 1) : "") + "]");
    std::string json = snapshotJson(100, 100, group + "," + other);
    if (after) {
      // "hop" leaves the group for "other".
      std::size_t at = json.find(",{\"_id\":\"hop\"");
      std::size_t end = json.find('}', json.find("\"opacity\"", at)) + 1;
      json.erase(at, end - at);
    }
    return JsonDecoder().decode<Ref<Snapshot>>(json);
  };
  SnapshotDiff diff = diffSnapshots(*doc(false), *doc(true));
  std::vector<std::string> seen;
  for (const auto& c : diff.changed) {
    std::string line = std::string(c.after->sourceIdentifier().rawValue()) + ":";
    for (LayerChange k : c.changes) line += " " + std::string(changeName(k));
    seen.push_back(line);
  }
  EXPECT_EQ(seen, (std::vector<std::string>{"group: moved", "name: renamed", "move: moved",
                                            "size: resized", "turn: rotated", "paint: restyled",
                                            "text: text", "kind: kind", "hop: moved reparented"}));
  ASSERT_EQ(diff.added.size(), 1u);
  EXPECT_EQ(diff.added[0]->name(), "new");
  ASSERT_EQ(diff.removed.size(), 1u);
  EXPECT_EQ(diff.removed[0]->name(), "gone");
  EXPECT_TRUE(diffSnapshots(*doc(true), *doc(true)).empty());
}

TEST(Diff, LayersSharingASourceIdentifierPairInTreeOrder) {
  auto doc = [](const std::vector<std::string>& names) {
    std::string layers;
    for (const auto& n : names) {
      layers += (layers.empty() ? "" : ",") +
                layer(n, 0, 0, 1, 1, R"("sourceId":"shared","name":")" + n + "\"");
    }
    return JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(10, 10, layers));
  };
  SnapshotDiff diff = diffSnapshots(*doc({"a", "b", "c"}), *doc({"a", "x"}));
  ASSERT_EQ(diff.changed.size(), 1u);
  EXPECT_EQ(diff.changed[0].before->name(), "b");
  EXPECT_EQ(diff.changed[0].after->name(), "x");
  ASSERT_EQ(diff.removed.size(), 1u);
  EXPECT_EQ(diff.removed[0]->name(), "c");
}

// The snapshot's own changes, one a row; a shift below a hundredth is none.
TEST(Diff, ComparesTheSnapshotItself) {
  auto doc = [](int width, const std::string& extra) {
    return JsonDecoder().decode<Ref<Snapshot>>(
        snapshotJson(width, 100, layer("a", 0, 0, 1, 1), extra));
  };
  const std::string link = R"("links":[{"rect":{"x":1,"y":1,"width":5,"height":5}}])";
  const std::string asset =
      R"("assets":[{"_id":"a","displayName":"a","layerName":"a","contents":[{"format":"png"}]}])";
  struct Row {
    const char* what;
    Ref<Snapshot> after;
    std::vector<std::string> changes;
  } rows[] = {
      {"alike", doc(100, link + "," + asset), {}},
      {"size", doc(120, link + "," + asset), {"size"}},
      {"background",
       doc(100, link + "," + asset + R"(,"backgroundColor":)" + test::color(0, 0, 0)),
       {"background"}},
      {"density", doc(100, link + "," + asset + R"(,"density":"2x")"), {"density"}},
      {"grid", doc(100, link + "," + asset + R"(,"grid":{"horizontalOffset":4})"), {"grid"}},
      {"link moved",
       doc(100, R"("links":[{"rect":{"x":1,"y":2,"width":5,"height":5}}],)" + asset),
       {"links"}},
      {"link shifted a little",
       doc(100, R"("links":[{"rect":{"x":1.001,"y":1,"width":5.009,"height":5}}],)" + asset),
       {}},
      {"no link", doc(100, asset), {"links"}},
      {"asset's file",
       doc(100, link + "," +
                    R"("assets":[{"_id":"b","displayName":"a",)"
                    R"("layerName":"a","contents":[{"format":"svg"}]}])"),
       {"assets"}},
      {"asset's identifier",
       doc(100, link + "," +
                    R"("assets":[{"_id":"b","displayName":"a",)"
                    R"("layerName":"a","contents":[{"format":"png"}]}])"),
       {}},
  };
  auto before = doc(100, link + "," + asset);
  for (const auto& row : rows) {
    SnapshotDiff diff = diffSnapshots(*before, *row.after);
    std::vector<std::string> seen;
    for (SnapshotChange c : diff.snapshot) seen.emplace_back(changeName(c));
    EXPECT_EQ(seen, row.changes) << row.what;
    EXPECT_EQ(diff.empty(), row.changes.empty()) << row.what;
  }
  // The values before and after, as inspect writes them.
  simdjson::dom::parser parser;
  simdjson::dom::element json =
      parser.parse(diffJson(diffSnapshots(*before, *rows[1].after), *before, *rows[1].after));
  EXPECT_EQ(std::string_view(json.at_pointer("/snapshot/0/change")), "size");
  EXPECT_EQ(double(json.at_pointer("/snapshot/0/before/width")), 100);
  EXPECT_EQ(double(json.at_pointer("/snapshot/0/after/width")), 120);
}

TEST(Diff, ShiftsBelowAHundredthAreNoChange) {
  auto doc = [](const std::string& box) {
    return JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(100, 100, box));
  };
  auto before = doc(layer("a", 10, 10, 20, 20, R"("rotation":5)"));
  struct Row {
    std::string after;
    std::vector<LayerChange> changes;
  } rows[] = {
      {layer("a", 10.001, 9.995, 20.009, 20, R"("rotation":5.005)"), {}},
      {layer("a", 10.02, 10, 20, 20, R"("rotation":5)"), {LayerChange::moved}},
      {layer("a", 10, 10, 20, 19.98, R"("rotation":5)"), {LayerChange::resized}},
      {layer("a", 10, 10, 20, 20, R"("rotation":5.5)"), {LayerChange::rotated}},
      {layer("a", 10, 10, -20, 20,
             R"("rotation":5,"rect":{"x":30,"y":10,"width":-20,"height":20})"),
       {}},  // the same box, stored from its other corner
  };
  for (const auto& row : rows) {
    SnapshotDiff diff = diffSnapshots(*before, *doc(row.after));
    std::vector<LayerChange> seen;
    if (!diff.changed.empty()) seen = diff.changed[0].changes;
    EXPECT_EQ(seen, row.changes) << row.after;
  }
}

// Before and after hold the changed facts alone, as inspect writes them; the lines show the
// values a person needs, in the density's units.
TEST(Diff, WritesTheChangedFactsBeforeAndAfter) {
  auto before = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(
      100, 100, layer("a", 10, 20, 20, 20, test::solid(1, 0, 0)), R"("density":"1x")"));
  auto after = JsonDecoder().decode<Ref<Snapshot>>(snapshotJson(
      200, 100, layer("a", 10, 40, 20, 20, test::solid(0, 0, 1) + R"(,"_id":"a2","name":"b")"),
      R"("density":"2x")"));
  SnapshotDiff diff = diffSnapshots(*before, *after);
  FactOptions halved{.density = Density::_2x};
  simdjson::dom::parser parser;
  simdjson::dom::element json = parser.parse(diffJson(diff, *before, *after, halved));
  auto layerChange = json["changed"].at(0);
  EXPECT_EQ(std::string_view(layerChange["layer"]["identifier"]), "a2");
  std::vector<std::string_view> facts;
  for (auto [key, value] : simdjson::dom::object(layerChange["after"])) facts.push_back(key);
  EXPECT_EQ(facts, (std::vector<std::string_view>{"name", "frame", "absoluteFrame", "fills"}));
  EXPECT_EQ(std::string_view(layerChange["before"]["name"]), "a");
  EXPECT_EQ(double(layerChange["before"]["absoluteFrame"]["y"]), 10);
  EXPECT_EQ(double(layerChange["after"]["absoluteFrame"]["y"]), 20);
  EXPECT_EQ(std::string_view(layerChange["after"]["fills"].at(0)["color"]["hex"]), "#0000ff");
  EXPECT_EQ(std::string_view(json.at_pointer("/snapshot/1/change")), "density");
  EXPECT_EQ(std::string_view(json.at_pointer("/snapshot/1/after")), "2x");

  EXPECT_EQ(diffText(diff, *before, *after, halved),
            "snapshot: size 50 × 50 -> 100 × 50; density 1x -> 2x\n"
            "~ b: renamed a -> b; moved 5,10 -> 5,20; restyled\n");
}

}  // namespace
}  // namespace orvane::handoff
