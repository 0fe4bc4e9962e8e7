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

  /// Takes the fields; `project` stays empty until a project adopts the section.
  static Ref<Section> make(Fields fields);
  /// Fails without "_id", "name" or "screens" (a list of identifiers); "description" may be
  /// missing.
  static Ref<Section> decode(const Decoder& decoder);
  /// Writes "_id" only for an identifier the service assigned (not a local one).
  void encode(Encoder& encoder) const;
};

/// What the decode-only forms of a section and a component section hold: "_id", "name" and
/// "description", each optional.
class SectionPartial {
 public:
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<std::string>& description() const { return description_; }

 protected:
  SectionPartial() = default;
  void read(const Decoder& decoder);

 private:
  std::optional<Identifier> identifier_;
  std::optional<std::string> name_;
  std::optional<std::string> description_;
};

class Section::Partial : public SectionPartial {
 public:
  static Partial decode(const Decoder& decoder);

 private:
  Partial() = default;
};

}  // namespace orvane
