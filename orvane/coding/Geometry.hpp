// Coding of geometric values: each is a nested keyed object under the field's key.
#pragma once

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/Values.hpp>

namespace orvane {

/// A rectangle reads "x", "y", "width", "height" as stored and writes them standardized.
template <>
struct Coding<Rect> {
  static Rect decode(const Decoder& d);
};
template <>
struct EncodingOf<Rect> {
  static void encode(Encoder& e, const Rect& r);
};

/// A point is "x", "y", nothing standardized.
template <>
struct Coding<Point> {
  static Point decode(const Decoder& d);
};
template <>
struct EncodingOf<Point> {
  static void encode(Encoder& e, const Point& p);
};

/// A range is "location", "length", both integers.
template <>
struct Coding<Range> {
  static Range decode(const Decoder& d);
};
template <>
struct EncodingOf<Range> {
  static void encode(Encoder& e, const Range& r);
};

}  // namespace orvane
