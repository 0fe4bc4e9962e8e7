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

  Component(Passkey<Component>, Fields fields) : VersionCollection(std::move(fields)) {}

  /// Every argument must be passed, the identifier and description included.
  static Ref<Component> make(Identifier identifier, std::string name, std::string description,
                             Ref<Version> latestVersion, std::optional<Identifier> sourceIdentifier,
                             std::optional<std::vector<std::string>> tags,
                             std::optional<std::vector<Ref<Version>>> versions);
  static Ref<Component> decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const override;

  /// "componentSections/<section path>/components/<component>"; a fatal stop without a section.
  std::string pathComponent() const override;
  /// "projects/<project>/<pathComponent>/versions"; a fatal stop without a project (checked
  /// first), then as `pathComponent` without a section.
  std::string versionsPath() const override;
  std::optional<std::string> pathComponentIfAvailable() const override;
  std::optional<std::string> versionsPathIfAvailable() const override;

  /// The component section holding this component; set by it, empty once it is gone.
  Ref<ComponentSection> section() const { return section_.lock(); }
  void setSection(const Ref<ComponentSection>& value) { section_ = value; }

 private:
  WeakRef<ComponentSection> section_;
};

/// The decode-only subset of a component; every member optional, nothing wired.
class Component::Partial : public VersionCollectionPartial {
 public:
  static Partial decode(const Decoder& decoder);

 private:
  Partial() = default;
};

}  // namespace orvane
