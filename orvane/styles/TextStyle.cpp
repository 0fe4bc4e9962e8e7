#include <orvane/styles/TextStyle.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<TextStyle> TextStyle::make(std::string fontName, double fontSize,
                               std::optional<double> lineHeight,
                               std::optional<double> letterSpacing, Ref<Color> color,
                               std::optional<Alignment> alignment) {
  return makeRef<TextStyle>(Passkey<TextStyle>{}, std::move(fontName), fontSize,
                                     lineHeight, letterSpacing, std::move(color), alignment);
}

void TextStyle::decodeStyle(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  fontName_ = c.decodeString(K::fontName);
  fontSize_ = c.decodeDouble(K::fontSize);
  lineHeight_ = c.decodeDoubleIfPresent(K::lineHeight);
  letterSpacing_ = c.decodeDoubleIfPresent(K::letterSpacing);
  color_ = c.decodeIfPresent<Ref<Color>>(K::color);
  alignment_ = c.decodeTolerant<Alignment>(K::alignment);
}

Ref<TextStyle> TextStyle::decode(const Decoder& decoder) {
  auto style = makeRef<TextStyle>(Passkey<TextStyle>{}, std::string(), 0, std::nullopt,
                                           std::nullopt, nullptr, std::nullopt);
  style->decodeStyle(decoder);
  return style;
}

void TextStyle::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::fontName, fontName_);
  c.encode(K::fontSize, fontSize_);
  c.encodeIfPresent(K::lineHeight, lineHeight_);
  c.encodeIfPresent(K::letterSpacing, letterSpacing_);
  c.encodeIfPresent(K::color, color_);
  c.encodeIfPresent(K::alignment, alignment_);
}

void TextStyle::visitFields(FieldVisitor& v) const {
  v.field("fontName", fontName_);
  v.field("fontSize", fontSize_);
  v.field("lineHeight", lineHeight_);
  v.field("letterSpacing", letterSpacing_);
  v.field("color", color_);
  v.field("alignment", alignment_);
}

}  // namespace orvane
