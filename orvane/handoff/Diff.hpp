// What changed from one snapshot of a screen or component to the next.
#pragma once

#include <string_view>
#include <vector>

#include <orvane/snapshot/Snapshot.hpp>

namespace orvane::handoff {

/// One way a layer changed.
enum class LayerChange {
  renamed,     ///< its name
  moved,       ///< its frame's origin in its group (a move of the group alone is not one)
  resized,     ///< its frame's size
  rotated,     ///< its rotation (none counts as 0)
  restyled,    ///< fills, borders, shadows, blur, opacity, blend mode or corner radius
  text,        ///< a text layer's content or ranged styles
  kind,        ///< shape, text, group, or none
  reparented,  ///< its enclosing group (by source identifier), or the top level
};

/// The change as the tool names it (`moved`).
std::string_view changeName(LayerChange change);

/// What changed, over every layer of both trees, groups included. Layers are matched by
/// source identifier; layers sharing one are paired in tree order.
struct SnapshotDiff {
  /// A layer in both, and how it changed (in the order of `LayerChange`).
  struct Changed {
    Ref<Layer> before;                 ///< in the older snapshot
    Ref<Layer> after;                  ///< in the newer one
    std::vector<LayerChange> changes;  ///< never empty
  };
  std::vector<Ref<Layer>> added;    ///< in the newer tree only, in its order
  std::vector<Ref<Layer>> removed;  ///< in the older tree only, in its order
  std::vector<Changed> changed;     ///< in the newer tree's order

  /// Nothing changed.
  bool empty() const { return added.empty() && removed.empty() && changed.empty(); }
};

/// What changed from `before` to `after`, in time linear in their layers.
SnapshotDiff diffSnapshots(const Snapshot& before, const Snapshot& after);

}  // namespace orvane::handoff
