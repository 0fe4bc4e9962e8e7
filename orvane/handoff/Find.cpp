#include <orvane/handoff/Find.hpp>

#include <unordered_set>
#include <vector>

#include <orvane/project/ComponentSection.hpp>

namespace orvane::handoff {

Ref<Screen> findScreen(const Project& project, const Identifier& identifier) {
  if (!project.screensByIdentifier()) return nullptr;
  auto it = project.screensByIdentifier()->find(identifier);
  return it == project.screensByIdentifier()->end() ? nullptr : it->second;
}

Ref<Component> findComponent(const Project& project, const Identifier& identifier) {
  if (!project.componentSections()) return nullptr;
  std::vector<const ComponentSection*> stack;
  std::unordered_set<const ComponentSection*> seen;
  auto push = [&](const std::vector<Ref<ComponentSection>>& sections) {
    for (auto it = sections.rbegin(); it != sections.rend(); ++it) {
      if (*it) stack.push_back(it->get());
    }
  };
  push(*project.componentSections());
  while (!stack.empty()) {
    const ComponentSection* section = stack.back();
    stack.pop_back();
    if (!seen.insert(section).second) continue;
    if (section->components()) {
      for (const auto& component : *section->components()) {
        if (component && component->identifier() == identifier) return component;
      }
    }
    if (section->sections()) push(*section->sections());
  }
  return nullptr;
}

Ref<Version> findVersion(const VersionCollection& collection,
                         const std::optional<Identifier>& identifier) {
  const Ref<Version>& latest = collection.latestVersion();
  if (!identifier) return latest;
  if (latest && latest->identifier() == *identifier) return latest;
  if (collection.versions()) {
    for (const auto& version : *collection.versions()) {
      if (version && version->identifier() == *identifier) return version;
    }
  }
  return nullptr;
}

}  // namespace orvane::handoff
