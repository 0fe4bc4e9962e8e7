// A project or a snapshot as a tree a person reads at a glance, or a program walks as JSON.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/project/Project.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/values/Density.hpp>

namespace orvane::handoff {

/// One fact: its name (the model's field name) and its value as JSON text.
using Fact = std::pair<std::string, std::string>;

/// One entry of an inspection: its line for people, its facts for programs, and the lists
/// below it.
struct InspectNode {
  /// What a person reads on the entry's line.
  std::string line;
  /// The entry's facts as JSON members, in order.
  std::vector<Fact> facts;
  /// The lists below the entry, each under its plain name (`screens`, `layers`), in order.
  std::vector<std::pair<std::string, std::vector<InspectNode>>> lists;
};

/// How a snapshot's facts are written.
struct FactOptions {
  /// The scale the design was drawn at: every length (frames, radii, thicknesses, offsets,
  /// blur radii, font sizes, line heights, letter spacings) is divided by its scale, so that
  /// a design drawn at 2x reads in points and dp.
  Density density = Density::_1x;
  /// The project's style guide: every color and text style found in it carries `"token"`,
  /// its name as the guide holds it (`Brand/500`). Null: none does.
  const StyleGuide* styleGuide = nullptr;
  /// The project the snapshot lies in: a link to a screen of that name names its identifier.
  const Project* project = nullptr;
};

/// A layer's facts as `inspectJson` writes them: `identifier`, `kind`, `name`, `frame` (in
/// its group) and `absoluteFrame`, `isExportable`, then its styles structured (`opacity`,
/// `blendMode`, `rotation`, `cornerRadius`, `fills`, `borders`, `shadows`, `blur`; colors as
/// `{"hex":"#rrggbb","alpha":A}`), and for a text layer `content` and `textStyles` (each with
/// its `range`, `fontName`, `fontFamily`, `fontWeight`, `fontStyle`, `fontSize`,
/// `lineHeight`, `letterSpacing`, `color`, `alignment`). A value the layer lacks is null; a
/// number that is not finite is null.
std::vector<Fact> layerFacts(const Layer& layer, const FactOptions& options = {});

/// A snapshot's own facts as `inspectJson` writes them at the root of its tree:
/// `identifier`, `size`, `source`, `density`, `backgroundColor`, `grid`, then `links` and
/// `assets` as arrays of the entries the tree lists.
std::vector<Fact> snapshotFacts(const Snapshot& snapshot, const FactOptions& options = {});

/// Every screen of the project once, in the order `inspectProject` lists them: the screens the
/// sections name, in document order, then the rest by identifier.
std::vector<Ref<Screen>> screensInOrder(const Project& project);

/// A project: its header; the sections with the screens they name, in document order, then
/// the screens no section names, each with its versions (latest and listed, once each by
/// identifier) and dots; the component-section tree with each component's versions path; the
/// colors and text styles (lengths divided by `density`'s scale); the members with their roles.
InspectNode inspectProject(const Project& project, Density density = Density::_1x);

/// A snapshot: its size, source and background, the layer tree (identifier, kind, name,
/// absolute frame and its styles: in a few words on its line, structured in its facts), the
/// links with the screen each leads to (when `project` has a screen of that name) and the
/// assets with their contents. Colors and text styles of `project`'s style guide carry their
/// token's name; lengths are divided by `density`'s scale.
InspectNode inspectSnapshot(const Snapshot& snapshot, const Project* project = nullptr,
                            Density density = Density::_1x);

/// The tree drawn with Unicode box lines, one entry a line; a list longer than `listLimit`
/// shows its first entries, then "… and N more".
std::string inspectText(const InspectNode& root, std::size_t listLimit = 12);

/// The whole tree as one JSON value, no list shortened.
std::string inspectJson(const InspectNode& root);

}  // namespace orvane::handoff
