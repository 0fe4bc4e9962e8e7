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

void ProjectTextStyle::encodeDocument(Encoder& encoder) const {
  auto c = encoder.container();
  documentOwnFields(c);
  documentFields(c);
}

void ProjectTextStyle::describeSchema(SchemaVisitor& visitor) {
  describeOwnFields(visitor);
  visitor.membersOf(Schema<TextStyle>::shape);
}

void ProjectTextStyle::visitFields(FieldVisitor& visitor) const {
  TextStyle::visitFields(visitor);
  visitOwnFields(visitor);
}

ORVANE_PARTIAL_DEFINE(ProjectTextStyle, ORVANE_PROJECT_TEXT_STYLE_PARTIAL_FIELDS)

}  // namespace orvane
