// A text style applied to a range of a text layer's characters.
#pragma once

#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/styles/TextStyle.hpp>

namespace orvane {

class RangedTextStyle {
 public:
  struct CodingKeys {
    static constexpr std::string_view range = "range";
    static constexpr std::string_view textStyle = "style";
  };

  RangedTextStyle(Passkey<RangedTextStyle>, Range range, Ref<TextStyle> textStyle)
      : range_(range), textStyle_(std::move(textStyle)) {}

  static Ref<RangedTextStyle> make(Range range, Ref<TextStyle> textStyle);
  static Ref<RangedTextStyle> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  Range range() const { return range_; }
  void setRange(Range value) { range_ = value; }
  const Ref<TextStyle>& textStyle() const { return textStyle_; }
  void setTextStyle(Ref<TextStyle> value) { textStyle_ = std::move(value); }

 private:
  Range range_;
  Ref<TextStyle> textStyle_;
};

}  // namespace orvane
