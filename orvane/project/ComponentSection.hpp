// A node of the style guide's component tree.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/project/Component.hpp>
#include <orvane/project/Section.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

class Project;

/// Owns nested component sections and components; each nested section refers back through
/// `parent`, each component through `section`. The project is passed down the whole subtree on
/// every assignment of `project`, `sections` or `components`. A section placed inside its own
/// subtree, or made its own ancestor through `setParent`, is a programming error that stops the
/// process with `fatalError` when the tree is walked.
class ComponentSection : public std::enable_shared_from_this<ComponentSection> {
 public:
  /// `setSections`: each nested section gets this one as parent and this one's project, passed
  /// down its own subtree. `setComponents`: each component gets this section and this section's
  /// project. Removed ones keep their back-references. `setProject` passes the project (or none)
  /// down to every nested section and component, also when it does not change: clearing it
  /// clears the whole subtree. `parent` is empty for a top-level section.
#define ORVANE_COMPONENT_SECTION_FIELDS(F)                                                      \
  F(identifier, Identifier, Identifier, "_id", required, unlessLocal, localId, plain)           \
  F(name, Name, std::string, "name", required, always, given, plain)                            \
  F(description, Description, std::optional<std::string>, "description", optional, whenPresent, \
    given, plain)                                                                               \
  F(sections, Sections, std::optional<std::vector<Ref<ComponentSection>>>, "componentSections", \
    optional, whenPresent, given, observed)                                                     \
  F(components, Components, std::optional<std::vector<Ref<Component>>>, "components", optional, \
    whenPresent, given, observed)                                                               \
  F(project, Project, WeakRef<orvane::Project>, none, none, never, none, observedBackRef)       \
  F(parent, Parent, WeakRef<ComponentSection>, none, none, never, none, backRef)                \
  F(identifierPathComponent, IdentifierPathComponent, std::string, none, none, never, none, own)
  ORVANE_FIELDS(ComponentSection, ORVANE_COMPONENT_SECTION_FIELDS)

 public:
  class Partial;

  /// Adopts the nested sections and components; the project is not passed down (there is none
  /// yet).
  static Ref<ComponentSection> make(Fields fields);
  /// Decodes the tree to any depth and wires `parent` and `section` throughout, but no project.
  static Ref<ComponentSection> decode(const Decoder& decoder);
  /// Writes "_id" only for an identifier the service assigned (not a local one).
  void encode(Encoder& encoder) const;

  /// The identifiers from the top-level section down to this one, joined with "/" (empty
  /// identifiers leave no empty segment). Computed on each read.
  std::string identifierPathComponent() const;

  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editSections(Fn&& fn) {
    std::forward<Fn>(fn)(sections_);
    wireSections(true);
  }
  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editComponents(Fn&& fn) {
    std::forward<Fn>(fn)(components_);
    wireComponents(true);
  }

 private:
  /// Adopts the tree below, without a project.
  void wire();
  /// Adopts the nested sections; `passProject` hands this section's project down as well.
  void wireSections(bool passProject);
  /// Adopts the components; `passProject` hands this section's project down as well.
  void wireComponents(bool passProject);

  class Visit;

  bool visiting_ = false;  // the project is being passed down below this section
};

/// The decode-only subset of a component section; every member optional.
class ComponentSection::Partial {
  ORVANE_PARTIAL_FIELDS(ORVANE_SECTION_PARTIAL_FIELDS)
};

}  // namespace orvane
