// A named text style of a project's style guide.
#pragma once

#include <optional>
#include <string>

#include <orvane/styles/TextStyle.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

/// A text style with the service's identifier, a display name and the identifier of the style
/// in the source document it was taken from, coded in one object beside the style's members.
/// Made only with its own `make` or by decoding.
class ProjectTextStyle : public TextStyle {
 public:
  class Partial;

#define ORVANE_PROJECT_TEXT_STYLE_FIELDS(F)                                              \
  F(identifier, Identifier, Identifier, "_id", required, never, localId, plain)          \
  F(name, Name, std::string, "name", required, always, given, plain)                     \
  F(sourceIdentifier, SourceIdentifier, std::optional<Identifier>, "sourceId", optional, \
    whenPresent, given, plain)
#define ORVANE_PROJECT_TEXT_STYLE_MAKE(F) \
  ORVANE_PROJECT_TEXT_STYLE_FIELDS(F) ORVANE_TEXT_STYLE_FIELDS(F)
  ORVANE_OWN_FIELDS(ProjectTextStyle, TextStyle, ORVANE_PROJECT_TEXT_STYLE_FIELDS,
                    ORVANE_PROJECT_TEXT_STYLE_MAKE)

 public:
  /// Hides the plain style's `make`, which would leave a project text style without identity.
  static Ref<ProjectTextStyle> make(Fields fields);
  /// Reads the required "_id" and "name" and an optional "sourceId", then the style's members
  /// from the same object.
  static Ref<ProjectTextStyle> decode(const Decoder& decoder);
  /// Writes the name and source, then the style; the identifier stays out: the service
  /// assigns it.
  void encode(Encoder& encoder) const override;
  /// The style's members, then the project text style's own fields.
  void visitFields(FieldVisitor& visitor) const override;
  /// Writes "_id", "name" and "sourceId", then the style, in one object: what `decode` reads.
  void encodeDocument(Encoder& encoder) const override;
  /// "_id", "name" and "sourceId" beside the members of a text style.
  static void describeSchema(SchemaVisitor& visitor);
};

/// The decode-only subset of a project text style.
class ProjectTextStyle::Partial {
#define ORVANE_PROJECT_TEXT_STYLE_PARTIAL_FIELDS(P)                        \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly) \
  P(name, Name, std::optional<std::string>, optional, readOnly)            \
  P(color, Color, Ref<orvane::Color>, optional, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_PROJECT_TEXT_STYLE_PARTIAL_FIELDS)
};

}  // namespace orvane
