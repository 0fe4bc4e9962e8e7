#include <orvane/snapshot/Snapshot.hpp>

#include "support/Layers.hpp"
#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

namespace {

std::string layerJson(const std::string& id, const std::string& extra = "") {
  return R"({"_id":")" + id + R"(","name":")" + id + R"(","sourceId":"s)" + id +
         R"(","rect":{"x":1,"y":1,"width":1,"height":1},"opacity":1)" + extra + "}";
}

std::string groupJson(const std::string& id, const std::string& children,
                      const std::string& level = "top") {
  return layerJson(
      id, R"(,"type":"group","interactionLevel":")" + level + R"(","layers":[)" + children + "]");
}

const std::string kDocument =
    R"({"_id":"S","width":375,"height":812,"grid":{"horizontalOffset":0},)"
    R"("assets":[{"_id":"a1","displayName":"d","layerName":"l","contents":[{}]}],)"
    R"("layers":[)" +
    groupJson("G", layerJson("A") + "," + groupJson("H", layerJson("B"))) + "," + layerJson("C") +
    "]}";

void expectTreeWiredTo(const std::vector<Ref<Layer>>& layers, const Ref<Snapshot>& snapshot,
                       const Ref<Layer>& parent = nullptr) {
  for (const auto& layer : layers) {
    SCOPED_TRACE(layer->identifier().rawValue());
    EXPECT_EQ(layer->snapshot(), snapshot);
    EXPECT_EQ(layer->parent(), parent);
    if (layer->kind() && layer->kind()->asGroup())
      expectTreeWiredTo(layer->kind()->asGroup()->layers, snapshot, layer);
  }
}

}  // namespace

TEST(Snapshot, DecodingWiresGridAssetsAndTheWholeTree) {
  auto snapshot = decodeJson<Ref<Snapshot>>(kDocument);
  EXPECT_EQ(snapshot->grid()->snapshot(), snapshot);
  EXPECT_EQ(snapshot->assets()->at(0)->snapshot(), snapshot);
  expectTreeWiredTo(*snapshot->layers(), snapshot);
  EXPECT_EQ(ids(*snapshot->flattenedLayers()), "ABHGC");
  EXPECT_EQ(snapshot->flattenedLayers()->at(1)->absoluteFrame(), Rect(3, 3, 1, 1));

  // Once the snapshot is gone every back-reference reads as empty.
  auto grid = snapshot->grid();
  auto asset = snapshot->assets()->at(0);
  auto deepest = snapshot->flattenedLayers()->at(1);
  snapshot.reset();
  EXPECT_EQ(grid->snapshot(), nullptr);
  EXPECT_EQ(asset->snapshot(), nullptr);
  EXPECT_EQ(deepest->snapshot(), nullptr);
  EXPECT_EQ(deepest->parent(), nullptr);  // its group went with the snapshot
}

TEST(Snapshot, AssignmentRewiresAndKeepsReplacedBackReferences) {
  auto snapshot = decodeJson<Ref<Snapshot>>(kDocument);
  auto oldLayers = *snapshot->layers();
  auto oldGrid = snapshot->grid();
  auto oldAsset = snapshot->assets()->at(0);

  auto other = decodeJson<Ref<Snapshot>>(R"({"_id":"T","width":1,"height":1,"layers":[)" +
                                         groupJson("X", layerJson("Y"), "bottom") + "]}");
  auto moved = *other->layers();
  snapshot->setLayers(moved);
  expectTreeWiredTo(moved, snapshot);
  EXPECT_EQ(ids(*snapshot->flattenedLayers()), "XY");
  EXPECT_EQ(ids(*other->flattenedLayers()), "XY");  // the other owner keeps its own list
  expectTreeWiredTo(oldLayers, snapshot);           // nothing is cleared

  snapshot->editLayers([&](auto& layers) { layers->push_back(oldLayers[1]); });
  EXPECT_EQ(ids(*snapshot->flattenedLayers()), "XYC");

  auto grid = Grid::make({.horizontalOffset = 1, .vertical = nullptr, .horizontal = nullptr});
  snapshot->setGrid(grid);
  EXPECT_EQ(grid->snapshot(), snapshot);
  EXPECT_EQ(oldGrid->snapshot(), snapshot);
  auto asset = Asset::make({.displayName = "d",
                            .layerName = "l",
                            .isBitmap = false,
                            .contents = std::vector<Ref<Asset::Content>>{}});
  other->setAssets(std::vector{asset});
  EXPECT_EQ(asset->snapshot(), other);
  EXPECT_EQ(oldAsset->snapshot(), snapshot);

  // No list: nothing to wire, and the flattened list goes too.
  snapshot->setLayers(std::nullopt);
  EXPECT_FALSE(snapshot->flattenedLayers());
  snapshot->setGrid(nullptr);
  EXPECT_EQ(grid->snapshot(), snapshot);
}

TEST(Snapshot, MakeWiresLikeDecoding) {
  auto child = shape("c", {1, 1, 1, 1});
  auto top = group("g", {child}, Layer::InteractionLevel::bottom, {10, 10, 1, 1}, "Card");
  auto grid = Grid::make({.horizontalOffset = 0, .vertical = nullptr, .horizontal = nullptr});
  auto snapshot = makeSnapshot(std::vector{top}, grid);
  EXPECT_TRUE(snapshot->identifier().isLocal());
  EXPECT_EQ(grid->snapshot(), snapshot);
  expectTreeWiredTo({top}, snapshot);
  EXPECT_EQ(snapshot->flattenedLayers()->size(), 2u);
  EXPECT_EQ(child->absoluteFrame(), Rect(11, 11, 1, 1));
  // Component names are the document's, never derived from the tree.
  EXPECT_TRUE(snapshot->componentNames().empty());
}

TEST(Snapshot, ImportSourceGivesFreshIdentifiersThroughout) {
  auto snapshot = decodeJson<Ref<Snapshot>>(kDocument, importOptions());
  EXPECT_TRUE(snapshot->identifier().isLocal());
  EXPECT_TRUE(snapshot->assets()->at(0)->identifier().isLocal());
  std::unordered_set<std::string> seen;
  for (const auto& layer : *snapshot->flattenedLayers()) {
    EXPECT_TRUE(layer->identifier().isLocal()) << layer->name();
    seen.emplace(layer->identifier().rawValue());
  }
  EXPECT_EQ(seen.size(), 5u);
  // Source identifiers are the design's own and stay.
  EXPECT_EQ(snapshot->layers()->at(1)->sourceIdentifier(), Identifier("sC"));
}

TEST(Snapshot, ErrorsDeepInTheTreeCarryTheirPath) {
  struct Case {
    std::string layers;
    ErrorKind kind;
    const char* path;
  };
  const Case cases[] = {
      {groupJson("G", groupJson("H", layerJson("B", R"(,"type":"text","content":"x")"))),
       ErrorKind::keyNotFound, "layers[0].layers[0].layers[0]"},
      {layerJson("A", R"(,"type":"group")"), ErrorKind::keyNotFound, "layers[0]"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.layers);
    auto e = decodeError<Ref<Snapshot>>(R"({"_id":"S","width":1,"height":1,"layers":[)" + c.layers +
                                        "]}");
    EXPECT_EQ(e.kind(), c.kind);
    EXPECT_EQ(pathOf(e), c.path);
  }
}

TEST(Snapshot, LayerTreesUpToTheDepthLimitDecodeAndDeeperOnesFailCleanly) {
  auto nested = [](int depth) {
    std::string open, close;
    for (int i = 0; i < depth; ++i) {
      open += R"({"_id":"g","name":"g","sourceId":"g","type":"group","interactionLevel":"top",)"
              R"("rect":{"x":1,"y":0,"width":1,"height":1},"opacity":1,"layers":[)";
      close += "]}";
    }
    return R"({"_id":"S","width":1,"height":1,"layers":[)" + open + close + "]}";
  };
  // Each level costs two nestings (the layer and its list), the document two more.
  auto snapshot = decodeJson<Ref<Snapshot>>(nested(250));
  ASSERT_EQ(snapshot->flattenedLayers()->size(), 250u);
  EXPECT_EQ(snapshot->flattenedLayers()->front()->absoluteFrame().origin.x, 250);
  EXPECT_EQ(snapshot->flattenedLayers()->front()->snapshot(), snapshot);

  auto e = decodeError<Ref<Snapshot>>(nested(300));
  EXPECT_EQ(e.kind(), ErrorKind::dataCorrupted);
  EXPECT_EQ(pathOf(e), "<root>");
}
