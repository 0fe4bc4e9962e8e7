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
  // One walk answers all three ways at once. Each layer visited keeps its parent's place in
  // `visited` (for the paths of the candidates) and where its own name must start in `name`
  // for its path to match (npos once an ancestor's name did not).
  constexpr std::size_t npos = std::string_view::npos;
  struct Visit {
    Ref<Layer> layer;
    std::size_t parent;  // index into `visited`, npos at the top
    std::size_t at;      // where this layer's name starts in `name`, or npos
  };
  std::vector<Visit> visited, stack;
  std::vector<std::size_t> matches;
  std::unordered_set<const Layer*> seen;
  auto push = [&](const std::vector<Ref<Layer>>& layers, std::size_t parent, std::size_t at) {
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
      if (*it) stack.push_back({*it, parent, at});
    }
  };
  if (snapshot.layers()) push(*snapshot.layers(), npos, 0);
  while (!stack.empty()) {
    Visit v = std::move(stack.back());
    stack.pop_back();
    if (!seen.insert(v.layer.get()).second) continue;
    const std::string& own = v.layer->name();
    bool pathMatches = false;
    std::size_t childAt = npos;
    if (v.at != npos && name.substr(v.at).starts_with(own)) {
      std::size_t end = v.at + own.size();
      pathMatches = end == name.size();
      if (end < name.size() && name[end] == '/') childAt = end + 1;
    }
    if (pathMatches || own == name || v.layer->identifier().rawValue() == name) {
      matches.push_back(visited.size());
    }
    visited.push_back(v);
    if (v.layer->kind() && v.layer->kind()->asGroup()) {
      push(v.layer->kind()->asGroup()->layers, visited.size() - 1, childAt);
    }
  }

  FoundLayer found;
  for (std::size_t index : matches) {
    std::vector<std::string_view> names;
    for (std::size_t k = index; k != npos; k = visited[k].parent) {
      names.push_back(visited[k].layer->name());
    }
    std::string path;
    for (auto it = names.rbegin(); it != names.rend(); ++it) {
      if (it != names.rbegin()) path += '/';
      path += *it;
    }
    found.candidates.push_back({visited[index].layer, std::move(path)});
  }
  if (found.candidates.size() == 1) {
    found.layer = found.candidates.front().layer;
  } else if (found.candidates.empty()) {
    found.error = "no layer " + std::string(name);
  } else {
    found.error = std::string(name) + " names " + std::to_string(found.candidates.size()) +
                  " layers; name one by its identifier or its path:";
  }
  return found;
}

}  // namespace orvane::handoff
