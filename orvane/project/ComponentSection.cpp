#include <orvane/project/ComponentSection.hpp>

#include <orvane/internal/ChainLoopCheck.hpp>
#include <orvane/internal/FatalError.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

namespace {
constexpr std::string_view kSourceFile = "orvane/project/ComponentSection.cpp";

[[noreturn]] void cycle(const ComponentSection& section, std::string_view how, int line) {
  fatalError("Component section tree has a cycle: section \"" +
                 std::string(section.identifier().rawValue()) + "\" " + std::string(how) + ".",
             kSourceFile, line);
}
}  // namespace

// Marks a section while the project is passed down below it: meeting a marked section again
// means the section is inside its own subtree.
class ComponentSection::Visit {
 public:
  explicit Visit(ComponentSection& section) : section_(section) {
    if (section.visiting_) cycle(section, "is inside its own subtree", __LINE__);
    section.visiting_ = true;
  }
  ~Visit() { section_.visiting_ = false; }
  Visit(const Visit&) = delete;
  Visit& operator=(const Visit&) = delete;

 private:
  ComponentSection& section_;
};

ORVANE_PLAIN_RECORD_DEFINE(ComponentSection, ORVANE_COMPONENT_SECTION_FIELDS, wire)

void ComponentSection::wire() {
  wireSections(false);
  wireComponents(false);
}

std::string ComponentSection::identifierPathComponent() const {
  std::vector<std::string_view> parts{identifier_.rawValue()};
  detail::ChainLoopCheck loop(this);
  for (auto ancestor = parent(); ancestor; ancestor = ancestor->parent()) {
    if (loop.revisits(ancestor.get())) cycle(*ancestor, "is its own ancestor", __LINE__);
    parts.push_back(ancestor->identifier_.rawValue());
  }
  std::string path;
  for (auto it = parts.rbegin(); it != parts.rend(); ++it) {
    if (it->empty()) continue;
    if (!path.empty()) path += '/';
    path += *it;
  }
  return path;
}

void ComponentSection::setSections(std::optional<std::vector<Ref<ComponentSection>>> value) {
  sections_ = std::move(value);
  wireSections(true);
}

void ComponentSection::setComponents(std::optional<std::vector<Ref<Component>>> value) {
  components_ = std::move(value);
  wireComponents(true);
}

void ComponentSection::setProject(const Ref<Project>& value) {
  project_ = value;
  Visit visit(*this);
  if (sections_) {
    for (const auto& section : *sections_) {
      if (section) section->setProject(value);
    }
  }
  if (components_) {
    for (const auto& component : *components_) {
      if (component) component->setProject(value);
    }
  }
}

void ComponentSection::wireSections(bool passProject) {
  if (!sections_) return;
  auto self = shared_from_this();
  auto owner = passProject ? project() : nullptr;
  for (const auto& section : *sections_) {
    if (!section) continue;
    section->parent_ = self;
    if (passProject) section->setProject(owner);
  }
}

void ComponentSection::wireComponents(bool passProject) {
  if (!components_) return;
  auto self = shared_from_this();
  auto owner = passProject ? project() : nullptr;
  for (const auto& component : *components_) {
    if (!component) continue;
    component->setSection(self);
    if (passProject) component->setProject(owner);
  }
}

ORVANE_PARTIAL_DEFINE(ComponentSection, ORVANE_SECTION_PARTIAL_FIELDS)

}  // namespace orvane
