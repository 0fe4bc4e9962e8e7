// A text style applied to a range of a text layer's characters.
#pragma once

#include <orvane/coding/Fields.hpp>
#include <orvane/styles/TextStyle.hpp>
#include <orvane/values/Geometry.hpp>

namespace orvane {

class RangedTextStyle {
 public:
#define ORVANE_RANGED_TEXT_STYLE_FIELDS(F)                                       \
  F(range, Range, orvane::Range, "range", required, always, given, plain)        \
  F(textStyle, TextStyle, Ref<orvane::TextStyle>, "style", required, always, given, plain)
  ORVANE_FIELDS(RangedTextStyle, ORVANE_RANGED_TEXT_STYLE_FIELDS)

 public:
  static Ref<RangedTextStyle> make(Fields fields);
  static Ref<RangedTextStyle> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
