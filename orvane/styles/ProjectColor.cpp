#include <orvane/styles/ProjectColor.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<ProjectColor> ProjectColor::make(std::string name, double red, double green, double blue,
                                     double alpha, Identifier identifier) {
  return makeRef<ProjectColor>(Passkey<ProjectColor>{}, std::move(identifier), std::move(name), red,
                               green, blue, alpha);
}

Ref<ProjectColor> ProjectColor::decode(const Decoder& decoder) {
  using K = ProjectColorCodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto name = c.decodeString(K::name);
  auto color = makeRef<ProjectColor>(Passkey<ProjectColor>{}, std::move(identifier),
                                     std::move(name), 0, 0, 0, 0);
  color->decodeComponents(decoder);
  return color;
}

void ProjectColor::encode(Encoder& encoder) const {
  // The identifier stays out: the service assigns it.
  encoder.container().encode(ProjectColorCodingKeys::name, name_);
  Color::encode(encoder);
}

void ProjectColor::visitFields(FieldVisitor& v) const {
  Color::visitFields(v);
  v.field("identifier", identifier_);
  v.field("name", name_);
}

ProjectColor::Partial ProjectColor::Partial::decode(const Decoder& decoder) {
  using P = ProjectColorCodingKeys;
  using K = Color::CodingKeys;
  Partial p;
  auto own = decoder.container();
  p.identifier_ = own.decodeIfPresent<Identifier>(P::identifier);
  p.name_ = own.decodeStringIfPresent(P::name);
  auto color = decoder.container();
  p.red_ = color.decodeDoubleIfPresent(K::red);
  p.green_ = color.decodeDoubleIfPresent(K::green);
  p.blue_ = color.decodeDoubleIfPresent(K::blue);
  p.alpha_ = color.decodeDoubleIfPresent(K::alpha);
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
