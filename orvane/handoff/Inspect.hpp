// A project or a snapshot as a tree a person reads at a glance, or a program walks as JSON.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <orvane/project/Project.hpp>
#include <orvane/snapshot/Snapshot.hpp>

namespace orvane::handoff {

/// One entry of an inspection: its line for people, its facts for programs, and the lists
/// below it.
struct InspectNode {
  /// What a person reads on the entry's line.
  std::string line;
  /// The entry's facts as JSON members, each a name (the model's field name) and a JSON value.
  std::vector<std::pair<std::string, std::string>> facts;
  /// The lists below the entry, each under its plain name (`screens`, `layers`), in order.
  std::vector<std::pair<std::string, std::vector<InspectNode>>> lists;
};

/// A project: its header; the sections with the screens they name, in document order, then
/// the screens no section names, each with its versions (latest and listed, once each by
/// identifier) and dots; the component-section tree with each component's versions path; the
/// colors and text styles; the members with their roles.
InspectNode inspectProject(const Project& project);

/// A snapshot: its size and source, the layer tree (identifier, kind, name, absolute frame and
/// a short summary of the styles), the links with the screen each leads to (when `project`
/// has a screen of that name) and the assets with their contents.
InspectNode inspectSnapshot(const Snapshot& snapshot, const Project* project = nullptr);

/// The tree drawn with Unicode box lines, one entry a line; a list longer than `listLimit`
/// shows its first entries, then "… and N more".
std::string inspectText(const InspectNode& root, std::size_t listLimit = 12);

/// The whole tree as one JSON value, no list shortened.
std::string inspectJson(const InspectNode& root);

}  // namespace orvane::handoff
