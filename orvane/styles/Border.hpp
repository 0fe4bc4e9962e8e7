// A stroke along a layer's outline.
#pragma once

#include <optional>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/styles/Fill.hpp>

namespace orvane {

/// A stroke of a given thickness and position, painted with a fill whose members stand in the
/// border's own object rather than under a key of their own.
class Border {
 public:
#define ORVANE_BORDER_POSITION(C) C(center, "center") C(inside, "inside") C(outside, "outside")
  /// Where the stroke lies relative to the outline.
  ORVANE_ENUM(Position, ORVANE_BORDER_POSITION)

  // The fill's members share the border's object.
#define ORVANE_BORDER_FIELDS(F)                                                                 \
  F(position, Position, std::optional<Position>, "position", tolerant, whenPresent, given,     \
    plain)                                                                                      \
  F(thickness, Thickness, double, "thickness", required, always, given, plain)                  \
  F(fill, Fill, Ref<orvane::Fill>, none, payload, custom, given, plain)
  ORVANE_FIELDS(Border, ORVANE_BORDER_FIELDS)

 public:
  /// Takes the position (`std::nullopt` for none), the thickness and the fill.
  static Ref<Border> make(Fields fields);
  /// Reads the fill from the border's own object, so a fill that fails fails the border; also
  /// fails without a numeric "thickness". An unknown "position" leaves none.
  static Ref<Border> decode(const Decoder& decoder);
  /// Writes "position" when present and "thickness", then the fill's members beside them; a
  /// null fill writes none.
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Border::Position, "Position", ORVANE_BORDER_POSITION, false)

}  // namespace orvane
