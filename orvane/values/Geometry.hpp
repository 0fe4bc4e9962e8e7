// Geometry the records hold: points, sizes, rectangles and character ranges.
#pragma once

#include <cstdint>

#include <orvane/coding/Coding.hpp>
#include <orvane/coding/Schema.hpp>

namespace orvane {

/// A position: where a gradient runs from or to, or the origin a layer tree is flattened from.
struct Point {
  double x = 0;  ///< the horizontal coordinate
  double y = 0;  ///< the vertical coordinate
  /// Exact comparison of both coordinates.
  bool operator==(const Point&) const = default;
};

/// A width and a height, as a snapshot's artboard or a rectangle has them; either may be
/// negative in a rectangle as stored.
struct Size {
  double width = 0;   ///< along x
  double height = 0;  ///< along y
  /// Exact comparison of both dimensions.
  bool operator==(const Size&) const = default;
};

/// A rectangle as stored: origin and size, possibly with a negative width or height.
struct Rect {
  Point origin;  ///< one corner, as stored
  Size size;     ///< from `origin` to the opposite corner, signed

  Rect() = default;
  /// Stores the four values as given, negative sizes included.
  Rect(double x, double y, double width, double height) : origin{x, y}, size{width, height} {}

  /// The rectangle with its origin at the smaller corner and a non-negative size.
  Rect standardized() const;
  ///@{

  /// Of the standardized rectangle: its smaller corner's coordinates, its non-negative size.
  double minX() const { return standardized().origin.x; }
  double minY() const { return standardized().origin.y; }
  double width() const { return standardized().size.width; }
  double height() const { return standardized().size.height; }
  ///@}
  /// A null rectangle (an infinite origin) stands for "no rectangle" and is never moved.
  bool isNull() const;
  /// The rectangle moved by (dx, dy); a null rectangle stays null.
  Rect offsetBy(double dx, double dy) const;

  /// Compares as stored: a rectangle and its standardized form differ when a size is negative.
  bool operator==(const Rect&) const = default;
};

/// A range of characters: a location and a length, both 64-bit signed.
struct Range {
  std::int64_t location = 0;  ///< the first character's index, from 0
  std::int64_t length = 0;    ///< how many characters; stored as read, not checked
  /// Exact comparison of both.
  bool operator==(const Range&) const = default;
};

/// A rectangle reads "x", "y", "width", "height" as stored and writes them standardized.
template <>
struct Coding<Rect> {
  /// Each of the four members is a required number.
  static Rect decode(const Decoder& d);
  /// Writes the standardized rectangle, so a negative size is written positive; the document
  /// form writes it as stored, as decoding read it.
  static void encode(Encoder& e, const Rect& r);
};

/// A point is "x", "y", nothing standardized.
template <>
struct Coding<Point> {
  /// Both members are required numbers.
  static Point decode(const Decoder& d);
  /// Writes "x" then "y".
  static void encode(Encoder& e, const Point& p);
};

/// A range is "location", "length", both integers.
template <>
struct Coding<Range> {
  /// Both members are required integers; a number that is no integer within 64 bits fails
  /// with dataCorrupted.
  static Range decode(const Decoder& d);
  /// Writes "location" then "length".
  static void encode(Encoder& e, const Range& r);
};

namespace detail {
void describeRect(SchemaVisitor& v);
void describePoint(SchemaVisitor& v);
void describeRange(SchemaVisitor& v);
}  // namespace detail

/// A rectangle is an object of four required numbers.
template <>
struct Schema<Rect> {
  /// "x", "y", "width", "height".
  static constexpr Shape shape{Shape::Kind::object, nullptr, nullptr, &detail::describeRect, {}};
};
/// A point is an object of two required numbers.
template <>
struct Schema<Point> {
  /// "x", "y".
  static constexpr Shape shape{Shape::Kind::object, nullptr, nullptr, &detail::describePoint, {}};
};
/// A range is an object of two required integers.
template <>
struct Schema<Range> {
  /// "location", "length".
  static constexpr Shape shape{Shape::Kind::object, nullptr, nullptr, &detail::describeRange, {}};
};

}  // namespace orvane
