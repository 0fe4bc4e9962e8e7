#include <orvane/internal/MakeRef.hpp>
#include <orvane/styles/ProjectColor.hpp>

namespace orvane {

ORVANE_OWN_FIELDS_DEFINE(ProjectColor, ORVANE_PROJECT_COLOR_FIELDS, ORVANE_PROJECT_COLOR_MAKE)
ORVANE_RECORD_MAKE_DEFINE(ProjectColor)

Ref<ProjectColor> ProjectColor::decode(const Decoder& decoder) {
  auto color = makeRef<ProjectColor>(Passkey<ProjectColor>{});
  // The components stand beside the own fields, in the same object.
  auto c = decoder.container();
  color->decodeOwnFields(decoder, c);
  color->decodeFields(decoder, c);
  return color;
}

void ProjectColor::encode(Encoder& encoder) const {
  auto c = encoder.container();
  encodeOwnFields(c);
  encodeFields(c);
}

void ProjectColor::visitFields(FieldVisitor& visitor) const {
  Color::visitFields(visitor);
  visitOwnFields(visitor);
}

ProjectColor::Partial ProjectColor::Partial::decode(const Decoder& decoder) {
  using K = CodingKeys;
  Partial p;
  auto c = decoder.container();
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.name_ = c.decodeStringIfPresent(K::name);
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
