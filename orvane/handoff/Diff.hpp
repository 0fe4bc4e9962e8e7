// What changed from one snapshot of a screen or component to the next.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <orvane/handoff/Inspect.hpp>
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

/// One way the snapshot itself changed.
enum class SnapshotChange {
  size,        ///< the artboard's width or height
  background,  ///< its background color (or whether it has one)
  density,     ///< the density its images were exported at
  grid,        ///< its layout grid
  links,       ///< its hotspot links: their number, frames, destinations
  assets,      ///< its assets: their number, names, contents
};

/// The change as the tool names it (`background`).
std::string_view changeName(SnapshotChange change);

/// A coordinate (of a frame, a size, a rotation) that changed by less than this did not change:
/// what a person cannot see is not worth a line.
inline constexpr double kCoordinateTolerance = 0.01;

/// What changed, in the snapshot itself and over every layer of both trees, groups included.
/// Layers are matched by source identifier; layers sharing one are paired in tree order.
struct SnapshotDiff {
  /// A layer in both, and how it changed (in the order of `LayerChange`).
  struct Changed {
    Ref<Layer> before;                 ///< in the older snapshot
    Ref<Layer> after;                  ///< in the newer one
    std::vector<LayerChange> changes;  ///< never empty
    /// The facts that differ, named as `layerFacts` names them (`absoluteFrame`, `fills`), in
    /// its order; `parent` for a layer that changed groups.
    std::vector<std::string_view> facts;
  };
  std::vector<SnapshotChange> snapshot;  ///< in the order of `SnapshotChange`
  std::vector<Ref<Layer>> added;         ///< in the newer tree only, in its order
  std::vector<Ref<Layer>> removed;       ///< in the older tree only, in its order
  std::vector<Changed> changed;          ///< in the newer tree's order

  /// Nothing changed, in the snapshot nor in its layers.
  bool empty() const {
    return snapshot.empty() && added.empty() && removed.empty() && changed.empty();
  }
};

/// What changed from `before` to `after`, in time linear in their layers.
SnapshotDiff diffSnapshots(const Snapshot& before, const Snapshot& after);

/// The diff as one JSON object and a line break: `{"snapshot":[C...],"added":[L...],
/// "removed":[L...],"changed":[{"layer":L,"changes":[...],"before":{...},"after":{...}}]}`,
/// L being `{"sourceIdentifier":S,"name":N,"identifier":ID}` (the layer in `after`, for
/// `removed` in `before`), C `{"change":NAME,"before":V,"after":V}` with the values as
/// `snapshotFacts` writes them, and a changed layer's `before` and `after` its changed facts as
/// `layerFacts` writes them (`parent`: the group as L, or null at the top).
std::string diffJson(const SnapshotDiff& diff, const Snapshot& before, const Snapshot& after,
                     const FactOptions& options = {});

/// The diff for people: a line for the snapshot's changes, then `+ NAME` for each layer
/// added, `- NAME` for each removed, `~ NAME: moved 12,40 -> 12,52; restyled` for each changed
/// (positions and sizes on the artboard, lengths as `options` asks).
std::string diffText(const SnapshotDiff& diff, const Snapshot& before, const Snapshot& after,
                     const FactOptions& options = {});

}  // namespace orvane::handoff
