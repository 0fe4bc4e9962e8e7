// The distances a hand-off tool shows between two layers.
#pragma once

#include <orvane/values/Geometry.hpp>

namespace orvane::handoff {

/// How two frames lie, and the distances that say so.
struct Measurement {
  /// Apart (touching counts: a gap of 0), one inside the other (equal frames count, `a`
  /// inner), or overlapping otherwise.
  enum class Relation { apart, inside, overlap };
  Relation relation = Relation::apart;  ///< how they lie
  double horizontal = 0;  ///< apart: the gap between the nearest vertical edges (0 if none)
  double vertical = 0;    ///< apart: the gap between the nearest horizontal edges (0 if none)
  bool innerIsA = true;   ///< inside: whether `a` is the inner frame
  double top = 0;         ///< inside: the inner frame's inset from the outer's top edge
  double right = 0;       ///< inside: ... from its right edge
  double bottom = 0;      ///< inside: ... from its bottom edge
  double left = 0;        ///< inside: ... from its left edge
  double width = 0;       ///< overlap: the shared area's width
  double height = 0;      ///< overlap: the shared area's height
};

/// How `a` and `b` lie (standardized first; their rotation is not taken into account).
Measurement measure(const Rect& a, const Rect& b);

/// How far each edge of a frame lies inside the same edge of another: positive inside, negative
/// where the frame sticks out.
struct Insets {
  double top = 0;     ///< from the outer frame's top edge down to the inner's
  double right = 0;   ///< from the outer frame's right edge in to the inner's
  double bottom = 0;  ///< from the outer frame's bottom edge up to the inner's
  double left = 0;    ///< from the outer frame's left edge in to the inner's
};

/// The insets of `inner` in `outer`, both standardized first (a layer in its group, a layer on
/// the artboard).
Insets insets(const Rect& inner, const Rect& outer);

}  // namespace orvane::handoff
