// A named color of a project's style guide.
#pragma once

#include <optional>
#include <string>

#include <orvane/values/Color.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

/// A color with the service's identifier and a display name, coded in one object beside the
/// color's own members. It is made only with its own `make` or by decoding: the plain color's
/// `make` would leave it without identity.
class ProjectColor : public Color {
 public:
  class Partial;

#define ORVANE_PROJECT_COLOR_FIELDS(F)                                          \
  F(identifier, Identifier, Identifier, "_id", required, never, localId, plain) \
  F(name, Name, std::string, "name", required, always, given, plain)
#define ORVANE_PROJECT_COLOR_MAKE(F) ORVANE_PROJECT_COLOR_FIELDS(F) ORVANE_COLOR_FIELDS(F)
  ORVANE_OWN_FIELDS(ProjectColor, Color, ORVANE_PROJECT_COLOR_FIELDS, ORVANE_PROJECT_COLOR_MAKE)

 public:
  /// Hides the plain color's `make`, which would leave a project color without identity.
  static Ref<ProjectColor> make(Fields fields);
  /// Reads the required "_id" and "name", then the components from the same object.
  static Ref<ProjectColor> decode(const Decoder& decoder);
  /// Writes the name, then the components; the identifier stays out: the service assigns it.
  void encode(Encoder& encoder) const override;
  /// The components, then the project color's own fields.
  void visitFields(FieldVisitor& visitor) const override;
  /// Writes "_id" and "name", then the components, in one object: what `decode` reads.
  void encodeDocument(Encoder& encoder) const override;
  /// "_id" and "name" beside the members of a color.
  static void describeSchema(SchemaVisitor& visitor);
};

/// The decode-only subset of a project color; every member optional.
class ProjectColor::Partial {
#define ORVANE_PROJECT_COLOR_PARTIAL_FIELDS(P)                             \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly) \
  P(name, Name, std::optional<std::string>, optional, readOnly)            \
  P(red, Red, std::optional<double>, optional, readOnly)                   \
  P(green, Green, std::optional<double>, optional, readOnly)               \
  P(blue, Blue, std::optional<double>, optional, readOnly)                 \
  P(alpha, Alpha, std::optional<double>, optional, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_PROJECT_COLOR_PARTIAL_FIELDS)
};

}  // namespace orvane
