#include <orvane/snapshot/Destination.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

void Destination::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* screen = asScreen()) v.field("name", screen->name);
}

Ref<Destination> Destination::make(std::optional<Kind> kind) {
  return makeRef<Destination>(Passkey<Destination>{}, std::move(kind));
}

Ref<Destination> Destination::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  std::optional<Kind> kind;
  if (auto key = c.decodeTolerant<Kind::Key>(K::kind)) {
    switch (*key) {
      case Kind::Key::previous:
        kind = Kind::previous();
        break;
      case Kind::Key::screen:
        kind = Kind::screen(c.decodeString(K::name));
        break;
    }
  }
  return make(std::move(kind));
}

void Destination::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  if (!kind_) return;
  c.encode(K::kind, kind_->key());
  if (const auto* screen = kind_->asScreen()) c.encode(K::name, screen->name);
}

void Destination::visitFields(FieldVisitor& v) const {
  v.field("kind", kind_);
}

}  // namespace orvane
