#include <orvane/internal/MakeRef.hpp>
#include <orvane/styles/ProjectColor.hpp>

namespace orvane {

Ref<ProjectColor> ProjectColor::make(Fields fields) {
  auto color = makeRef<ProjectColor>(Passkey<ProjectColor>{});
  color->identifier_ = std::move(fields.identifier);
  color->name_ = std::move(fields.name.value);
  color->storeFields({.red = fields.red.value,
                      .green = fields.green.value,
                      .blue = fields.blue.value,
                      .alpha = fields.alpha.value});
  return color;
}

Ref<ProjectColor> ProjectColor::decode(const Decoder& decoder) {
  auto color = makeRef<ProjectColor>(Passkey<ProjectColor>{});
  // The components stand beside the own fields, in the same object.
  auto c = decoder.container();
  color->decodeOwnFields(decoder, c);
  color->decodeFields(decoder, c);
  return color;
}

void ProjectColor::decodeOwnFields([[maybe_unused]] const Decoder& decoder,
                                   const KeyedDecodingContainer& c) {
  ORVANE_PROJECT_COLOR_FIELDS(ORVANE_FIELD_READ)
}

void ProjectColor::encode(Encoder& encoder) const {
  auto c = encoder.container();
  ORVANE_PROJECT_COLOR_FIELDS(ORVANE_FIELD_WRITE)
  encodeFields(c);
}

void ProjectColor::visitFields(FieldVisitor& visitor) const {
  Color::visitFields(visitor);
  ORVANE_PROJECT_COLOR_FIELDS(ORVANE_FIELD_VISIT)
}

ProjectColor::Partial ProjectColor::Partial::decode(const Decoder& decoder) {
  using P = CodingKeys;
  using K = Color::CodingKeys;
  Partial p;
  auto c = decoder.container();
  p.identifier_ = c.decodeIfPresent<Identifier>(P::identifier);
  p.name_ = c.decodeStringIfPresent(P::name);
  p.red_ = c.decodeDoubleIfPresent(K::red);
  p.green_ = c.decodeDoubleIfPresent(K::green);
  p.blue_ = c.decodeDoubleIfPresent(K::blue);
  p.alpha_ = c.decodeDoubleIfPresent(K::alpha);
  return p;
}

void ProjectColor::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("red", red_);
  v.field("green", green_);
  v.field("blue", blue_);
  v.field("alpha", alpha_);
}

}  // namespace orvane
