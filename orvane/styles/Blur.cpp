#include <orvane/styles/Blur.hpp>

namespace orvane {

Ref<Blur> Blur::make(std::optional<Kind> kind, double radius) {
  return makeRef<Blur>(Passkey<Blur>{}, kind, radius);
}

Ref<Blur> Blur::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto kind = c.decodeTolerant<Kind>(K::kind);
  auto radius = c.decodeDouble(K::radius);
  return make(kind, radius);
}

void Blur::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::kind, kind_);
  c.encode(K::radius, radius_);
}

void Blur::visitFields(FieldVisitor& v) const {
  v.field("kind", kind_);
  v.field("radius", radius_);
}

}  // namespace orvane
