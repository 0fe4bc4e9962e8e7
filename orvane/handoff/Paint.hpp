// How the hand-off outputs read the model's paint: colors, blend modes and gradient geometry.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <orvane/styles/Gradient.hpp>
#include <orvane/values/BlendMode.hpp>
#include <orvane/values/Color.hpp>
#include <orvane/values/Geometry.hpp>

namespace orvane::handoff {

/// A color as 8-bit sRGB channels and an alpha, each component clamped to [0, 1] first.
struct Rgba {
  std::uint8_t red = 0;    ///< 0 to 255
  std::uint8_t green = 0;  ///< 0 to 255
  std::uint8_t blue = 0;   ///< 0 to 255
  double alpha = 1;        ///< 0 to 1

  /// "#rrggbb", the alpha left out.
  std::string hex() const;
  /// "#rrggbb" when opaque, else "rgba(r, g, b, a)".
  std::string css() const;
};

/// The color's channels; a component that is not a number counts as 0.
Rgba rgba(const Color& color);
/// The same with its alpha multiplied by `opacity` (clamped to [0, 1]).
Rgba rgba(const Color& color, double opacity);

/// The CSS `mix-blend-mode` that draws a blend mode: the same mode where CSS has it, else the
/// nearest one (`exact` false), so that the caller can say so.
struct CssBlendMode {
  std::string_view name;  ///< the `mix-blend-mode` keyword
  bool exact;             ///< whether it composites as the model's mode does
};
/// How `mode` is drawn in CSS.
CssBlendMode cssBlendMode(BlendMode mode);

/// A gradient laid on a box: its end points in the box's coordinates, the circle of a radial
/// gradient, and where an angular one starts (degrees clockwise from straight up, as CSS
/// `conic-gradient` counts). `angle` turns the gradient about `from` counter-clockwise, as a
/// layer's rotation turns; `scale` stretches a radial gradient across its axis.
struct GradientGeometry {
  Point from;             ///< the start, in the box's coordinates
  Point to;               ///< the end, in the box's coordinates
  double radius = 0;      ///< the distance from `from` to `to`: a radial gradient's circle
  double startAngle = 0;  ///< an angular gradient's start, `angle` included
  double rotation = 0;    ///< `angle`, in degrees counter-clockwise (0 without one)
  double crossScale = 1;  ///< a radial gradient's `scale` across its axis (else 1)
};
/// The gradient laid on `box` (its unit coordinates scaled to the box).
GradientGeometry gradientGeometry(const Gradient& gradient, const Rect& box);

/// The gradient as a CSS background image on `box` (`linear-gradient`, `radial-gradient` or
/// `conic-gradient`), drawing what `renderSvg` draws; stop colors take `opacity` into their
/// alpha. What CSS cannot follow (a turned or stretched radial gradient) is drawn as near as it
/// can, and said in `note` when one is given.
std::string cssGradient(const Gradient& gradient, const Rect& box, double opacity = 1,
                        std::string* note = nullptr);

}  // namespace orvane::handoff
