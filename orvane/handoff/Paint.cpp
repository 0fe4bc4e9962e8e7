#include <orvane/handoff/Paint.hpp>

#include <algorithm>
#include <cmath>

#include <orvane/internal/Markup.hpp>

namespace orvane::handoff {

namespace {

constexpr double kPi = 3.14159265358979323846;

double unit(double value) {
  return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : 0.0;
}

std::uint8_t channel(double value) {
  return static_cast<std::uint8_t>(std::lround(unit(value) * 255));
}

}  // namespace

std::string Rgba::hex() const {
  static constexpr char kHex[] = "0123456789abcdef";
  std::string out = "#";
  for (std::uint8_t c : {red, green, blue}) {
    out += kHex[c >> 4];
    out += kHex[c & 0xF];
  }
  return out;
}

std::string Rgba::css() const {
  if (alpha >= 1) return hex();
  std::string out = "rgba(" + std::to_string(red) + ", " + std::to_string(green) + ", " +
                    std::to_string(blue) + ", ";
  detail::appendNumber(out, alpha, 3);
  return out + ")";
}

Rgba rgba(const Color& color) {
  return {channel(color.red()), channel(color.green()), channel(color.blue()), unit(color.alpha())};
}

Rgba rgba(const Color& color, double opacity) {
  Rgba out = rgba(color);
  out.alpha *= unit(opacity);
  return out;
}

CssBlendMode cssBlendMode(BlendMode mode) {
  switch (mode) {
    case BlendMode::normal:
    case BlendMode::darken:
    case BlendMode::multiply:
    case BlendMode::colorBurn:
    case BlendMode::lighten:
    case BlendMode::screen:
    case BlendMode::colorDodge:
    case BlendMode::overlay:
    case BlendMode::softLight:
    case BlendMode::hardLight:
    case BlendMode::difference:
    case BlendMode::exclusion:
    case BlendMode::hue:
    case BlendMode::saturation:
    case BlendMode::color:
    case BlendMode::luminosity:
      return {rawValue(mode), true};
    // Adding is what plus-lighter does.
    case BlendMode::linearDodge:
      return {"plus-lighter", true};
    case BlendMode::linearBurn:
      return {"multiply", false};
    case BlendMode::darkerColor:
      return {"darken", false};
    case BlendMode::lighterColor:
      return {"lighten", false};
    case BlendMode::vividLight:
    case BlendMode::linearLight:
    case BlendMode::pinLight:
    case BlendMode::hardMix:
      return {"hard-light", false};
    case BlendMode::substract:
      return {"difference", false};
    case BlendMode::divide:
      return {"color-dodge", false};
    // Compositing operators and dissolve have no blending counterpart.
    case BlendMode::sourceIn:
    case BlendMode::sourceOut:
    case BlendMode::sourceAtop:
    case BlendMode::destinationOver:
    case BlendMode::destinationIn:
    case BlendMode::destinationOut:
    case BlendMode::destinationAtop:
    case BlendMode::dissolve:
      break;
  }
  return {"normal", false};
}

GradientGeometry gradientGeometry(const Gradient& gradient, const Rect& box) {
  auto place = [&](Point p) {
    double x = std::isfinite(p.x) ? p.x : 0, y = std::isfinite(p.y) ? p.y : 0;
    return Point{box.minX() + x * box.width(), box.minY() + y * box.height()};
  };
  GradientGeometry g;
  g.from = place(gradient.from());
  g.to = place(gradient.to());
  double dx = g.to.x - g.from.x, dy = g.to.y - g.from.y;
  g.radius = std::hypot(dx, dy);
  g.rotation = gradient.angle().value_or(0);
  if (!std::isfinite(g.rotation)) g.rotation = 0;
  g.startAngle = (dx == 0 && dy == 0) ? 0 : std::atan2(dx, -dy) * 180 / kPi;
  g.startAngle -= g.rotation;
  if (gradient.kind() == Gradient::Kind::radial) {
    double scale = gradient.scale().value_or(1);
    if (std::isfinite(scale) && scale > 0) g.crossScale = scale;
  }
  return g;
}

}  // namespace orvane::handoff
