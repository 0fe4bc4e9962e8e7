#include <orvane/project/Section.hpp>

#include <orvane/project/Project.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Section> Section::make(std::string name, std::optional<std::string> description,
                           std::vector<Identifier> screenIdentifiers, Identifier identifier) {
  return makeRef<Section>(Passkey<Section>{}, std::move(identifier), std::move(name),
                          std::move(description), std::move(screenIdentifiers));
}

Ref<Section> Section::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto name = c.decodeString(K::name);
  auto description = c.decodeStringIfPresent(K::description);
  auto screenIdentifiers = c.decode<std::vector<Identifier>>(K::screenIdentifiers);
  return makeRef<Section>(Passkey<Section>{}, std::move(identifier), std::move(name),
                          std::move(description), std::move(screenIdentifiers));
}

void Section::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  if (!identifier_.isLocal()) c.encode(K::identifier, identifier_);
  c.encode(K::name, name_);
  c.encodeIfPresent(K::description, description_);
  c.encode(K::screenIdentifiers, screenIdentifiers_);
}

void Section::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("description", description_);
  v.field("screenIdentifiers", screenIdentifiers_);
  v.field("project", project_);
}

// Both section kinds use the same three key strings.
void SectionPartial::read(const Decoder& decoder) {
  using K = Section::CodingKeys;
  auto c = decoder.container();
  identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  name_ = c.decodeStringIfPresent(K::name);
  description_ = c.decodeStringIfPresent(K::description);
}

Section::Partial Section::Partial::decode(const Decoder& decoder) {
  Partial p;
  p.read(decoder);
  return p;
}

void SectionPartial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("description", description_);
}

}  // namespace orvane
