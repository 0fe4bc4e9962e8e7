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

}  // namespace orvane::handoff
