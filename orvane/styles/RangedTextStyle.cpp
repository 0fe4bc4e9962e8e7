#include <orvane/styles/RangedTextStyle.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<RangedTextStyle> RangedTextStyle::make(Range range, Ref<TextStyle> textStyle) {
  return makeRef<RangedTextStyle>(Passkey<RangedTextStyle>{}, range,
                                           std::move(textStyle));
}

Ref<RangedTextStyle> RangedTextStyle::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto range = c.decode<Range>(K::range);
  auto textStyle = c.decode<Ref<TextStyle>>(K::textStyle);
  return make(range, std::move(textStyle));
}

void RangedTextStyle::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::range, range_);
  c.encode(K::textStyle, textStyle_);
}

void RangedTextStyle::visitFields(FieldVisitor& v) const {
  v.field("range", range_);
  v.field("textStyle", textStyle_);
}

}  // namespace orvane
