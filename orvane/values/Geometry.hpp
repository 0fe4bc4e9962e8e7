// Geometry the records hold: points, sizes, rectangles and character ranges.
#pragma once

#include <cstdint>

#include <orvane/coding/Coding.hpp>

namespace orvane {

struct Point {
  double x = 0;
  double y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;
  bool operator==(const Size&) const = default;
};

/// A rectangle as stored: origin and size, possibly with a negative width or height.
struct Rect {
  Point origin;
  Size size;

  Rect() = default;
  Rect(double x, double y, double width, double height) : origin{x, y}, size{width, height} {}

  /// The rectangle with its origin at the smaller corner and a non-negative size.
  Rect standardized() const;
  double minX() const { return standardized().origin.x; }
  double minY() const { return standardized().origin.y; }
  double width() const { return standardized().size.width; }
  double height() const { return standardized().size.height; }
  /// A null rectangle (an infinite origin) stands for "no rectangle" and is never moved.
  bool isNull() const;
  /// The rectangle moved by (dx, dy); a null rectangle stays null.
  Rect offsetBy(double dx, double dy) const;

  bool operator==(const Rect&) const = default;
};

/// A range of characters: a location and a length, both 64-bit signed.
struct Range {
  std::int64_t location = 0;
  std::int64_t length = 0;
  bool operator==(const Range&) const = default;
};

/// A rectangle reads "x", "y", "width", "height" as stored and writes them standardized.
template <>
struct Coding<Rect> {
  static Rect decode(const Decoder& d);
  static void encode(Encoder& e, const Rect& r);
};

/// A point is "x", "y", nothing standardized.
template <>
struct Coding<Point> {
  static Point decode(const Decoder& d);
  static void encode(Encoder& e, const Point& p);
};

/// A range is "location", "length", both integers.
template <>
struct Coding<Range> {
  static Range decode(const Decoder& d);
  static void encode(Encoder& e, const Range& r);
};

}  // namespace orvane
