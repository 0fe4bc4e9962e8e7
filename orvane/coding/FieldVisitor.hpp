// Every record lists its stored fields once, as name and value, to a FieldVisitor. Debug views
// (the tool's dump) and structural comparisons are built on that listing.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/values/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// Receives a value as a tree of objects, arrays and scalars.
class FieldVisitor {
 public:
  virtual ~FieldVisitor();
  ///@{

  /// A scalar: a member's value after `key`, or an array's element.
  virtual void null() = 0;
  virtual void boolean(bool value) = 0;
  virtual void integer(std::int64_t value) = 0;
  virtual void number(double value) = 0;
  virtual void string(std::string_view value) = 0;
  ///@}
  /// An object begins; `key` and a value follow for each member, then `endObject`.
  virtual void beginObject() = 0;
  /// The next member's name; its value follows.
  virtual void key(std::string_view name) = 0;
  /// The object begun last ends.
  virtual void endObject() = 0;
  /// An array begins; its elements follow, then `endArray`.
  virtual void beginArray() = 0;
  /// The array begun last ends.
  virtual void endArray() = 0;

  /// One member: the field's name, then its value.
  template <class T>
  void field(std::string_view name, const T& value);
};

///@{

/// Shows a value to `v`: strings, numbers and Booleans as themselves; an identifier as its raw
/// value, a date as ISO 8601 text with milliseconds, an address as its text; a rectangle, point,
/// size or range as an object of its components, named as they are coded.
void describe(FieldVisitor& v, const std::string& value);
void describe(FieldVisitor& v, double value);
void describe(FieldVisitor& v, std::int64_t value);
void describe(FieldVisitor& v, bool value);
void describe(FieldVisitor& v, const Identifier& value);
void describe(FieldVisitor& v, Date value);
void describe(FieldVisitor& v, const Url& value);
void describe(FieldVisitor& v, const Rect& value);
void describe(FieldVisitor& v, const Point& value);
void describe(FieldVisitor& v, const Size& value);
void describe(FieldVisitor& v, const Range& value);
///@}

/// A raw-value enumeration shows its case name; a record or value with `visitFields` shows an
/// object of its fields.
template <class T>
void describe(FieldVisitor& v, const T& value) {
  if constexpr (RawEnum<T>) {
    v.string(caseName(value));
  } else {
    v.beginObject();
    value.visitFields(v);
    v.endObject();
  }
}

/// No value shows as null.
template <class T>
void describe(FieldVisitor& v, const std::optional<T>& value) {
  if (value)
    describe(v, *value);
  else
    v.null();
}

/// A list shows as an array of its elements.
template <class T>
void describe(FieldVisitor& v, const std::vector<T>& values) {
  v.beginArray();
  for (const auto& value : values) describe(v, value);
  v.endArray();
}

/// A record shows as its fields; null as null.
template <class T>
void describe(FieldVisitor& v, const std::shared_ptr<T>& value) {
  if (value)
    describe(v, *value);
  else
    v.null();
}

/// A back-reference shows the identifier of the record it refers to.
template <class T>
void describe(FieldVisitor& v, const std::weak_ptr<T>& value) {
  if (auto target = value.lock())
    v.string(target->identifier().rawValue());
  else
    v.null();
}

/// An ordered map shows as an object with a member per entry, in key order.
template <class K, class T, class C>
void describe(FieldVisitor& v, const std::map<K, T, C>& values) {
  v.beginObject();
  for (const auto& [key, value] : values) {
    v.key(key);
    describe(v, value);
  }
  v.endObject();
}

template <class T>
void FieldVisitor::field(std::string_view name, const T& value) {
  key(name);
  describe(*this, value);
}

}  // namespace orvane
