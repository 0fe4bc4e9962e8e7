#include <orvane/handoff/Paint.hpp>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include <orvane/internal/Markup.hpp>
#include <orvane/internal/PlatformCode.hpp>

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

namespace {

// Each blend mode in the three platforms' terms: the same mode where the platform has it, else
// the nearest one, marked so that the code can say so.
struct BlendRow {
  BlendMode mode;
  std::string_view css;
  bool cssExact;
  std::string_view swift;
  bool swiftExact;
  std::string_view compose;
  bool composeExact;
};

// clang-format off
constexpr BlendRow kBlendRows[] = {
    {BlendMode::normal,          "normal",       true,  ".normal",          true,  "SrcOver",    true},
    {BlendMode::darken,          "darken",       true,  ".darken",          true,  "Darken",     true},
    {BlendMode::multiply,        "multiply",     true,  ".multiply",        true,  "Multiply",   true},
    {BlendMode::colorBurn,       "color-burn",   true,  ".colorBurn",       true,  "ColorBurn",  true},
    {BlendMode::lighten,         "lighten",      true,  ".lighten",         true,  "Lighten",    true},
    {BlendMode::screen,          "screen",       true,  ".screen",          true,  "Screen",     true},
    {BlendMode::colorDodge,      "color-dodge",  true,  ".colorDodge",      true,  "ColorDodge", true},
    {BlendMode::overlay,         "overlay",      true,  ".overlay",         true,  "Overlay",    true},
    {BlendMode::softLight,       "soft-light",   true,  ".softLight",       true,  "Softlight",  true},
    {BlendMode::hardLight,       "hard-light",   true,  ".hardLight",       true,  "Hardlight",  true},
    {BlendMode::difference,      "difference",   true,  ".difference",      true,  "Difference", true},
    {BlendMode::exclusion,       "exclusion",    true,  ".exclusion",       true,  "Exclusion",  true},
    {BlendMode::hue,             "hue",          true,  ".hue",             true,  "Hue",        true},
    {BlendMode::saturation,      "saturation",   true,  ".saturation",      true,  "Saturation", true},
    {BlendMode::color,           "color",        true,  ".color",           true,  "Color",      true},
    {BlendMode::luminosity,      "luminosity",   true,  ".luminosity",      true,  "Luminosity", true},
    // Compositing operators: only Compose has them.
    {BlendMode::sourceIn,        "normal",       false, ".normal",          false, "SrcIn",      true},
    {BlendMode::sourceOut,       "normal",       false, ".normal",          false, "SrcOut",     true},
    {BlendMode::sourceAtop,      "normal",       false, ".sourceAtop",      true,  "SrcAtop",    true},
    {BlendMode::destinationOver, "normal",       false, ".destinationOver", true,  "DstOver",    true},
    {BlendMode::destinationIn,   "normal",       false, ".normal",          false, "DstIn",      true},
    {BlendMode::destinationOut,  "normal",       false, ".destinationOut",  true,  "DstOut",     true},
    {BlendMode::destinationAtop, "normal",       false, ".normal",          false, "DstAtop",    true},
    {BlendMode::dissolve,        "normal",       false, ".normal",          false, "SrcOver",    false},
    {BlendMode::linearBurn,      "multiply",     false, ".plusDarker",      true,  "Multiply",   false},
    // Adding is what plus-lighter does.
    {BlendMode::linearDodge,     "plus-lighter", true,  ".plusLighter",     true,  "Plus",       true},
    {BlendMode::darkerColor,     "darken",       false, ".darken",          false, "Darken",     false},
    {BlendMode::lighterColor,    "lighten",      false, ".lighten",         false, "Lighten",    false},
    {BlendMode::vividLight,      "hard-light",   false, ".hardLight",       false, "Hardlight",  false},
    {BlendMode::linearLight,     "hard-light",   false, ".hardLight",       false, "Hardlight",  false},
    {BlendMode::pinLight,        "hard-light",   false, ".hardLight",       false, "Hardlight",  false},
    {BlendMode::hardMix,         "hard-light",   false, ".hardLight",       false, "Hardlight",  false},
    {BlendMode::substract,       "difference",   false, ".difference",      false, "Difference", false},
    {BlendMode::divide,          "color-dodge",  false, ".colorDodge",      false, "ColorDodge", false},
};
// clang-format on

const BlendRow& blendRow(BlendMode mode) {
  for (const auto& row : kBlendRows) {
    if (row.mode == mode) return row;
  }
  return kBlendRows[0];
}

}  // namespace

CssBlendMode cssBlendMode(BlendMode mode) {
  const BlendRow& row = blendRow(mode);
  return {row.css, row.cssExact};
}

std::string_view swiftBlendMode(BlendMode mode, bool& exact) {
  const BlendRow& row = blendRow(mode);
  exact = row.swiftExact;
  return row.swift;
}

std::string_view composeBlendMode(BlendMode mode, bool& exact) {
  const BlendRow& row = blendRow(mode);
  exact = row.composeExact;
  return row.compose;
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

namespace {

void appendStop(std::string& css, const Gradient::Stop& stop, double opacity, double at) {
  css += ", ";
  css += rgba(*stop.color(), opacity).css();
  css += ' ';
  detail::appendNumber(css, at * 100, 2);
  css += '%';
}

double position(const Gradient::Stop& stop) {
  return std::isfinite(stop.position()) ? std::clamp(stop.position(), 0.0, 1.0) : 0.0;
}

}  // namespace

std::string cssGradient(const Gradient& gradient, const Rect& box, double opacity,
                        std::string* note) {
  GradientGeometry g = gradientGeometry(gradient, box);
  const double x = box.minX(), y = box.minY(), w = box.width(), h = box.height();
  std::string css;
  auto n = [&](double v) { detail::appendNumber(css, v, 2); };
  Gradient::Kind kind = gradient.kind().value_or(Gradient::Kind::linear);
  if (kind == Gradient::Kind::angular) {
    css = "conic-gradient(from ";
    n(g.startAngle);
    css += "deg at ";
    n(w > 0 ? (g.from.x - x) / w * 100 : 0);
    css += "% ";
    n(h > 0 ? (g.from.y - y) / h * 100 : 0);
    css += '%';
    for (const auto& stop : gradient.stops()) {
      if (stop && stop->color()) appendStop(css, *stop, opacity, position(*stop));
    }
    return css + ")";
  }
  if (kind == Gradient::Kind::radial) {
    double axis = std::atan2(g.to.y - g.from.y, g.to.x - g.from.x) * 180 / kPi - g.rotation;
    double turned = std::fmod(std::abs(axis), 90);
    bool aligned = turned < 1e-9 || 90 - turned < 1e-9;
    css = "radial-gradient(";
    if (g.crossScale != 1 && aligned) {
      // An ellipse whose axes lie along the box's.
      bool horizontal = std::fmod(std::abs(axis) + 1e-9, 180) < 1;
      double across = g.radius * g.crossScale;
      css += "ellipse ";
      n(horizontal ? g.radius : across);
      css += "px ";
      n(horizontal ? across : g.radius);
      css += "px";
    } else {
      if (g.crossScale != 1 && note) *note = "a turned elliptical gradient drawn as a circle";
      css += "circle ";
      n(g.radius);
      css += "px";
    }
    css += " at ";
    n(g.from.x - x);
    css += "px ";
    n(g.from.y - y);
    css += "px";
    for (const auto& stop : gradient.stops()) {
      if (stop && stop->color()) appendStop(css, *stop, opacity, position(*stop));
    }
    return css + ")";
  }
  // Linear: CSS runs its gradient line through the box's centre, as long as the box reaches
  // along it; each stop is placed where its point projects onto that line.
  double a = -g.rotation * kPi / 180;
  double dx = g.to.x - g.from.x, dy = g.to.y - g.from.y;
  double rx = dx * std::cos(a) - dy * std::sin(a), ry = dx * std::sin(a) + dy * std::cos(a);
  double length = std::hypot(rx, ry);
  std::vector<std::pair<const Gradient::Stop*, double>> stops;
  for (const auto& stop : gradient.stops()) {
    if (stop && stop->color()) stops.push_back({stop.get(), position(*stop)});
  }
  if (length == 0 || stops.empty()) {
    // No direction: the last color everywhere, as SVG paints it.
    css = "linear-gradient(";
    if (stops.empty()) return "none";
    std::string c = rgba(*stops.back().first->color(), opacity).css();
    return css + c + ", " + c + ")";
  }
  double ux = rx / length, uy = ry / length;
  double line = std::abs(w * ux) + std::abs(h * uy);
  double sx = x + w / 2 - ux * line / 2, sy = y + h / 2 - uy * line / 2;
  double offset = (g.from.x - sx) * ux + (g.from.y - sy) * uy;
  css = "linear-gradient(";
  n(std::atan2(ux, -uy) * 180 / kPi);
  css += "deg";
  for (const auto& [stop, at] : stops) {
    appendStop(css, *stop, opacity, line > 0 ? (offset + at * length) / line : at);
  }
  return css + ")";
}

}  // namespace orvane::handoff
