#include <orvane/internal/MakeRef.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>

namespace orvane {

ORVANE_OWN_FIELDS_DEFINE(ProjectTextStyle, ORVANE_PROJECT_TEXT_STYLE_FIELDS,
                         ORVANE_PROJECT_TEXT_STYLE_MAKE)
ORVANE_RECORD_MAKE_DEFINE(ProjectTextStyle)

Ref<ProjectTextStyle> ProjectTextStyle::decode(const Decoder& decoder) {
  auto style = makeRef<ProjectTextStyle>(Passkey<ProjectTextStyle>{});
  // The style's members stand beside the own fields, in the same object.
  auto c = decoder.container();
  style->decodeOwnFields(decoder, c);
  style->decodeFields(decoder, c);
  return style;
}

void ProjectTextStyle::encode(Encoder& encoder) const {
  auto c = encoder.container();
  encodeOwnFields(c);
  encodeFields(c);
}

void ProjectTextStyle::visitFields(FieldVisitor& visitor) const {
  TextStyle::visitFields(visitor);
  visitOwnFields(visitor);
}

ProjectTextStyle::Partial ProjectTextStyle::Partial::decode(const Decoder& decoder) {
  using K = CodingKeys;
  Partial p;
  auto c = decoder.container();
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.name_ = c.decodeStringIfPresent(K::name);
  p.color_ = c.decodeIfPresent<Ref<Color>>(K::color);
  return p;
}

void ProjectTextStyle::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("color", color_);
}

}  // namespace orvane
