#include <orvane/handoff/Measure.hpp>

#include <algorithm>

namespace orvane::handoff {

namespace {

struct Edges {
  double minX, minY, maxX, maxY;
  explicit Edges(const Rect& r)
      : minX(r.minX()), minY(r.minY()), maxX(r.minX() + r.width()), maxY(r.minY() + r.height()) {}
  bool contains(const Edges& o) const {
    return o.minX >= minX && o.maxX <= maxX && o.minY >= minY && o.maxY <= maxY;
  }
};

}  // namespace

Measurement measure(const Rect& ra, const Rect& rb) {
  Edges a(ra), b(rb);
  Measurement m;
  double gapX = std::max(a.minX, b.minX) - std::min(a.maxX, b.maxX);
  double gapY = std::max(a.minY, b.minY) - std::min(a.maxY, b.maxY);
  if (gapX >= 0 || gapY >= 0) {
    m.relation = Measurement::Relation::apart;
    m.horizontal = std::max(0.0, gapX);
    m.vertical = std::max(0.0, gapY);
    return m;
  }
  if (b.contains(a) || a.contains(b)) {
    m.relation = Measurement::Relation::inside;
    m.innerIsA = b.contains(a);
    const Edges& inner = m.innerIsA ? a : b;
    const Edges& outer = m.innerIsA ? b : a;
    m.top = inner.minY - outer.minY;
    m.right = outer.maxX - inner.maxX;
    m.bottom = outer.maxY - inner.maxY;
    m.left = inner.minX - outer.minX;
    return m;
  }
  m.relation = Measurement::Relation::overlap;
  m.width = -gapX;
  m.height = -gapY;
  return m;
}

}  // namespace orvane::handoff
