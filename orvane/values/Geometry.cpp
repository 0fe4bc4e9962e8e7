#include <orvane/values/Geometry.hpp>

#include <cmath>

namespace orvane {

Rect Rect::standardized() const {
  Rect r = *this;
  if (r.size.width < 0) {
    r.origin.x += r.size.width;
    r.size.width = -r.size.width;
  }
  if (r.size.height < 0) {
    r.origin.y += r.size.height;
    r.size.height = -r.size.height;
  }
  return r;
}

bool Rect::isNull() const {
  return std::isinf(origin.x) || std::isinf(origin.y);
}

Rect Rect::offsetBy(double dx, double dy) const {
  if (isNull()) return *this;
  // The offset applies to the standardized rectangle, like the platform's rectangle offset.
  Rect r = standardized();
  r.origin.x += dx;
  r.origin.y += dy;
  return r;
}

Rect Coding<Rect>::decode(const Decoder& d) {
  auto c = d.container();
  double x = c.decodeDouble("x");
  double y = c.decodeDouble("y");
  double width = c.decodeDouble("width");
  double height = c.decodeDouble("height");
  return Rect(x, y, width, height);
}

void Coding<Rect>::encode(Encoder& e, const Rect& r) {
  auto c = e.container();
  Rect s = e.form() == EncodingForm::document ? r : r.standardized();
  c.encode("x", s.origin.x);
  c.encode("y", s.origin.y);
  c.encode("width", s.size.width);
  c.encode("height", s.size.height);
}

Point Coding<Point>::decode(const Decoder& d) {
  auto c = d.container();
  double x = c.decodeDouble("x");
  double y = c.decodeDouble("y");
  return Point{x, y};
}

void Coding<Point>::encode(Encoder& e, const Point& p) {
  auto c = e.container();
  c.encode("x", p.x);
  c.encode("y", p.y);
}

Range Coding<Range>::decode(const Decoder& d) {
  auto c = d.container();
  std::int64_t location = c.decodeInt("location");
  std::int64_t length = c.decodeInt("length");
  return Range{location, length};
}

void Coding<Range>::encode(Encoder& e, const Range& r) {
  auto c = e.container();
  c.encode("location", r.location);
  c.encode("length", r.length);
}

namespace {
void number(SchemaVisitor& v, std::string_view key, std::string_view field) {
  v.member({key, SchemaRead::required, field}, Schema<double>::shape);
}
}  // namespace

void detail::describeRect(SchemaVisitor& v) {
  number(v, "x", "x");
  number(v, "y", "y");
  number(v, "width", "width");
  number(v, "height", "height");
}

void detail::describePoint(SchemaVisitor& v) {
  number(v, "x", "x");
  number(v, "y", "y");
}

void detail::describeRange(SchemaVisitor& v) {
  v.member({"location", SchemaRead::required, "location"}, Schema<std::int64_t>::shape);
  v.member({"length", SchemaRead::required, "length"}, Schema<std::int64_t>::shape);
}

}  // namespace orvane
