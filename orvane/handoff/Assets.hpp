// What a developer exports from a snapshot: its assets and exportable layers, with the files
// each platform wants of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <orvane/handoff/Inspect.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/values/Url.hpp>

namespace orvane::handoff {

/// One file to put in a platform's project.
struct ExportFile {
  /// Its path in the project: `start-button@2x.png` (iOS, web), `drawable-xhdpi/start_button.png`
  /// (Android).
  std::string path;
  /// The platform's name of the density it is drawn at (`2x`, `xhdpi`); empty for a vector.
  std::string density;
  /// Where the asset's content it comes from lies, when the content has an address; none for
  /// an exportable layer, which has no contents of its own.
  std::optional<Url> url;
};

/// One thing to export, with its files for each platform.
struct Export {
  /// The asset; null for an exportable layer.
  Ref<Asset> asset;
  /// The exportable layer, or the layer the asset comes from when the snapshot has it.
  Ref<Layer> layer;
  /// The name its files are made from, unique among the snapshot's exports: ASCII letters and
  /// digits, lower-cased, other runs as one `-` (`Start button` -> `start-button`).
  std::string name;
  /// iOS: `NAME.png`, `NAME@2x.png`, `NAME@3x.png` (1x, 2x, 3x), or `NAME.pdf`, `NAME.svg`.
  std::vector<ExportFile> ios;
  /// Android: `drawable-mdpi/NAME.png` to `drawable-xxxhdpi/NAME.png` with NAME in snake case
  /// (a resource name: lower-case letters, digits and `_`, from a letter), or
  /// `drawable/NAME.xml`, the vector drawable made from an SVG.
  std::vector<ExportFile> android;
  /// The web: `NAME.png`, `NAME@2x.png`, ... or `NAME.svg`.
  std::vector<ExportFile> web;
};

/// The snapshot's exports: each asset, in order, with a file per platform for each of its
/// contents (a bitmap content at its density: 1x is mdpi, 2x xhdpi, 3x xxhdpi; iOS has no
/// hdpi or xxxhdpi; a content without density counts as 1x, one without format gives no
/// file), then each exportable layer that no asset comes from, in tree order, as a PNG at 1x,
/// 2x and 3x (Android: mdpi to xxxhdpi). A platform's path is listed once, for the first
/// content that gives it. Nothing is downloaded.
std::vector<Export> exportsOf(const Snapshot& snapshot);

/// The exports as a tree for `inspectText` and `inspectJson`: `assets` (display name, layer,
/// bitmap or not, contents) and `layers`, each with its `ios`, `android` and `web` files.
InspectNode inspectAssets(const Snapshot& snapshot);

}  // namespace orvane::handoff
