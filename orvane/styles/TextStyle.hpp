// How a run of text is set.
#pragma once

#include <optional>
#include <string>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/values/Color.hpp>

namespace orvane {

/// Font, size, line height, letter spacing, color and alignment.
class TextStyle : public detail::OverridableFields {
 public:
#define ORVANE_TEXT_STYLE_ALIGNMENT(C) \
  C(left, "left") C(center, "center") C(right, "right") C(justify, "justify")
  /// How lines are aligned.
  ORVANE_ENUM(Alignment, ORVANE_TEXT_STYLE_ALIGNMENT)

#define ORVANE_TEXT_STYLE_FIELDS(F)                                                             \
  F(fontName, FontName, std::string, "fontFace", required, always, given, plain)                \
  F(fontSize, FontSize, double, "fontSize", required, always, given, plain)                     \
  F(lineHeight, LineHeight, std::optional<double>, "lineHeight", optional, whenPresent, given,  \
    plain)                                                                                      \
  F(letterSpacing, LetterSpacing, std::optional<double>, "letterSpacing", optional, whenPresent, \
    given, plain)                                                                               \
  F(color, Color, Ref<orvane::Color>, "color", optional, whenPresent, given, plain)             \
  F(alignment, Alignment, std::optional<Alignment>, "textAlign", tolerant, whenPresent, given,  \
    plain)
  ORVANE_FIELDS(TextStyle, ORVANE_TEXT_STYLE_FIELDS)

 public:
  /// Takes every field; only font name and size need a value.
  static Ref<TextStyle> make(Fields fields);
  /// Fails without a string "fontFace" or a numeric "fontSize"; the other members are optional
  /// and an unknown "textAlign" leaves no alignment.
  static Ref<TextStyle> decode(const Decoder& decoder);
  /// Writes "fontFace" and "fontSize", then each other member when present.
  virtual void encode(Encoder& encoder) const;

 protected:
  ///@{

  /// For a subclass, whose own `make` or decoding fills the style.
  TextStyle() = default;
  TextStyle(const TextStyle&) = default;
  TextStyle& operator=(const TextStyle&) = default;
  ///@}
};

ORVANE_ENUM_TRAITS(TextStyle::Alignment, "Alignment", ORVANE_TEXT_STYLE_ALIGNMENT, false)

}  // namespace orvane
