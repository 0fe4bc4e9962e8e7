#include <orvane/snapshot/Link.hpp>

#include <orvane/values/Geometry.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Link> Link::make(std::optional<Identifier> sourceIdentifier, Rect frame,
                     Ref<Destination> destination) {
  return makeRef<Link>(Passkey<Link>{}, std::move(sourceIdentifier), frame,
                                std::move(destination));
}

Ref<Link> Link::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto sourceIdentifier = c.decodeIfPresent<Identifier>(K::sourceIdentifier);
  auto frame = c.decode<Rect>(K::frame);
  auto destination = c.decodeIfPresent<Ref<Destination>>(K::destination);
  return make(std::move(sourceIdentifier), frame, std::move(destination));
}

void Link::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::sourceIdentifier, sourceIdentifier_);
  c.encode(K::frame, frame_);
  c.encodeIfPresent(K::destination, destination_);
}

void Link::visitFields(FieldVisitor& v) const {
  v.field("sourceIdentifier", sourceIdentifier_);
  v.field("frame", frame_);
  v.field("destination", destination_);
}

}  // namespace orvane
