// A node of the style guide's component tree.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/project/Component.hpp>
#include <orvane/project/Section.hpp>

namespace orvane {

class Project;

/// Owns nested component sections and components; each nested section refers back through
/// `parent`, each component through `section`. The project is passed down the whole subtree on
/// every assignment of `project`, `sections` or `components`. A section placed inside its own
/// subtree, or made its own ancestor through `setParent`, is a programming error that stops the
/// process with `fatalError` when the tree is walked.
class ComponentSection : public std::enable_shared_from_this<ComponentSection> {
 public:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view description = "description";
    static constexpr std::string_view sections = "componentSections";
    static constexpr std::string_view components = "components";
  };

  class Partial;

  ComponentSection(Passkey<ComponentSection>, Identifier identifier, std::string name,
                   std::optional<std::string> description,
                   std::optional<std::vector<Ref<ComponentSection>>> sections,
                   std::optional<std::vector<Ref<Component>>> components)
      : identifier_(std::move(identifier)),
        name_(std::move(name)),
        description_(std::move(description)),
        sections_(std::move(sections)),
        components_(std::move(components)) {}

  /// Adopts the nested sections and components; the project is not passed down (there is none
  /// yet).
  static Ref<ComponentSection> make(std::string name, std::optional<std::string> description,
                                    std::optional<std::vector<Ref<ComponentSection>>> sections,
                                    std::optional<std::vector<Ref<Component>>> components,
                                    Identifier identifier = Identifier::local());
  /// Decodes the tree to any depth and wires `parent` and `section` throughout, but no project.
  static Ref<ComponentSection> decode(const Decoder& decoder);
  /// Writes "_id" only for an identifier the service assigned (not a local one).
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  /// The identifiers from the top-level section down to this one, joined with "/" (empty
  /// identifiers leave no empty segment). Computed on each read.
  std::string identifierPathComponent() const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::optional<std::string>& description() const { return description_; }
  void setDescription(std::optional<std::string> value) { description_ = std::move(value); }

  const std::optional<std::vector<Ref<ComponentSection>>>& sections() const { return sections_; }
  /// Stores the list; each nested section gets this one as parent and this one's project,
  /// passed down its own subtree. Removed sections keep their back-references.
  void setSections(std::optional<std::vector<Ref<ComponentSection>>> value);
  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editSections(Fn&& fn) {
    std::forward<Fn>(fn)(sections_);
    wireSections(true);
  }
  const std::optional<std::vector<Ref<Component>>>& components() const { return components_; }
  /// Stores the list; each component gets this section and this section's project.
  void setComponents(std::optional<std::vector<Ref<Component>>> value);
  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editComponents(Fn&& fn) {
    std::forward<Fn>(fn)(components_);
    wireComponents(true);
  }
  Ref<Project> project() const { return project_.lock(); }
  /// Stores the project (or none) and passes it down to every nested section and component,
  /// also when it does not change: clearing it clears the whole subtree.
  void setProject(const Ref<Project>& value);
  /// The enclosing section; empty for a top-level section or once the parent is gone.
  Ref<ComponentSection> parent() const { return parent_.lock(); }
  void setParent(const Ref<ComponentSection>& value) { parent_ = value; }

 private:
  /// Adopts the nested sections; `passProject` hands this section's project down as well.
  void wireSections(bool passProject);
  /// Adopts the components; `passProject` hands this section's project down as well.
  void wireComponents(bool passProject);

  class Visit;

  Identifier identifier_;
  std::string name_;
  std::optional<std::string> description_;
  std::optional<std::vector<Ref<ComponentSection>>> sections_;
  std::optional<std::vector<Ref<Component>>> components_;
  WeakRef<Project> project_;
  WeakRef<ComponentSection> parent_;
  bool visiting_ = false;  // the project is being passed down below this section
};

/// The decode-only subset of a component section; every member optional.
class ComponentSection::Partial : public SectionPartial {
 public:
  static Partial decode(const Decoder& decoder);

 private:
  Partial() = default;
};

}  // namespace orvane
