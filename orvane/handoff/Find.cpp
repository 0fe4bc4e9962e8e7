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

std::vector<Ref<Layer>> allLayers(const Snapshot& snapshot) {
  std::vector<Ref<Layer>> out;
  std::vector<Ref<Layer>> stack;
  std::unordered_set<const Layer*> seen;
  auto push = [&](const std::vector<Ref<Layer>>& layers) {
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
      if (*it) stack.push_back(*it);
    }
  };
  if (snapshot.layers()) push(*snapshot.layers());
  while (!stack.empty()) {
    Ref<Layer> layer = stack.back();
    stack.pop_back();
    if (!seen.insert(layer.get()).second) continue;
    out.push_back(layer);
    if (layer->kind() && layer->kind()->asGroup()) push(layer->kind()->asGroup()->layers);
  }
  return out;
}

FoundLayer findLayer(const Snapshot& snapshot, std::string_view name) {
  std::vector<Ref<Layer>> layers = allLayers(snapshot);
  for (const auto& layer : layers) {
    if (layer->identifier().rawValue() == name) return {layer, {}};
  }
  std::vector<Ref<Layer>> named;
  for (const auto& layer : layers) {
    if (layer->name() == name) named.push_back(layer);
  }
  if (named.size() == 1) return {named.front(), {}};
  if (named.size() > 1) {
    return {nullptr, std::to_string(named.size()) + " layers are named " + std::string(name) +
                         ": name one by its identifier or its path"};
  }
  // A path of names, from the top level down.
  std::vector<Ref<Layer>> level =
      snapshot.layers() ? *snapshot.layers() : std::vector<Ref<Layer>>{};
  std::vector<Ref<Layer>> matches;
  std::string_view rest = name;
  bool first = true;
  while (true) {
    std::size_t slash = rest.find('/');
    std::string_view part = rest.substr(0, slash);
    if (!first) {
      level.clear();
      for (const auto& m : matches) {
        if (m->kind() && m->kind()->asGroup()) {
          for (const auto& child : m->kind()->asGroup()->layers) {
            if (child) level.push_back(child);
          }
        }
      }
    }
    first = false;
    matches.clear();
    for (const auto& layer : level) {
      if (layer && layer->name() == part) matches.push_back(layer);
    }
    if (slash == std::string_view::npos || matches.empty()) break;
    rest.remove_prefix(slash + 1);
  }
  if (matches.size() == 1 && name.find('/') != std::string_view::npos) return {matches.front(), {}};
  if (matches.size() > 1) {
    return {nullptr, std::to_string(matches.size()) + " layers lie at " + std::string(name) +
                         ": name one by its identifier"};
  }
  return {nullptr, "no layer " + std::string(name)};
}

}  // namespace orvane::handoff
