#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Snapshot.hpp>

#include "support/Layers.hpp"
#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using Level = Layer::InteractionLevel;

TEST(LayerFlattening, InteractionLevelPlacesTheGroup) {
  struct Case {
    std::optional<Level> outer;
    std::optional<Level> inner;
    const char* order;
  };
  // [G(outer: [A, H(inner: [B])]), C]
  const Case cases[] = {
      {Level::top, Level::top, "ABHGC"},     {Level::bottom, Level::bottom, "GAHBC"},
      {std::nullopt, std::nullopt, "ABC"},   {Level::top, std::nullopt, "ABGC"},
      {std::nullopt, Level::bottom, "AHBC"},
  };
  for (const auto& c : cases) {
    auto b = shape("B", {1, 2, 3, 4});
    auto h = group("H", {b}, c.inner, {20, 30, 10, 10});
    auto a = shape("A", {10, 10, 5, 5});
    auto g = group("G", {a, h}, c.outer, {100, 200, 50, 50});
    auto flat = Layer::flattenedLayers({g, shape("C", {7, 7, 7, 7})});
    EXPECT_EQ(ids(flat), c.order);
    // Every visited layer gets an absolute frame, groups left out of the list included.
    EXPECT_EQ(a->absoluteFrame(), Rect(110, 210, 5, 5));
    EXPECT_EQ(h->absoluteFrame(), Rect(120, 230, 10, 10));
    EXPECT_EQ(b->absoluteFrame(), Rect(121, 232, 3, 4));
  }
}

TEST(LayerFlattening, OriginAndComponentNamesFromAllDepths) {
  auto inner = group("I", {shape("X", {1, 1, 1, 1})}, Level::top, {5, 5, 1, 1}, "Button");
  // One name in two spellings, composed and decomposed, is one name.
  auto cafe =
      group("K", {group("L", {}, std::nullopt, {}, "Cafe\u0301")}, std::nullopt, {}, "Caf\u00E9");
  auto outer = group("O", {inner, group("J", {}, std::nullopt, {}, "Button"), cafe}, std::nullopt,
                     {10, 0, 1, 1}, "Card");
  auto result = Layer::flattenedLayersAndComponentNames({outer}, {1000, 2000});
  EXPECT_EQ(ids(result.flattenedLayers), "XI");
  EXPECT_EQ(result.componentNames, (CanonicalStringSet{"Button", "Card", "Caf\u00E9"}));
  EXPECT_EQ(result.componentNames.size(), 3u);
  EXPECT_EQ(result.flattenedLayers[0]->absoluteFrame(), Rect(1016, 2006, 1, 1));
}

TEST(LayerAbsoluteFrame, ComputedThroughParentsThenKept) {
  auto child = shape("A", {10, 10, 5, 5});
  auto g = group("G", {child}, Level::top, {100, 200, 50, 50});
  auto root = group("R", {g}, Level::top, {-1, -2, 0, 0});
  EXPECT_EQ(child->parent(), g);
  EXPECT_EQ(g->parent(), root);
  EXPECT_EQ(root->parent(), nullptr);
  EXPECT_EQ(child->absoluteFrame(), Rect(109, 208, 5, 5));
  // Once read it is stored: moving an ancestor is not seen.
  g->setFrame({0, 0, 1, 1});
  EXPECT_EQ(child->absoluteFrame(), Rect(109, 208, 5, 5));
  child->setAbsoluteFrame({});
  EXPECT_EQ(child->absoluteFrame(), Rect());
  Layer::flattenedLayers({g});
  EXPECT_EQ(child->absoluteFrame(), Rect(10, 10, 5, 5));
}

TEST(LayerObservers, KindAssignmentWiresChildrenButInitializerOnlyParents) {
  auto snapshot = makeSnapshot();
  auto a = shape("A");
  auto deep = shape("D");
  auto h = group("H", {deep}, std::nullopt);
  auto g = group("G", {a}, std::nullopt);
  EXPECT_EQ(a->parent(), g);
  EXPECT_EQ(a->snapshot(), nullptr);  // make does not touch the snapshot

  snapshot->setLayers(std::vector{g});
  EXPECT_EQ(a->snapshot(), snapshot);

  // A new group kind wires the new children, depth first; the replaced child keeps its links.
  g->setKind(Layer::Kind::group({h}, std::nullopt, Level::top));
  EXPECT_EQ(h->parent(), g);
  EXPECT_EQ(h->snapshot(), snapshot);
  EXPECT_EQ(deep->snapshot(), snapshot);
  EXPECT_EQ(deep->parent(), h);
  EXPECT_EQ(a->parent(), g);
  EXPECT_EQ(a->snapshot(), snapshot);
  // Below the top level nothing flattens again.
  EXPECT_EQ(ids(*snapshot->flattenedLayers()), "A");

  // An in-place edit counts as an assignment.
  auto late = shape("L");
  g->editKind([&](auto& kind) { kind->asGroup()->layers.push_back(late); });
  EXPECT_EQ(late->parent(), g);
  EXPECT_EQ(late->snapshot(), snapshot);

  // A non-group kind touches nothing.
  auto orphan = shape("O");
  g->setKind(Layer::Kind::shape());
  EXPECT_EQ(orphan->parent(), nullptr);
  EXPECT_EQ(h->parent(), g);
}

// The optional members are stored packed; each must hold and clear without touching the others:
// all set, all clear, alternate ones, and each half, in turn.
TEST(LayerStorage, OptionalMembersSetAndClearIndependently) {
  auto layer = shape("L");
  EXPECT_FALSE(layer->sketchFileURL());
  EXPECT_FALSE(layer->exportsBitmap());
  const auto blur = Blur::make({.kind = std::nullopt, .radius = 4});
  const Url file("file:///a.sketch");
  for (unsigned set : {0u, 63u, 21u, 42u, 1u, 62u, 0u, 7u, 56u, 63u}) {
    auto on = [&](int member) { return (set >> member & 1) != 0; };
    layer->setRotation(on(0) ? std::optional(0.0) : std::nullopt);  // a zero rotation is one
    layer->setBlendMode(on(1) ? std::optional(BlendMode::multiply) : std::nullopt);
    layer->setBlur(on(2) ? blur : nullptr);
    layer->setSketchFileURL(on(3) ? std::optional(file) : std::nullopt);
    layer->setIsExportable(on(4));
    layer->setExportsBitmap(on(5));
    EXPECT_EQ(layer->rotation(), on(0) ? std::optional(0.0) : std::nullopt) << set;
    EXPECT_EQ(layer->blendMode(), on(1) ? std::optional(BlendMode::multiply) : std::nullopt);
    EXPECT_EQ(layer->blur(), on(2) ? blur : nullptr) << set;
    EXPECT_EQ(layer->sketchFileURL(), on(3) ? std::optional(file) : std::nullopt) << set;
    EXPECT_EQ(layer->isExportable(), on(4)) << set;
    EXPECT_EQ(layer->exportsBitmap(), on(5)) << set;
  }
}

TEST(LayerTreeDeathTest, AGroupInsideItsOwnSubtreeStopsEveryWalk) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const char* inside = "Layer tree has a cycle: layer \"G\" is inside its own subtree";
  // Made a cycle by a new kind: the snapshot is passed down at once.
  EXPECT_DEATH(
      {
        auto g = group("G", {shape("A")}, Level::top);
        g->setKind(Layer::Kind::group({group("H", {g}, Level::top)}, std::nullopt, Level::top));
      },
      inside);
  // Made a cycle in place: the child's own walk finds it.
  EXPECT_DEATH(
      {
        auto inner = group("H", {}, Level::top);
        auto g = group("G", {inner}, Level::top);
        inner->editKind([&](auto& kind) { kind->asGroup()->layers.push_back(g); });
      },
      "Layer tree has a cycle: layer \"H\" is inside its own subtree");
  EXPECT_DEATH(
      {
        auto g = group("G", {}, std::nullopt);
        g->editKind([&](auto& kind) { kind->asGroup()->layers.push_back(g); });
      },
      inside);
  // A chain of parents that loops, made through the setter, stops the absolute frame.
  EXPECT_DEATH(
      {
        auto a = shape("A");
        auto b = shape("B");
        auto c = shape("C");
        a->setParent(b);
        b->setParent(c);
        c->setParent(b);
        a->absoluteFrame();
      },
      "Layer tree has a cycle: layer \"[BC]\" is its own ancestor");
}

TEST(LayerTree, ALayerInTwoPlacesIsNoCycle) {
  auto shared = shape("A", {1, 1, 1, 1});
  auto g = group("G", {shared, group("H", {shared}, Level::top, {10, 10, 1, 1})}, Level::top);
  auto snapshot = makeSnapshot();
  snapshot->setLayers(std::vector{g, g});
  EXPECT_EQ(ids(*snapshot->flattenedLayers()), "AAHGAAHG");
  EXPECT_EQ(shared->snapshot(), snapshot);
}
