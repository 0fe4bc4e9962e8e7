#include <orvane/styles/Border.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Border> Border::make(std::optional<Position> position, double thickness, Ref<Fill> fill) {
  return makeRef<Border>(Passkey<Border>{}, position, thickness, std::move(fill));
}

Ref<Border> Border::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto position = c.decodeTolerant<Position>(K::position);
  auto thickness = c.decodeDouble(K::thickness);
  auto fill = Fill::decode(decoder);
  return make(position, thickness, std::move(fill));
}

void Border::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::position, position_);
  c.encode(K::thickness, thickness_);
  if (fill_) fill_->encode(encoder);
}

void Border::visitFields(FieldVisitor& v) const {
  v.field("position", position_);
  v.field("thickness", thickness_);
  v.field("fill", fill_);
}

}  // namespace orvane
