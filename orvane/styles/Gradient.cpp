#include <orvane/styles/Gradient.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Gradient::Gradient(Passkey<Gradient>, std::optional<Kind> kind, Point from, Point to,
                   std::optional<double> angle, std::optional<double> scale,
                   std::vector<Ref<Stop>> stops)
    : kind_(kind), from_(from), to_(to), angle_(angle), scale_(scale), stops_(std::move(stops)) {}

Ref<Gradient> Gradient::make(std::optional<Kind> kind, Point from, Point to,
                             std::optional<double> angle, std::optional<double> scale,
                             std::vector<Ref<Stop>> stops) {
  return makeRef<Gradient>(Passkey<Gradient>{}, kind, from, to, angle, scale,
                                    std::move(stops));
}

Ref<Gradient> Gradient::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto kind = c.decodeTolerant<Kind>(K::kind);
  auto from = c.decode<Point>(K::from);
  auto to = c.decode<Point>(K::to);
  auto angle = c.decodeDoubleIfPresent(K::angle);
  auto scale = c.decodeDoubleIfPresent(K::scale);
  auto stops = c.decode<std::vector<Ref<Stop>>>(K::stops);
  return make(kind, from, to, angle, scale, std::move(stops));
}

void Gradient::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::kind, kind_);
  c.encode(K::from, from_);
  c.encode(K::to, to_);
  c.encodeIfPresent(K::angle, angle_);
  c.encodeIfPresent(K::scale, scale_);
  c.encode(K::stops, stops_);
}

void Gradient::visitFields(FieldVisitor& v) const {
  v.field("kind", kind_);
  v.field("from", from_);
  v.field("to", to_);
  v.field("angle", angle_);
  v.field("scale", scale_);
  v.field("stops", stops_);
}

}  // namespace orvane
