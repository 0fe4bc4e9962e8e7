#include <orvane/styles/Shadow.hpp>

namespace orvane {

Ref<Shadow> Shadow::make(std::optional<Kind> kind, double x, double y, double blurRadius,
                         double spread, Ref<Color> color) {
  return makeRef<Shadow>(Passkey<Shadow>{}, kind, x, y, blurRadius, spread,
                                  std::move(color));
}

Ref<Shadow> Shadow::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto kind = c.decodeTolerant<Kind>(K::kind);
  auto x = c.decodeDouble(K::x);
  auto y = c.decodeDouble(K::y);
  auto blurRadius = c.decodeDouble(K::blurRadius);
  // Older documents carry no spread; such a shadow does not spread.
  auto spread = c.decodeDoubleIfPresent(K::spread).value_or(0);
  auto color = c.decode<Ref<Color>>(K::color);
  return make(kind, x, y, blurRadius, spread, std::move(color));
}

void Shadow::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::kind, kind_);
  c.encode(K::x, x_);
  c.encode(K::y, y_);
  c.encode(K::blurRadius, blurRadius_);
  c.encode(K::spread, spread_);
  c.encode(K::color, color_);
}

void Shadow::visitFields(FieldVisitor& v) const {
  v.field("kind", kind_);
  v.field("x", x_);
  v.field("y", y_);
  v.field("blurRadius", blurRadius_);
  v.field("spread", spread_);
  v.field("color", color_);
}

}  // namespace orvane
