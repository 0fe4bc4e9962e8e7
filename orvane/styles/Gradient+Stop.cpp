#include <orvane/styles/Gradient+Stop.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Gradient::Stop> Gradient::Stop::make(double position, Ref<Color> color) {
  return makeRef<Stop>(Passkey<Stop>{}, position, std::move(color));
}

Ref<Gradient::Stop> Gradient::Stop::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto position = c.decodeDouble(K::position);
  auto color = c.decode<Ref<Color>>(K::color);
  return make(position, std::move(color));
}

void Gradient::Stop::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::position, position_);
  c.encode(K::color, color_);
}

void Gradient::Stop::visitFields(FieldVisitor& v) const {
  v.field("position", position_);
  v.field("color", color_);
}

}  // namespace orvane
