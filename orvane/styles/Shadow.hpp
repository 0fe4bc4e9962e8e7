// A colored shadow cast inside or outside a layer.
#pragma once

#include <optional>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/values/Color.hpp>

namespace orvane {

/// A colored shadow cast inside (`inner`) or outside (`outer`) a layer, at an offset (x, y).
class Shadow {
 public:
#define ORVANE_SHADOW_KIND(C) C(inner, "inner") C(outer, "outer")
  /// Whether the shadow falls inside the layer's outline or outside it.
  ORVANE_ENUM(Kind, ORVANE_SHADOW_KIND)

  // Older documents carry no spread; such a shadow does not spread.
#define ORVANE_SHADOW_FIELDS(F)                                                    \
  F(kind, Kind, std::optional<Kind>, "type", tolerant, whenPresent, given, plain)  \
  F(x, X, double, "offsetX", required, always, given, plain)                       \
  F(y, Y, double, "offsetY", required, always, given, plain)                       \
  F(blurRadius, BlurRadius, double, "blurRadius", required, always, given, plain)  \
  F(spread, Spread, double, "spread", orEmpty, always, given, plain)               \
  F(color, Color, Ref<orvane::Color>, "color", required, always, given, plain)
  ORVANE_FIELDS(Shadow, ORVANE_SHADOW_FIELDS)

 public:
  /// Takes all six fields; a `spread` of 0 does not spread.
  static Ref<Shadow> make(Fields fields);
  /// Fails unless "offsetX", "offsetY", "blurRadius" and "color" are there and valid; a
  /// missing "spread" is 0 and an unknown "type" leaves no kind.
  static Ref<Shadow> decode(const Decoder& decoder);
  /// Writes every member, "spread" even when 0; "type" only when there is a kind.
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Shadow::Kind, "Kind", ORVANE_SHADOW_KIND, false)

}  // namespace orvane
