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

void ProjectColor::encodeDocument(Encoder& encoder) const {
  auto c = encoder.container();
  documentOwnFields(c);
  documentFields(c);
}

void ProjectColor::describeSchema(SchemaVisitor& visitor) {
  describeOwnFields(visitor);
  visitor.membersOf(Schema<Color>::shape);
}

void ProjectColor::visitFields(FieldVisitor& visitor) const {
  Color::visitFields(visitor);
  visitOwnFields(visitor);
}

ORVANE_PARTIAL_DEFINE(ProjectColor, ORVANE_PROJECT_COLOR_PARTIAL_FIELDS)

}  // namespace orvane
