// One color stop of a gradient.
#pragma once

#include <orvane/coding/Fields.hpp>
#include <orvane/styles/Gradient.hpp>
#include <orvane/values/Color.hpp>

namespace orvane {

class Gradient::Stop {
 public:
#define ORVANE_GRADIENT_STOP_FIELDS(F)                                    \
  F(position, Position, double, "position", required, always, given, plain) \
  F(color, Color, Ref<orvane::Color>, "color", required, always, given, plain)
  ORVANE_FIELDS(Stop, ORVANE_GRADIENT_STOP_FIELDS)

 public:
  static Ref<Stop> make(Fields fields);
  static Ref<Stop> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
