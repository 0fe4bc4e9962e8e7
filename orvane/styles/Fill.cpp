#include <orvane/styles/Fill.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

void Fill::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* c = asColor()) v.field("color", c->color);
  if (const auto* g = asGradient()) v.field("gradient", g->gradient);
}

Ref<Fill> Fill::make(std::optional<Kind> kind, std::optional<double> opacity,
                     std::optional<BlendMode> blendMode) {
  return makeRef<Fill>(Passkey<Fill>{}, std::move(kind), opacity, blendMode);
}

Ref<Fill> Fill::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  std::optional<Kind> kind;
  // Only the member of the case named by "fillType" is read; without a known case neither is.
  if (auto key = c.decodeTolerant<Kind::Key>(K::kind)) {
    switch (*key) {
      case Kind::Key::color:
        kind = Kind::color(c.decode<Ref<Color>>(K::color));
        break;
      case Kind::Key::gradient:
        kind = Kind::gradient(c.decode<Ref<Gradient>>(K::gradient));
        break;
    }
  }
  auto opacity = c.decodeDoubleIfPresent(K::opacity);
  auto blendMode = c.decodeTolerant<BlendMode>(K::blendMode);
  return make(std::move(kind), opacity, blendMode);
}

void Fill::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  if (kind_) {
    c.encode(K::kind, kind_->key());
    if (const auto* color = kind_->asColor()) c.encode(K::color, color->color);
    if (const auto* gradient = kind_->asGradient()) c.encode(K::gradient, gradient->gradient);
  }
  c.encodeIfPresent(K::opacity, opacity_);
  c.encodeIfPresent(K::blendMode, blendMode_);
}

void Fill::visitFields(FieldVisitor& v) const {
  v.field("kind", kind_);
  v.field("opacity", opacity_);
  v.field("blendMode", blendMode_);
}

}  // namespace orvane
