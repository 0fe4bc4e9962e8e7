// One color stop of a gradient.
#pragma once

#include <orvane/coding/Fields.hpp>
#include <orvane/styles/Gradient.hpp>
#include <orvane/values/Color.hpp>

namespace orvane {

/// A color at a position along its gradient.
class Gradient::Stop {
 public:
#define ORVANE_GRADIENT_STOP_FIELDS(F)                                    \
  F(position, Position, double, "position", required, always, given, plain) \
  F(color, Color, Ref<orvane::Color>, "color", required, always, given, plain)
  ORVANE_FIELDS(Stop, ORVANE_GRADIENT_STOP_FIELDS)

 public:
  /// Takes the position and the color.
  static Ref<Stop> make(Fields fields);
  /// Fails without a numeric "position" or a valid "color".
  static Ref<Stop> decode(const Decoder& decoder);
  /// Writes "position" and "color".
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
