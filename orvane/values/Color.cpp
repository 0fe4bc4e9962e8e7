#include <orvane/values/Color.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Color> Color::make(double red, double green, double blue, double alpha) {
  return makeRef<Color>(Passkey<Color>{}, red, green, blue, alpha);
}

void Color::decodeComponents(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  red_ = c.decodeDouble(K::red);
  green_ = c.decodeDouble(K::green);
  blue_ = c.decodeDouble(K::blue);
  alpha_ = c.decodeDouble(K::alpha);
}

Ref<Color> Color::decode(const Decoder& decoder) {
  auto color = makeRef<Color>(Passkey<Color>{}, 0, 0, 0, 0);
  color->decodeComponents(decoder);
  return color;
}

void Color::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::red, red_);
  c.encode(K::green, green_);
  c.encode(K::blue, blue_);
  c.encode(K::alpha, alpha_);
}

void Color::visitFields(FieldVisitor& v) const {
  v.field("red", red_);
  v.field("green", green_);
  v.field("blue", blue_);
  v.field("alpha", alpha_);
}

}  // namespace orvane
