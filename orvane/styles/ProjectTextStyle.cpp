#include <orvane/internal/MakeRef.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>

namespace orvane {

Ref<ProjectTextStyle> ProjectTextStyle::make(Fields fields) {
  auto style = makeRef<ProjectTextStyle>(Passkey<ProjectTextStyle>{});
  style->identifier_ = std::move(fields.identifier);
  style->name_ = std::move(fields.name.value);
  style->sourceIdentifier_ = std::move(fields.sourceIdentifier.value);
  style->storeFields({.fontName = std::move(fields.fontName.value),
                      .fontSize = fields.fontSize.value,
                      .lineHeight = fields.lineHeight.value,
                      .letterSpacing = fields.letterSpacing.value,
                      .color = std::move(fields.color.value),
                      .alignment = fields.alignment.value});
  return style;
}

Ref<ProjectTextStyle> ProjectTextStyle::decode(const Decoder& decoder) {
  auto style = makeRef<ProjectTextStyle>(Passkey<ProjectTextStyle>{});
  // The style's members stand beside the own fields, in the same object.
  auto c = decoder.container();
  style->decodeOwnFields(decoder, c);
  style->decodeFields(decoder, c);
  return style;
}

void ProjectTextStyle::decodeOwnFields([[maybe_unused]] const Decoder& decoder,
                                       const KeyedDecodingContainer& c) {
  ORVANE_PROJECT_TEXT_STYLE_FIELDS(ORVANE_FIELD_READ)
}

void ProjectTextStyle::encode(Encoder& encoder) const {
  auto c = encoder.container();
  ORVANE_PROJECT_TEXT_STYLE_FIELDS(ORVANE_FIELD_WRITE)
  encodeFields(c);
}

void ProjectTextStyle::visitFields(FieldVisitor& visitor) const {
  TextStyle::visitFields(visitor);
  ORVANE_PROJECT_TEXT_STYLE_FIELDS(ORVANE_FIELD_VISIT)
}

ProjectTextStyle::Partial ProjectTextStyle::Partial::decode(const Decoder& decoder) {
  using P = CodingKeys;
  Partial p;
  auto c = decoder.container();
  p.identifier_ = c.decodeIfPresent<Identifier>(P::identifier);
  p.name_ = c.decodeStringIfPresent(P::name);
  p.color_ = c.decodeIfPresent<Ref<Color>>(TextStyle::CodingKeys::color);
  return p;
}

void ProjectTextStyle::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("color", color_);
}

}  // namespace orvane
