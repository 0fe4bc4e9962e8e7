// Layers and whole snapshots as the code a developer writes for them: CSS (and HTML), SwiftUI,
// Jetpack Compose.
#pragma once

#include <string>
#include <vector>

#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/values/Density.hpp>

namespace orvane::handoff {

/// What the code is written against.
struct CodeOptions {
  /// The scale the design was drawn at: every length is divided by it, in every language alike
  /// (CSS px, SwiftUI pt, Compose dp and sp). 1x: one design unit is one px, pt or dp. The
  /// snapshot's own `density` is its images' export scale and plays no part.
  Density density = Density::_1x;
  /// The project's style guide: colors and text styles found in it are named by their tokens
  /// instead of repeated. Null: every value is written out.
  const StyleGuide* styleGuide = nullptr;
};

/// How many design units make one px, pt or dp at `density` (1 for 1x and mdpi, 1.5 for hdpi,
/// 2 for 2x and xhdpi, 3 for 3x and xxhdpi, 4 for xxxhdpi).
double densityScale(Density density);

/// One rule, `.NAME { ... }`, that places the layer at its absolute frame (`position:
/// absolute`) and styles it; a div with it inside an artboard-sized, positioned container
/// looks like the layer in `renderSvg`. NAME is the class the layer has in `snapshotHtml` of
/// its snapshot. What CSS cannot say is said in comments, among them the runs of text in
/// other styles than the paragraph's.
std::string layerCss(const Layer& layer, const CodeOptions& options = {});

/// A SwiftUI view with its modifiers, in points, placed with `.position` at its centre.
std::string layerSwiftUI(const Layer& layer, const CodeOptions& options = {});

/// A Jetpack Compose composable with its `Modifier` chain, in dp and sp, placed with `.offset`.
std::string layerCompose(const Layer& layer, const CodeOptions& options = {});

/// One layer's code in the three languages.
struct LayerCode {
  Ref<Layer> layer;     ///< the layer
  std::string css;      ///< as `layerCss` writes it
  std::string swiftui;  ///< as `layerSwiftUI` writes it
  std::string compose;  ///< as `layerCompose` writes it
};

/// Every layer's code, in tree order (groups before their children), each as the three
/// functions above write it; the snapshot's names are made once for them all.
std::vector<LayerCode> snapshotLayerCode(const Snapshot& snapshot, const CodeOptions& options = {});

/// The whole snapshot as one HTML document: an artboard-sized container at the top left of a
/// page without margin, one element per layer of the tree nested as the tree nests them, each
/// placed relative to its parent, the rules in one `<style>` (with the style guide's custom
/// properties first, when there is one). A group draws its own look in a pseudo-element below
/// or above its children, so that its opacity, blend mode and rotation stay its own, as
/// `renderSvg` draws it. Opened in a browser it looks like `renderSvg`'s drawing.
std::string snapshotHtml(const Snapshot& snapshot, const CodeOptions& options = {});

/// The whole snapshot as one SwiftUI `View`, the layers nested in `ZStack`s as the tree nests
/// them, each group a property of its own.
std::string snapshotSwiftUI(const Snapshot& snapshot, const CodeOptions& options = {});

/// The whole snapshot as one `@Composable` screen function, the layers nested in `Box`es as
/// the tree nests them, each group a function of its own.
std::string snapshotCompose(const Snapshot& snapshot, const CodeOptions& options = {});

}  // namespace orvane::handoff
