// A blur of a layer or of what lies behind it.
#pragma once

#include <optional>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>

namespace orvane {

/// A blur of a layer (`gaussian`) or of what lies behind it (`background`).
class Blur {
 public:
#define ORVANE_BLUR_KIND(C) C(gaussian, "gaussian") C(background, "background")
  /// What is blurred: the layer itself or what shows through it.
  ORVANE_ENUM(Kind, ORVANE_BLUR_KIND)

#define ORVANE_BLUR_FIELDS(F)                                                     \
  F(kind, Kind, std::optional<Kind>, "type", tolerant, whenPresent, given, plain) \
  F(radius, Radius, double, "radius", required, always, given, plain)
  ORVANE_FIELDS(Blur, ORVANE_BLUR_FIELDS)

 public:
  /// Takes the kind (`std::nullopt` for none) and the radius.
  static Ref<Blur> make(Fields fields);
  /// Fails without a numeric "radius"; an unknown or unreadable "type" leaves no kind.
  static Ref<Blur> decode(const Decoder& decoder);
  /// Writes "type" when there is a kind, then "radius".
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Blur::Kind, "Kind", ORVANE_BLUR_KIND, false)

}  // namespace orvane
