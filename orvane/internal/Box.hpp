// A layer's frame as the hand-off outputs draw it: finite numbers, a size never negative.
#pragma once

#include <algorithm>
#include <cmath>

#include <orvane/values/Geometry.hpp>

namespace orvane::detail {

/// `value`, or `otherwise` when it is not a finite number.
inline double finite(double value, double otherwise = 0) {
  return std::isfinite(value) ? value : otherwise;
}

/// A rectangle standardized, in finite numbers.
struct Box {
  double x = 0, y = 0, w = 0, h = 0;

  static Box of(const Rect& r) {
    return {finite(r.minX()), finite(r.minY()), std::max(0.0, finite(r.width())),
            std::max(0.0, finite(r.height()))};
  }
  Rect rect() const { return Rect(x, y, w, h); }
  Box outset(double by) const {
    return {x - by, y - by, std::max(0.0, w + 2 * by), std::max(0.0, h + 2 * by)};
  }
  Box moved(double dx, double dy) const { return {x + dx, y + dy, w, h}; }
  bool intersects(const Box& o) const {
    return x < o.x + o.w && o.x < x + w && y < o.y + o.h && o.y < y + h;
  }
};

/// The corner radius a box can hold, as CSS clamps it.
inline double fitRadius(double radius, const Box& box) {
  return std::clamp(finite(radius), 0.0, std::min(box.w, box.h) / 2);
}

}  // namespace orvane::detail
