#include <orvane/coding/FieldVisitor.hpp>

namespace orvane {

FieldVisitor::~FieldVisitor() = default;

void describe(FieldVisitor& v, const std::string& value) {
  v.string(value);
}
void describe(FieldVisitor& v, double value) {
  v.number(value);
}
void describe(FieldVisitor& v, std::int64_t value) {
  v.integer(value);
}
void describe(FieldVisitor& v, bool value) {
  v.boolean(value);
}
void describe(FieldVisitor& v, const Identifier& value) {
  v.string(value.rawValue());
}
void describe(FieldVisitor& v, Date value) {
  v.string(formatDateMillis(value));
}
void describe(FieldVisitor& v, const Url& value) {
  v.string(value.text());
}

void describe(FieldVisitor& v, const Rect& value) {
  v.beginObject();
  v.field("x", value.origin.x);
  v.field("y", value.origin.y);
  v.field("width", value.size.width);
  v.field("height", value.size.height);
  v.endObject();
}

void describe(FieldVisitor& v, const Point& value) {
  v.beginObject();
  v.field("x", value.x);
  v.field("y", value.y);
  v.endObject();
}

void describe(FieldVisitor& v, const Size& value) {
  v.beginObject();
  v.field("width", value.width);
  v.field("height", value.height);
  v.endObject();
}

void describe(FieldVisitor& v, const Range& value) {
  v.beginObject();
  v.field("location", value.location);
  v.field("length", value.length);
  v.endObject();
}

}  // namespace orvane
