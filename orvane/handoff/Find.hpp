// Finding what the hand-off outputs look at: a screen, a component, one of their versions.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/project/Component.hpp>
#include <orvane/project/Project.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/project/Version.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane::handoff {

/// The project's screen with that identifier, or null.
Ref<Screen> findScreen(const Project& project, const Identifier& identifier);

/// The component with that identifier anywhere in the component-section tree (depth first,
/// in document order), or null. A section that contains itself is visited once.
Ref<Component> findComponent(const Project& project, const Identifier& identifier);

/// The collection's latest version when `identifier` is empty; else its latest or listed
/// version with that identifier (the latest first), or null.
Ref<Version> findVersion(const VersionCollection& collection,
                         const std::optional<Identifier>& identifier = std::nullopt);

/// Every layer of the snapshot's tree, depth first in document order, groups before their
/// children; a group found twice is walked once.
std::vector<Ref<Layer>> allLayers(const Snapshot& snapshot);

/// A layer that a name could mean, with the path that leads to it.
struct LayerCandidate {
  Ref<Layer> layer;  ///< the layer
  std::string path;  ///< its names from the top, joined by `/` (`Card/Title`)
};

/// A layer named as a person names it, or why none is.
struct FoundLayer {
  Ref<Layer> layer;   ///< the layer; null when none or several match
  std::string error;  ///< why not, as one line
  /// Every layer the name could mean, in tree order: the one found, or all of them when the
  /// name is ambiguous (none when nothing matches).
  std::vector<LayerCandidate> candidates;
};

/// The layer `name` names: the one whose identifier it is, or whose name it is, or whose path
/// of names from the top it is (`Card/Title`). When these ways lead to more than one layer
/// (two layers of that name, a name that is another layer's identifier or path), none is
/// chosen: `candidates` lists them all. A name containing `/` matches as a name and as a path.
FoundLayer findLayer(const Snapshot& snapshot, std::string_view name);

}  // namespace orvane::handoff
