#include <orvane/snapshot/Asset.hpp>
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

// How decoding wires the layer tree is a corpus dump; the grid and assets point back too, and
// every back-reference reads as empty once its owner is gone (the one check of a rule that every
// backRef statement shares).
TEST(Snapshot, DecodingWiresGridAndAssetsAndBackReferencesExpire) {
  auto snapshot = decodeJson<Ref<Snapshot>>(kDocument);
  auto grid = snapshot->grid();
  auto asset = snapshot->assets()->at(0);
  auto deepest = snapshot->flattenedLayers()->at(1);
  EXPECT_EQ(grid->snapshot(), snapshot);
  EXPECT_EQ(asset->snapshot(), snapshot);
  EXPECT_EQ(deepest->snapshot(), snapshot);
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

TEST(Asset, ContentsPointBackAfterDecodeMakeAndAssignment) {
  auto asset =
      decodeJson<Ref<Asset>>(R"({"_id":"a","displayName":"d","layerName":"l","contents":[{},{}]})");
  for (const auto& content : asset->contents()) EXPECT_EQ(content->asset(), asset);

  auto first =
      Asset::Content::make({.url = std::nullopt, .density = std::nullopt, .format = std::nullopt});
  auto made =
      Asset::make({.displayName = "d", .layerName = "l", .isBitmap = false, .contents = {first}});
  EXPECT_EQ(first->asset(), made);

  // Assignment wires the new list and leaves the replaced one alone.
  auto second =
      Asset::Content::make({.url = std::nullopt, .density = Density::hdpi, .format = std::nullopt});
  auto other = Asset::make({.displayName = "o",
                            .layerName = "l",
                            .isBitmap = false,
                            .contents = std::vector<Ref<Asset::Content>>{}});
  other->setContents({first, second});
  EXPECT_EQ(first->asset(), other);
  EXPECT_EQ(second->asset(), other);
  auto third =
      Asset::Content::make({.url = std::nullopt, .density = std::nullopt, .format = std::nullopt});
  made->editContents([&](auto& contents) { contents.push_back(third); });
  // An in-place edit rewires the whole list, so the shared content comes back to `made`.
  EXPECT_EQ(third->asset(), made);
  EXPECT_EQ(first->asset(), made);
  EXPECT_EQ(second->asset(), other);
}
