// A reusable element of the style guide with its own history of versions.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <orvane/project/VersionCollection.hpp>

namespace orvane {

class ComponentSection;

/// A version collection filed in a component section, which sets `section` and passes the
/// project down. Codes exactly the members of a version collection.
class Component : public VersionCollection {
 public:
  class Partial;

  /// `section` is set by the component section holding this component.
#define ORVANE_COMPONENT_FIELDS(F) \
  F(section, Section, WeakRef<ComponentSection>, none, none, never, none, backRef)

  /// What `make` takes: the collection's fields, none with a default. Written out because
  /// designated initializers cannot reach a base's members.
  struct Fields {
    Required<Identifier> identifier;
    Required<std::string> name;
    Required<std::string> description;
    Required<Ref<Version>> latestVersion;
    Required<std::optional<Identifier>> sourceIdentifier;
    Required<std::optional<std::vector<std::string>>> tags;
    Required<std::optional<std::vector<Ref<Version>>>> versions;
  };

  explicit Component(Passkey<Component>) {}

  static Ref<Component> make(Fields fields);
  static Ref<Component> decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const override;

  /// "componentSections/<section path>/components/<component>"; a fatal stop without a section.
  std::string pathComponent() const override;
  /// "projects/<project>/<pathComponent>/versions"; a fatal stop without a project (checked
  /// first), then as `pathComponent` without a section.
  std::string versionsPath() const override;
  std::optional<std::string> pathComponentIfAvailable() const override;
  std::optional<std::string> versionsPathIfAvailable() const override;

  ORVANE_COMPONENT_FIELDS(ORVANE_FIELD_ACCESSORS)

 private:
  ORVANE_COMPONENT_FIELDS(ORVANE_FIELD_MEMBER)
};

/// The decode-only subset of a component; every member optional, nothing wired.
class Component::Partial : public VersionCollectionPartial {
 public:
  static Partial decode(const Decoder& decoder);

 private:
  Partial() = default;
};

}  // namespace orvane
