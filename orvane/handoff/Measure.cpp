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
    Insets in = m.innerIsA ? insets(ra, rb) : insets(rb, ra);
    m.top = in.top;
    m.right = in.right;
    m.bottom = in.bottom;
    m.left = in.left;
    return m;
  }
  m.relation = Measurement::Relation::overlap;
  m.width = -gapX;
  m.height = -gapY;
  return m;
}

Insets insets(const Rect& inner, const Rect& outer) {
  Edges i(inner), o(outer);
  return {i.minY - o.minY, o.maxX - i.maxX, o.maxY - i.maxY, i.minX - o.minX};
}

}  // namespace orvane::handoff
