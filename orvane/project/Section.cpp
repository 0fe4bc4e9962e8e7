#include <orvane/project/Section.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Section, ORVANE_SECTION_FIELDS)

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
