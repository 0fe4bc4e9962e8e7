// A color gradient between two points.
#pragma once

#include <optional>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/values/Geometry.hpp>

namespace orvane {

/// A kind, two end points, an optional angle and scale, and color stops in document order.
class Gradient {
 public:
#define ORVANE_GRADIENT_KIND(C) C(linear, "linear") C(radial, "radial") C(angular, "angular")
  /// The gradient's shape.
  ORVANE_ENUM(Kind, ORVANE_GRADIENT_KIND)
  class Stop;

#define ORVANE_GRADIENT_FIELDS(F)                                                        \
  F(kind, Kind, std::optional<Kind>, "type", tolerant, whenPresent, given, plain)        \
  F(from, From, Point, "from", required, always, given, plain)                           \
  F(to, To, Point, "to", required, always, given, plain)                                 \
  F(angle, Angle, std::optional<double>, "angle", optional, whenPresent, given, plain)   \
  F(scale, Scale, std::optional<double>, "scale", optional, whenPresent, given, plain)   \
  F(stops, Stops, std::vector<Ref<Stop>>, "colorStops", required, always, given, plain)
  ORVANE_FIELDS(Gradient, ORVANE_GRADIENT_FIELDS)

 public:
  /// Takes every field; the stops in the order they are listed.
  static Ref<Gradient> make(Fields fields);
  /// Fails without the points "from" and "to" or without "colorStops", a list whose every stop
  /// must decode; an unknown "type" leaves no kind.
  static Ref<Gradient> decode(const Decoder& decoder);
  /// Writes every member; "type", "angle" and "scale" only when present.
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Gradient::Kind, "Kind", ORVANE_GRADIENT_KIND, false)

}  // namespace orvane

// The stop completes the gradient: whoever reads a gradient's stops needs it.
#include <orvane/styles/Gradient+Stop.hpp>
