// A group of screens, in the order in which they are shown.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

class Project;

/// Names its screens by identifier; the project resolves them. Refers weakly to its project.
class Section {
 public:
#define ORVANE_SECTION_FIELDS(F)                                                                \
  F(identifier, Identifier, Identifier, "_id", required, unlessLocal, localId, plain)           \
  F(name, Name, std::string, "name", required, always, given, plain)                            \
  F(description, Description, std::optional<std::string>, "description", optional, whenPresent, \
    given, plain)                                                                               \
  F(screenIdentifiers, ScreenIdentifiers, std::vector<Identifier>, "screens", required, always, \
    given, plain)                                                                               \
  F(project, Project, WeakRef<orvane::Project>, none, none, never, none, backRef)
  ORVANE_FIELDS(Section, ORVANE_SECTION_FIELDS)

 public:
  class Partial;

// What the decode-only forms of a section and a component section read; both kinds use the
// same three key strings.
#define ORVANE_SECTION_PARTIAL_FIELDS(P)                                   \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly) \
  P(name, Name, std::optional<std::string>, optional, readOnly)            \
  P(description, Description, std::optional<std::string>, optional, readOnly)

  /// Takes the fields; `project` stays empty until a project adopts the section.
  static Ref<Section> make(Fields fields);
  /// Fails without "_id", "name" or "screens" (a list of identifiers); "description" may be
  /// missing.
  static Ref<Section> decode(const Decoder& decoder);
  /// Writes "_id" only for an identifier the service assigned (not a local one).
  void encode(Encoder& encoder) const;
};

/// The decode-only subset of a section; every member optional.
class Section::Partial {
  ORVANE_PARTIAL_FIELDS(ORVANE_SECTION_PARTIAL_FIELDS)
};

}  // namespace orvane
