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

  /// `section` is set by the component section holding this component. `make` takes the
  /// collection's fields, none with a default.
#define ORVANE_COMPONENT_FIELDS(F) \
  F(section, Section, WeakRef<ComponentSection>, none, none, never, none, backRef)
#define ORVANE_COMPONENT_MAKE(F) ORVANE_VERSION_COLLECTION_FIELDS(F) ORVANE_COMPONENT_FIELDS(F)
  ORVANE_OWN_FIELDS(Component, VersionCollection, ORVANE_COMPONENT_FIELDS, ORVANE_COMPONENT_MAKE,
                    ORVANE_FIELD_PARAM_GIVEN)

 public:
  /// Takes the collection's fields, each of which must be given (the identifier and the
  /// description have no default here), then points the versions back at the new component.
  static Ref<Component> make(Fields fields);
  /// Reads a version collection's members and wires its versions; section and project stay
  /// empty until a component section adopts the component.
  static Ref<Component> decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const override;

  /// "componentSections/<section path>/components/<component>"; a fatal stop without a section.
  std::string pathComponent() const override;
  /// "projects/<project>/<pathComponent>/versions"; a fatal stop without a project (checked
  /// first), then as `pathComponent` without a section.
  std::string versionsPath() const override;
  ///@{

  /// The paths, or no value while the section (for the versions path, also the project) is
  /// missing.
  std::optional<std::string> pathComponentIfAvailable() const override;
  std::optional<std::string> versionsPathIfAvailable() const override;
  ///@}
};

/// The decode-only subset of a component; every member optional, nothing wired.
class Component::Partial {
  ORVANE_PARTIAL_FIELDS(ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS)
};

}  // namespace orvane
