// Platform value types the records hold: points in time, resource addresses and geometry.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace orvane {

/// A point in time, microseconds since 1970-01-01T00:00:00Z. How it is written belongs to the
/// coder (its date strategy); the records never format or parse dates themselves.
using Date = std::chrono::time_point<std::chrono::system_clock, std::chrono::microseconds>;

/// The current time, as memberwise initializers take it for creation dates.
Date now();

/// ISO 8601 in UTC with exactly three fractional digits, as debug views show dates.
std::string formatDateMillis(Date date);

/// A resource address. Holds its text unchanged; the coder checks that the text is a valid
/// URI reference when it reads one.
class Url {
 public:
  Url() = default;
  explicit Url(std::string text) : text_(std::move(text)) {}
  const std::string& text() const { return text_; }
  bool operator==(const Url&) const = default;

 private:
  std::string text_;
};

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

}  // namespace orvane
