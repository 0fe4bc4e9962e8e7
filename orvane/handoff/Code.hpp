// A layer as the code a developer writes for it: CSS, SwiftUI or Jetpack Compose.
#pragma once

#include <optional>
#include <string>

#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/values/Density.hpp>

namespace orvane::handoff {

/// What the code is written against.
struct CodeOptions {
  /// How document units map to points (SwiftUI) and dp (Compose): 2x halves them. Empty: the
  /// layer's snapshot's density, else 1x. CSS keeps document units as pixels, so that its boxes
  /// lie where `renderSvg` draws them.
  std::optional<Density> density;
  /// The project's style guide: colors and text styles found in it are named by their tokens
  /// instead of repeated. Null: every value is written out.
  const StyleGuide* styleGuide = nullptr;
};

/// How many document units make one point or dp at `density` (1 for 1x and mdpi, 1.5 for hdpi,
/// and so on).
double densityScale(Density density);

/// One rule, `.NAME { ... }`, that places the layer at its absolute frame (`position:
/// absolute`) and styles it; a div with it inside an artboard-sized, positioned container
/// looks like the layer in `renderSvg`. What CSS cannot say is said in comments.
std::string layerCss(const Layer& layer, const CodeOptions& options = {});

/// A SwiftUI view with its modifiers, in points, placed with `.position` at its centre.
std::string layerSwiftUI(const Layer& layer, const CodeOptions& options = {});

/// A Jetpack Compose composable with its `Modifier` chain, in dp and sp, placed with `.offset`.
std::string layerCompose(const Layer& layer, const CodeOptions& options = {});

}  // namespace orvane::handoff
