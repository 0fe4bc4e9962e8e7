// A text style applied to a range of a text layer's characters.
#pragma once

#include <orvane/coding/Fields.hpp>
#include <orvane/styles/TextStyle.hpp>
#include <orvane/values/Geometry.hpp>

namespace orvane {

/// The style of one run of a text layer: which characters, and how they are set.
class RangedTextStyle {
 public:
#define ORVANE_RANGED_TEXT_STYLE_FIELDS(F)                                       \
  F(range, Range, orvane::Range, "range", required, always, given, plain)        \
  F(textStyle, TextStyle, Ref<orvane::TextStyle>, "style", required, always, given, plain)
  ORVANE_FIELDS(RangedTextStyle, ORVANE_RANGED_TEXT_STYLE_FIELDS)

 public:
  /// Takes the range and the style; the range is not checked against any text.
  static Ref<RangedTextStyle> make(Fields fields);
  /// Fails without a "range" of two integers or a valid "style".
  static Ref<RangedTextStyle> decode(const Decoder& decoder);
  /// Writes "range" and "style".
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
