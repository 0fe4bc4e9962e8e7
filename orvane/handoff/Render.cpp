#include <orvane/handoff/Render.hpp>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Paint.hpp>
#include <orvane/handoff/Text.hpp>
#include <orvane/internal/Box.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/internal/PlatformCode.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/snapshot/Destination.hpp>
#include <orvane/snapshot/Grid.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Link.hpp>

namespace orvane::handoff {

namespace {

// A reference to the element `id` of the same drawing.
std::string reference(std::string_view id) {
  std::string href;
  href.reserve(id.size() + 1);
  href += '#';
  href += id;
  return href;
}


using detail::appendNumber;
using detail::appendXml;
using detail::Box;
using detail::finite;
using detail::fitRadius;

constexpr double kPi = 3.14159265358979323846;
constexpr std::string_view kXhtml = "http://www.w3.org/1999/xhtml";

class Svg {
 public:
  explicit Svg(std::string& out) : out_(out) {}

  Svg& raw(std::string_view text) {
    out_ += text;
    return *this;
  }
  Svg& attr(std::string_view name, double value) {
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    // Browsers read SVG numbers as floats: what lies beyond is drawn at the float's end.
    constexpr double kMost = std::numeric_limits<float>::max();
    appendNumber(out_, std::clamp(value, -kMost, kMost));
    out_ += '"';
    return *this;
  }
  Svg& attr(std::string_view name, std::string_view text) {
    out_ += ' ';
    out_ += name;
    out_ += "=\"";
    appendXml(out_, text);
    out_ += '"';
    return *this;
  }
  Svg& text(std::string_view text) {
    appendXml(out_, text);
    return *this;
  }
  Svg& box(const Box& b, double radius = 0) {
    attr("x", b.x).attr("y", b.y).attr("width", b.w).attr("height", b.h);
    if (radius > 0) attr("rx", radius).attr("ry", radius);
    return *this;
  }
  // fill="..." with its opacity when below 1.
  Svg& paint(std::string_view property, const Rgba& color) {
    attr(property, color.hex());
    if (color.alpha < 1) attr(std::string(property) + "-opacity", color.alpha);
    return *this;
  }
  Svg& comment(std::string_view text) {
    out_ += "<!-- ";
    out_ += text;
    out_ += " -->";
    return *this;
  }

 private:
  std::string& out_;
};

std::string url(std::string_view id) {
  return "url(#" + std::string(id) + ")";
}

std::string rotateAbout(double degrees, double cx, double cy) {
  std::string t = "rotate(";
  appendNumber(t, degrees);
  t += ' ';
  appendNumber(t, cx);
  t += ' ';
  appendNumber(t, cy);
  return t + ")";
}

// A rounded rectangle as path data, for shapes with holes.
void appendRoundedRectPath(std::string& d, const Box& b, double r) {
  auto n = [&](double v) {
    appendNumber(d, v);
    d += ' ';
  };
  if (r <= 0) {
    d += "M ";
    n(b.x), n(b.y);
    d += "H ";
    n(b.x + b.w);
    d += "V ";
    n(b.y + b.h);
    d += "H ";
    n(b.x);
    d += "Z ";
    return;
  }
  d += "M ";
  n(b.x + r), n(b.y);
  d += "H ";
  n(b.x + b.w - r);
  d += "A ";
  n(r), n(r);
  d += "0 0 1 ";
  n(b.x + b.w), n(b.y + r);
  d += "V ";
  n(b.y + b.h - r);
  d += "A ";
  n(r), n(r);
  d += "0 0 1 ";
  n(b.x + b.w - r), n(b.y + b.h);
  d += "H ";
  n(b.x + r);
  d += "A ";
  n(r), n(r);
  d += "0 0 1 ";
  n(b.x), n(b.y + b.h - r);
  d += "V ";
  n(b.y + r);
  d += "A ";
  n(r), n(r);
  d += "0 0 1 ";
  n(b.x + r), n(b.y);
  d += "Z ";
}

// What a fill paints with: a color, an SVG gradient defined under `id`, or a CSS conic
// gradient (which SVG lacks).
struct Paint {
  std::string value;  // for fill= or stroke=
  double opacity = 1;
  std::string conic;  // CSS background, for angular gradients
};

// A stop as SVG draws it: where it lies, and its color in components 0 to 1.
struct StopColor {
  double offset;
  double red, green, blue, alpha;
};

void appendStop(Svg& defs, const StopColor& c) {
  Rgba rgb{static_cast<std::uint8_t>(std::lround(c.red * 255)),
           static_cast<std::uint8_t>(std::lround(c.green * 255)),
           static_cast<std::uint8_t>(std::lround(c.blue * 255)), c.alpha};
  defs.raw("<stop").attr("offset", c.offset).attr("stop-color", rgb.hex());
  if (c.alpha < 1) defs.attr("stop-opacity", c.alpha);
  defs.raw("/>");
}

// SVG mixes the colors of neighbouring stops as they are, CSS (and the design) with each
// weighed by its alpha: towards a transparent stop SVG would darken or tint. Where two stops'
// alphas differ, the stops in between are laid as the weighed mix would color them.
void appendStops(Svg& defs, const Gradient& gradient) {
  std::vector<StopColor> stops;
  double last = 0;
  for (const auto& stop : gradient.stops()) {
    if (!stop || !stop->color()) continue;
    Rgba c = rgba(*stop->color());
    // SVG takes an offset below the one before it as that one.
    last = std::max(last, std::clamp(finite(stop->position()), 0.0, 1.0));
    stops.push_back({last, c.red / 255.0, c.green / 255.0, c.blue / 255.0, c.alpha});
  }
  constexpr int kSteps = 8;
  for (std::size_t i = 0; i < stops.size(); ++i) {
    const StopColor& b = stops[i];
    if (i == 0 || stops[i - 1].alpha == b.alpha || b.offset == stops[i - 1].offset) {
      appendStop(defs, b);
      continue;
    }
    const StopColor& a = stops[i - 1];
    for (int k = 1; k <= kSteps; ++k) {
      double t = static_cast<double>(k) / kSteps;
      double alpha = a.alpha + (b.alpha - a.alpha) * t;
      auto mix = [&](double x, double y) {
        double weighed = x * a.alpha * (1 - t) + y * b.alpha * t;
        return alpha > 0 ? std::clamp(weighed / alpha, 0.0, 1.0) : (t < 1 ? y : x);
      };
      appendStop(defs, {a.offset + (b.offset - a.offset) * t, mix(a.red, b.red),
                        mix(a.green, b.green), mix(a.blue, b.blue), alpha});
    }
  }
}

std::optional<Paint> paintOf(const Fill& fill, const Box& box, const std::string& id,
                             std::string& defsText) {
  if (!fill.kind()) return std::nullopt;
  double opacity = std::clamp(finite(fill.opacity().value_or(1), 1), 0.0, 1.0);
  if (const auto* color = fill.kind()->asColor()) {
    if (!color->color) return std::nullopt;
    Rgba c = rgba(*color->color, opacity);
    return Paint{c.hex(), c.alpha, {}};
  }
  const auto* holder = fill.kind()->asGradient();
  if (!holder || !holder->gradient) return std::nullopt;
  const Gradient& gradient = *holder->gradient;
  GradientGeometry g = gradientGeometry(gradient, box.rect());
  if (gradient.kind() == Gradient::Kind::angular)
    return Paint{{}, opacity, cssGradient(gradient, box.rect())};

  Svg defs(defsText);
  std::string transform;
  if (g.rotation != 0) transform = rotateAbout(-g.rotation, g.from.x, g.from.y);
  if (gradient.kind() == Gradient::Kind::radial) {
    if (g.crossScale != 1) {
      // Stretch across the axis from `from` to `to`: an ellipse.
      double axis = std::atan2(g.to.y - g.from.y, g.to.x - g.from.x) * 180 / kPi;
      if (!transform.empty()) transform += ' ';
      transform += "translate(";
      appendNumber(transform, g.from.x);
      transform += ' ';
      appendNumber(transform, g.from.y);
      transform += ") rotate(";
      appendNumber(transform, axis);
      transform += ") scale(1 ";
      appendNumber(transform, g.crossScale);
      transform += ") rotate(";
      appendNumber(transform, -axis);
      transform += ") translate(";
      appendNumber(transform, -g.from.x);
      transform += ' ';
      appendNumber(transform, -g.from.y);
      transform += ')';
    }
    defs.raw("<radialGradient").attr("id", id).attr("gradientUnits", "userSpaceOnUse");
    defs.attr("cx", g.from.x).attr("cy", g.from.y).attr("r", g.radius);
  } else {
    defs.raw("<linearGradient").attr("id", id).attr("gradientUnits", "userSpaceOnUse");
    defs.attr("x1", g.from.x).attr("y1", g.from.y).attr("x2", g.to.x).attr("y2", g.to.y);
  }
  if (!transform.empty()) defs.attr("gradientTransform", transform);
  defs.raw(">");
  appendStops(defs, gradient);
  defs.raw(gradient.kind() == Gradient::Kind::radial ? "</radialGradient>" : "</linearGradient>");
  return Paint{url(id), opacity, {}};
}

void appendFontCss(std::string& css, const TextStyle& style) {
  FontFace face = fontFace(style.fontName());
  css += "font-family:" + cssFontFamily(style.fontName());
  css += ";font-weight:" + std::to_string(face.weight) + ';';
  css += face.italic ? "font-style:italic;" : "font-style:normal;";
  css += "font-size:";
  appendNumber(css, style.fontSize());
  css += "px;";
  if (style.lineHeight()) {
    css += "line-height:";
    appendNumber(css, *style.lineHeight());
    css += "px;";
  }
  if (style.letterSpacing()) {
    css += "letter-spacing:";
    appendNumber(css, *style.letterSpacing());
    css += "px;";
  }
  if (style.color()) css += "color:" + rgba(*style.color()).css() + ';';
}

bool isInner(const Shadow& s) {
  return s.kind() == Shadow::Kind::inner;
}

// How far beyond its frame a layer may paint: its shadows, outside borders and blur.
double reachOf(const Layer& layer) {
  double reach = 0;
  if (layer.shadows()) {
    for (const auto& s : *layer.shadows()) {
      if (!s || isInner(*s)) continue;
      double sigma = std::max(0.0, finite(s->blurRadius())) / 2;
      reach = std::max(reach, std::max(std::abs(finite(s->x())), std::abs(finite(s->y()))) +
                                  std::max(0.0, finite(s->spread())) + 3 * sigma);
    }
  }
  if (layer.borders()) {
    for (const auto& b : *layer.borders()) {
      if (b) reach = std::max(reach, std::max(0.0, finite(b->thickness())));
    }
  }
  if (layer.blur() && layer.blur()->kind() != Blur::Kind::background) {
    reach += 3 * std::max(0.0, finite(layer.blur()->radius()));
  }
  return reach;
}

bool hasBackgroundBlur(const Layer& layer) {
  return layer.blur() && layer.blur()->kind() == Blur::Kind::background &&
         finite(layer.blur()->radius()) > 0;
}

double rotationOf(const Layer& layer) {
  return finite(layer.rotation().value_or(0));
}

// The box a layer covers on the artboard, rotation and reach included.
Box coverOf(const Layer& layer) {
  Box b = Box::of(layer.absoluteFrame());
  double turn = rotationOf(layer);
  if (turn != 0) {
    double a = turn * kPi / 180, c = std::abs(std::cos(a)), s = std::abs(std::sin(a));
    double w = b.w * c + b.h * s, h = b.w * s + b.h * c;
    b = {b.x + (b.w - w) / 2, b.y + (b.h - h) / 2, w, h};
  }
  return b.outset(reachOf(layer));
}

// Which earlier layers each background blur shows through, within a budget that keeps the
// whole drawing linear in the number of layers.
struct Backdrops {
  std::vector<std::vector<std::size_t>> below;  // per layer, ascending
  std::vector<bool> referenced;
};

Backdrops findBackdrops(const std::vector<Ref<Layer>>& layers) {
  Backdrops out;
  out.below.resize(layers.size());
  out.referenced.resize(layers.size());
  std::size_t steps = 32 * layers.size() + 4096;
  std::size_t uses = 8 * layers.size() + 1024;
  std::vector<Box> covers;
  for (std::size_t i = 0; i < layers.size(); ++i) {
    if (!layers[i] || !hasBackgroundBlur(*layers[i])) continue;
    if (covers.empty()) {
      covers.reserve(layers.size());
      for (const auto& l : layers) covers.push_back(l ? coverOf(*l) : Box{});
    }
    Box self = covers[i];
    for (std::size_t j = i; j-- > 0 && steps > 0 && uses > 0; --steps) {
      if (layers[j] && covers[j].intersects(self)) {
        out.below[i].push_back(j);
        out.referenced[j] = true;
        --uses;
      }
    }
    std::reverse(out.below[i].begin(), out.below[i].end());
  }
  return out;
}

class Renderer {
 public:
  Renderer(const Snapshot& snapshot, const RenderOptions& options, std::string& out)
      : snapshot_(snapshot), options_(options), svg_(out) {}

  void run() {
    double w = std::max(0.0, finite(snapshot_.size().width));
    double h = std::max(0.0, finite(snapshot_.size().height));
    svg_.raw("<svg xmlns=\"http://www.w3.org/2000/svg\"").attr("width", w).attr("height", h);
    std::string viewBox = "0 0 " + detail::number(w) + ' ' + detail::number(h);
    svg_.attr("viewBox", viewBox).raw(">\n");
    if (snapshot_.backgroundColor()) {
      svg_.raw("<rect").attr("id", options_.idPrefix + "bg")
          .box({0, 0, w, h})
          .paint("fill", rgba(*snapshot_.backgroundColor()));
      svg_.raw("/>\n");
    }
    static const std::vector<Ref<Layer>> kNone;
    const auto& layers = snapshot_.flattenedLayers() ? *snapshot_.flattenedLayers() : kNone;
    Backdrops backdrops = findBackdrops(layers);
    for (std::size_t i = 0; i < layers.size(); ++i) {
      if (!layers[i]) continue;
      if (!backdrops.below[i].empty() || hasBackgroundBlur(*layers[i])) {
        if (!options_.sketch) drawBackdrop(*layers[i], i, backdrops.below[i]);
      }
      drawLayer(*layers[i], i, backdrops.referenced[i]);
    }
    if (options_.grid) drawGrid(w, h);
    if (options_.assets) drawAssets();
    if (options_.links) drawLinks();
    svg_.raw("</svg>\n");
  }

 private:
  void drawBackdrop(const Layer& layer, std::size_t index, const std::vector<std::size_t>& below) {
    Box box = Box::of(layer.absoluteFrame());
    double radius = fitRadius(layer.cornerRadius(), box);
    double sigma = finite(layer.blur()->radius());
    std::string prefix = layerId(index);
    svg_.raw("<defs><clipPath").attr("id", prefix + "-bc").raw("><rect").box(box, radius);
    if (double turn = rotationOf(layer); turn != 0) {
      svg_.attr("transform", rotateAbout(-turn, box.x + box.w / 2, box.y + box.h / 2));
    }
    svg_.raw("/></clipPath><filter").attr("id", prefix + "-bb");
    filterRegion(coverOf(layer).outset(3 * sigma));
    svg_.raw("><feGaussianBlur").attr("stdDeviation", sigma).raw("/></filter></defs>");
    svg_.raw("<g").attr("data-backdrop", layer.identifier().rawValue());
    svg_.attr("clip-path", url(prefix + "-bc"));
    double opacity = std::clamp(finite(layer.opacity(), 1), 0.0, 1.0);
    if (opacity < 1) svg_.attr("opacity", opacity);
    svg_.raw("><g").attr("filter", url(prefix + "-bb")).raw(">");
    if (snapshot_.backgroundColor())
      svg_.raw("<use").attr("href", reference(options_.idPrefix + "bg")).raw("/>");
    for (std::size_t j : below) svg_.raw("<use").attr("href", reference(layerId(j))).raw("/>");
    svg_.raw("</g></g>\n");
  }

  // The id of the layer drawn `index`th; its definitions' ids start with it.
  std::string layerId(std::size_t index) const {
    std::string id = options_.idPrefix;
    id += 'L';
    id += std::to_string(index);
    return id;
  }

  void filterRegion(const Box& b) {
    svg_.attr("filterUnits", "userSpaceOnUse").attr("x", b.x).attr("y", b.y);
    svg_.attr("width", b.w).attr("height", b.h);
  }

  void drawLayer(const Layer& layer, std::size_t index, bool referenced) {
    const Box box = Box::of(layer.absoluteFrame());
    const double radius = fitRadius(layer.cornerRadius(), box);
    const std::string prefix = layerId(index);
    const bool isText = layer.kind() && layer.kind()->asText();
    std::string defsText;
    Svg defs(defsText);
    std::string body;
    Svg draw(body);

    std::vector<const Shadow*> outer, inner;
    if (layer.shadows()) {
      for (const auto& s : *layer.shadows()) {
        if (s && s->color()) (isInner(*s) ? inner : outer).push_back(s.get());
      }
    }
    if (options_.sketch) outer.clear(), inner.clear();
    if (!isText) drawOuterShadows(outer, box, radius, prefix, defs, draw);

    std::size_t n = 0;
    if (layer.fills()) {
      for (const auto& fill : *layer.fills()) {
        if (!fill) continue;
        auto paint = paintOf(*fill, box, prefix + "-f" + std::to_string(n++), defsText);
        if (!paint) continue;
        std::string blend = blendCss(fill->blendMode(), draw);
        if (!paint->conic.empty()) {
          std::string css =
              "width:" + detail::number(box.w) + "px;height:" + detail::number(box.h) +
              "px;border-radius:" + detail::number(radius) + "px;background:" + paint->conic + ';';
          if (paint->opacity < 1) css += "opacity:" + detail::number(paint->opacity) + ';';
          draw.raw("<foreignObject").box(box);
          if (!blend.empty()) draw.attr("style", blend);
          draw.raw("><div").attr("xmlns", kXhtml).attr("style", css).raw("/></foreignObject>");
          continue;
        }
        draw.raw("<rect").box(box, radius).attr("fill", paint->value);
        if (paint->opacity < 1) {
          draw.attr(paint->value[0] == '#' ? "fill-opacity" : "opacity", paint->opacity);
        }
        if (!blend.empty()) draw.attr("style", blend);
        draw.raw("/>");
      }
    }

    if (!inner.empty()) {
      if (isText) {
        draw.comment("inner shadows of text are not drawn");
      } else {
        drawInnerShadows(inner, box, radius, prefix, defs, draw);
      }
    }
    if (layer.borders()) drawBorders(*layer.borders(), box, radius, prefix, defs, draw);
    if (isText) drawText(*layer.kind()->asText(), outer, box, draw);

    // The layer's own element, with what applies to all it draws.
    bool blurred = false;
    if (layer.blur() && !hasBackgroundBlur(layer) && !options_.sketch) {
      double sigma = std::max(0.0, finite(layer.blur()->radius()));
      if (sigma > 0) {
        blurred = true;
        defs.raw("<filter").attr("id", prefix + "-b").attr("filterUnits", "userSpaceOnUse");
        defs.box(box.outset(reachOf(layer)));
        defs.raw("><feGaussianBlur").attr("stdDeviation", sigma).raw("/></filter>");
      }
    }
    if (!defsText.empty()) svg_.raw("<defs>").raw(defsText).raw("</defs>");
    std::string blend = blendCss(layer.blendMode(), svg_);
    svg_.raw("<g").attr("data-layer", layer.identifier().rawValue());
    if (referenced) svg_.attr("id", prefix);
    if (double turn = rotationOf(layer); turn != 0) {
      svg_.attr("transform", rotateAbout(-turn, box.x + box.w / 2, box.y + box.h / 2));
    }
    double opacity = std::clamp(finite(layer.opacity(), 1), 0.0, 1.0);
    if (opacity < 1) svg_.attr("opacity", opacity);
    if (!blend.empty()) svg_.attr("style", blend);
    if (blurred) svg_.attr("filter", url(prefix + "-b"));
    svg_.raw(">").raw(body).raw("</g>\n");
  }

  // "mix-blend-mode:..." for a mode other than normal; the approximation said in `where`.
  static std::string blendCss(const std::optional<BlendMode>& mode, Svg& where) {
    if (!mode || *mode == BlendMode::normal) return {};
    CssBlendMode css = cssBlendMode(*mode);
    if (!css.exact) {
      where.comment("blend mode " + std::string(rawValue(*mode)) + " drawn as " +
                    std::string(css.name));
    }
    if (css.name == "normal") return {};
    return "mix-blend-mode:" + std::string(css.name);
  }

  void drawOuterShadows(const std::vector<const Shadow*>& shadows, const Box& box, double radius,
                        const std::string& prefix, Svg& defs, Svg& draw) {
    if (shadows.empty()) return;
    // Seen only outside the outline, as a box shadow is.
    Box region = box;
    for (const Shadow* s : shadows) {
      double sigma = std::max(0.0, finite(s->blurRadius())) / 2;
      Box shape = box.outset(finite(s->spread())).moved(finite(s->x()), finite(s->y()));
      Box reach = shape.outset(3 * sigma);
      double x0 = std::min(region.x, reach.x), y0 = std::min(region.y, reach.y);
      double x1 = std::max(region.x + region.w, reach.x + reach.w);
      double y1 = std::max(region.y + region.h, reach.y + reach.h);
      region = {x0, y0, x1 - x0, y1 - y0};
    }
    region = region.outset(1);
    defs.raw("<mask").attr("id", prefix + "-o").attr("maskUnits", "userSpaceOnUse");
    defs.box(region).raw("><rect").box(region).attr("fill", "#fff").raw("/><rect");
    defs.box(box, radius).attr("fill", "#000").raw("/></mask>");
    std::size_t n = 0;
    for (const Shadow* s : shadows) {
      double spread = finite(s->spread());
      Box shape = box.outset(spread).moved(finite(s->x()), finite(s->y()));
      if (shape.w <= 0 || shape.h <= 0) continue;
      double r = radius > 0 ? std::max(0.0, radius + spread) : 0;
      double sigma = std::max(0.0, finite(s->blurRadius())) / 2;
      std::string filter = prefix + "-s" + std::to_string(n++);
      if (sigma > 0) {
        defs.raw("<filter").attr("id", filter);
        Box b = shape.outset(3 * sigma);
        defs.attr("filterUnits", "userSpaceOnUse").box(b);
        defs.raw("><feGaussianBlur").attr("stdDeviation", sigma).raw("/></filter>");
      }
      draw.raw("<rect").box(shape, std::min(r, std::min(shape.w, shape.h) / 2));
      draw.paint("fill", rgba(*s->color()));
      if (sigma > 0) draw.attr("filter", url(filter));
      draw.attr("mask", url(prefix + "-o")).raw("/>");
    }
  }

  void drawInnerShadows(const std::vector<const Shadow*>& shadows, const Box& box, double radius,
                        const std::string& prefix, Svg& defs, Svg& draw) {
    defs.raw("<clipPath").attr("id", prefix + "-c").raw("><rect").box(box, radius);
    defs.raw("/></clipPath>");
    draw.raw("<g").attr("clip-path", url(prefix + "-c")).raw(">");
    std::size_t n = 0;
    for (const Shadow* s : shadows) {
      double spread = finite(s->spread());
      double sigma = std::max(0.0, finite(s->blurRadius())) / 2;
      double dx = finite(s->x()), dy = finite(s->y());
      // Everything around the shifted, shrunk outline casts the shadow inwards.
      Box hole = box.outset(-spread).moved(dx, dy);
      Box around = box.outset(std::abs(dx) + std::abs(dy) + std::abs(spread) + 3 * sigma + 1);
      std::string d;
      appendRoundedRectPath(d, around, 0);
      if (hole.w > 0 && hole.h > 0) {
        appendRoundedRectPath(d, hole, fitRadius(radius - spread, hole));
      }
      std::string filter = prefix + "-i" + std::to_string(n++);
      if (sigma > 0) {
        defs.raw("<filter").attr("id", filter).attr("filterUnits", "userSpaceOnUse");
        defs.box(around.outset(3 * sigma));
        defs.raw("><feGaussianBlur").attr("stdDeviation", sigma).raw("/></filter>");
      }
      draw.raw("<path").attr("d", d).attr("fill-rule", "evenodd").paint("fill", rgba(*s->color()));
      if (sigma > 0) draw.attr("filter", url(filter));
      draw.raw("/>");
    }
    draw.raw("</g>");
  }

  void drawBorders(const std::vector<Ref<Border>>& borders, const Box& box, double radius,
                   const std::string& prefix, Svg& defs, Svg& draw) {
    std::size_t n = 0;
    for (const auto& border : borders) {
      if (!border || !border->fill()) continue;
      double t = finite(border->thickness());
      if (!(t > 0)) continue;
      std::string defsText;
      auto paint = paintOf(*border->fill(), box, prefix + "-k" + std::to_string(n++), defsText);
      if (!paint) continue;
      defs.raw(defsText);
      if (!paint->conic.empty()) {
        // A stroke cannot take a CSS gradient: the first stop's color stands in.
        draw.comment("angular gradient border drawn in its first color");
        const auto* g = border->fill()->kind()->asGradient();
        const auto& stops = g->gradient->stops();
        if (stops.empty() || !stops.front() || !stops.front()->color()) continue;
        Rgba c = rgba(*stops.front()->color(), paint->opacity);
        paint->value = c.hex();
        paint->opacity = c.alpha;
      }
      std::string blend = blendCss(border->fill()->blendMode(), draw);
      // The stroke as the ring between two outlines, each rounded as CSS rounds a border's
      // edges: the outer corner at the radius plus what lies outside, the inner one at the
      // radius less what lies inside, never below 0.
      auto position = border->position().value_or(Border::Position::center);
      double in = position == Border::Position::inside    ? t
                  : position == Border::Position::outside ? 0
                                                          : t / 2;
      double out = t - in;
      Box outer = box.outset(out), inner = box.outset(-in);
      std::string d;
      appendRoundedRectPath(d, outer, radius > 0 ? fitRadius(radius + out, outer) : 0);
      if (inner.w > 0 && inner.h > 0) {
        appendRoundedRectPath(d, inner, fitRadius(radius - in, inner));
      }
      draw.raw("<path").attr("d", d).attr("fill-rule", "evenodd").attr("fill", paint->value);
      if (paint->opacity < 1) {
        draw.attr(paint->value[0] == '#' ? "fill-opacity" : "opacity", paint->opacity);
      }
      if (!blend.empty()) draw.attr("style", blend);
      draw.raw("/>");
    }
  }

  void drawText(const Layer::Kind::Text& text, const std::vector<const Shadow*>& shadows,
                const Box& box, Svg& draw) {
    if (options_.sketch) {
      drawSvgText(text, box, draw);
      return;
    }
    std::string css = "margin:0;width:" + detail::number(box.w) +
                      "px;height:" + detail::number(box.h) +
                      "px;white-space:pre-wrap;overflow-wrap:break-word;";
    if (Ref<TextStyle> paragraph = paragraphStyle(text.rangedTextStyles)) {
      appendFontCss(css, *paragraph);
      if (paragraph->alignment()) {
        css += "text-align:";
        css += rawValue(*paragraph->alignment());
        css += ';';
      }
    }
    if (!shadows.empty()) {
      bool spread = false;
      css += "text-shadow:";
      // CSS stacks its first shadow on top; the list puts its first at the bottom.
      for (auto s = shadows.rbegin(); s != shadows.rend(); ++s) {
        if (s != shadows.rbegin()) css += ',';
        css += detail::number(finite((*s)->x())) + "px " + detail::number(finite((*s)->y())) +
               "px " + detail::number(std::max(0.0, finite((*s)->blurRadius()))) + "px " +
               rgba(*(*s)->color()).css();
        spread = spread || finite((*s)->spread()) != 0;
      }
      css += ';';
      if (spread) draw.comment("text shadows are drawn without their spread");
    }
    // Browsers lay the text out as HTML; other viewers, and browsers drawing the layer through
    // <use> (a backdrop), take the SVG text beside it.
    draw.raw("<switch><foreignObject").box(box).attr("style", "overflow:visible");
    draw.attr("requiredExtensions", kXhtml);
    draw.raw("><div").attr("xmlns", kXhtml).attr("style", css).raw(">");
    const std::string& content = text.content;
    for (const TextRun& run : textRuns(content, text.rangedTextStyles)) {
      std::string_view part = std::string_view(content).substr(run.begin, run.end - run.begin);
      if (!run.style) {
        draw.text(part);
        continue;
      }
      std::string span;
      appendFontCss(span, *run.style);
      draw.raw("<span").attr("style", span).raw(">").text(part).raw("</span>");
    }
    draw.raw("</div></foreignObject>");
    drawSvgText(text, box, draw);
    draw.raw("</switch>");
  }

  // The text as SVG <text>, laid out without a browser's help: lines break at line breaks and,
  // by an estimate of the glyphs' widths, between words at the frame's width.
  static void drawSvgText(const Layer::Kind::Text& text, const Box& box, Svg& draw) {
    Ref<TextStyle> paragraph = paragraphStyle(text.rangedTextStyles);
    struct Piece {
      std::string_view text;
      const TextStyle* style;
    };
    std::vector<std::vector<Piece>> lines(1);
    double lineWidth = 0;
    auto size = [&](const TextStyle* style) {
      return style && std::isfinite(style->fontSize()) ? std::max(0.0, style->fontSize()) : 16.0;
    };
    auto advance = [&](std::string_view word, const TextStyle* style) {
      double ems = 0;
      std::size_t glyphs = 0;
      for (std::size_t at = 0; at < word.size();) {
        detail::CodePoint c = detail::readCodePoint(word, at);
        ems += glyphWidth(c.value);
        ++glyphs;
        at += c.length;
      }
      if (style && fontFace(style->fontName()).weight >= 600) ems *= 1.1;
      double spacing = style && style->letterSpacing() ? finite(*style->letterSpacing()) : 0;
      return ems * size(style) + static_cast<double>(glyphs) * spacing;
    };
    const std::string& content = text.content;
    for (const TextRun& run : textRuns(content, text.rangedTextStyles)) {
      const TextStyle* style = run.style ? run.style.get() : paragraph.get();
      std::string_view rest = std::string_view(content).substr(run.begin, run.end - run.begin);
      while (!rest.empty()) {
        if (rest.front() == '\n') {
          lines.emplace_back();
          lineWidth = 0;
          rest.remove_prefix(1);
          continue;
        }
        // A word with the spaces after it.
        std::size_t end = rest.find_first_of(" \n");
        if (end == std::string_view::npos) end = rest.size();
        while (end < rest.size() && rest[end] == ' ') ++end;
        std::string_view word = rest.substr(0, end);
        double width = advance(word, style);
        if (lineWidth > 0 && lineWidth + advance(word.substr(0, word.find_last_not_of(' ') + 1), style) > box.w) {
          lines.emplace_back();
          lineWidth = 0;
        }
        // Words of one style stay one piece: the text reads as written.
        if (!lines.back().empty() && lines.back().back().style == style &&
            lines.back().back().text.data() + lines.back().back().text.size() == word.data()) {
          lines.back().back().text = {lines.back().back().text.data(),
                                      lines.back().back().text.size() + word.size()};
        } else {
          lines.back().push_back({word, style});
        }
        lineWidth += width;
        rest.remove_prefix(end);
      }
    }
    std::string anchor = "start";
    double x = box.x;
    if (paragraph && paragraph->alignment() == TextStyle::Alignment::center) {
      anchor = "middle";
      x = box.x + box.w / 2;
    } else if (paragraph && paragraph->alignment() == TextStyle::Alignment::right) {
      anchor = "end";
      x = box.x + box.w;
    }
    double top = box.y;
    draw.raw("<g").attr("text-anchor", anchor).attr("style", "white-space:pre").raw(">");
    for (const auto& line : lines) {
      double largest = size(paragraph.get());
      for (const Piece& piece : line) largest = std::max(largest, size(piece.style));
      double height = paragraph && paragraph->lineHeight() && std::isfinite(*paragraph->lineHeight())
                          ? *paragraph->lineHeight()
                          : 1.2 * largest;
      if (!line.empty()) {
        // The baseline where CSS puts it for a common font: half the leading, then the ascent.
        draw.raw("<text").attr("x", x).attr("y", top + height / 2 + 0.35 * largest).raw(">");
        for (const Piece& piece : line) {
          std::string css;
          if (piece.style) appendFontCss(css, *piece.style);
          draw.raw("<tspan");
          if (!css.empty()) draw.attr("style", svgTextCss(css));
          draw.raw(">").text(piece.text).raw("</tspan>");
        }
        draw.raw("</text>");
      }
      top += height;
    }
    draw.raw("</g>");
  }

  // A glyph's advance in ems, as common sans-serif faces set it, rather wide than narrow so that
  // an estimated line breaks before the frame's edge.
  static double glyphWidth(char32_t c) {
    static constexpr std::string_view kNarrow = "ijl|!.,:;'`", kSlim = "frt()[]{}-\"/\\I";
    if (c == ' ') return 0.32;
    if (c < 0x80) {
      char ch = static_cast<char>(c);
      if (kNarrow.find(ch) != std::string_view::npos) return 0.3;
      if (kSlim.find(ch) != std::string_view::npos) return 0.42;
      if (ch == 'm' || ch == 'w' || ch == 'M') return 0.9;
      if (ch == 'W') return 1.0;
      if (ch >= 'A' && ch <= 'Z') return 0.76;
      if (ch >= '0' && ch <= '9') return 0.64;
      return 0.6;
    }
    // East Asian scripts and symbols are set a full em wide.
    return c >= 0x2E80 ? 1.0 : 0.64;
  }

  // CSS for HTML text as SVG text takes it: `color` is `fill` there.
  static std::string svgTextCss(std::string css) {
    for (std::size_t at = 0; (at = css.find("color:", at)) != std::string::npos; at += 5) {
      if (at == 0 || css[at - 1] == ';') css.replace(at, 6, "fill:");
    }
    return css;
  }

  void drawGrid(double width, double height) {
    const Ref<Grid>& grid = snapshot_.grid();
    if (!grid) return;
    constexpr std::int64_t kMostBands = 10000;
    svg_.raw("<g data-grid=\"\">");
    double offset = finite(grid->horizontalOffset());
    if (const auto& v = grid->vertical()) {
      double column = std::max(0.0, finite(v->columnWidth()));
      double gutter = std::max(0.0, finite(v->gutterWidth()));
      // Outside gutters put half a gutter before the first column and after the last.
      double x = offset + (v->hasOutsideGutters() ? gutter / 2 : 0);
      std::int64_t count = std::clamp<std::int64_t>(v->columnCount(), 0, kMostBands);
      for (std::int64_t i = 0; i < count && column > 0; ++i, x += column + gutter) {
        svg_.raw("<rect").box({x, 0, column, height}).attr("fill", "#ff3b30");
        svg_.attr("fill-opacity", 0.12).raw("/>");
      }
    }
    if (const auto& h = grid->horizontal()) {
      double row = std::max(0.0, finite(h->rowHeight()));
      double gutter = std::max(0.0, finite(h->gutterHeight()));
      std::int64_t count = 0;
      for (double y = 0; row > 0 && y < height && count < kMostBands; y += row + gutter, ++count) {
        svg_.raw("<rect").box({0, y, width, std::min(row, height - y)}).attr("fill", "#007aff");
        svg_.attr("fill-opacity", 0.08).raw("/>");
      }
    }
    svg_.raw("</g>\n");
  }

  void drawAssets() {
    std::unordered_set<std::string> identifiers, names;
    if (snapshot_.assets()) {
      for (const auto& asset : *snapshot_.assets()) {
        if (!asset) continue;
        if (asset->layerIdentifier()) {
          identifiers.insert(std::string(asset->layerIdentifier()->rawValue()));
        } else {
          names.insert(asset->layerName());
        }
      }
    }
    svg_.raw(
        "<g data-assets=\"\" fill=\"none\" stroke=\"#0a84ff\" stroke-width=\"1\" "
        "stroke-dasharray=\"4 2\">");
    // Every layer of the tree, groups the drawing leaves out included.
    for (const Ref<Layer>& layer : allLayers(snapshot_)) {
      if (layer->isExportable() || identifiers.count(std::string(layer->identifier().rawValue())) ||
          names.count(layer->name())) {
        Box box = Box::of(layer->absoluteFrame());
        svg_.raw("<rect").attr("data-asset-layer", layer->identifier().rawValue()).box(box);
        if (double turn = rotationOf(*layer); turn != 0) {
          svg_.attr("transform", rotateAbout(-turn, box.x + box.w / 2, box.y + box.h / 2));
        }
        svg_.raw("/>");
      }
    }
    svg_.raw("</g>\n");
  }

  void drawLinks() {
    if (!snapshot_.links()) return;
    std::size_t index = 0;
    for (const auto& link : *snapshot_.links()) {
      std::size_t i = index++;
      if (!link) continue;
      Box box = Box::of(link->frame());
      std::string label = "no destination";
      if (link->destination() && link->destination()->kind()) {
        const auto& kind = *link->destination()->kind();
        label = kind.asScreen() ? "\u2192 " + kind.asScreen()->name : "\u2190 previous";
      }
      svg_.raw("<g").attr("data-link", std::to_string(i)).raw("><rect").box(box);
      svg_.raw(" fill=\"#ff9500\" fill-opacity=\"0.15\" stroke=\"#ff9500\" stroke-width=\"2\"/>");
      svg_.raw("<text").attr("x", box.x + 4).attr("y", box.y + 14);
      // A white halo keeps the label readable over whatever lies below it.
      svg_.raw(" font-family=\"sans-serif\" font-size=\"12\" fill=\"#c93400\" stroke=\"#fff\"");
      svg_.raw(" stroke-width=\"3\" stroke-linejoin=\"round\" paint-order=\"stroke\">");
      svg_.text(label);
      svg_.raw("</text></g>\n");
    }
  }

  const Snapshot& snapshot_;
  const RenderOptions& options_;
  Svg svg_;
};

}  // namespace

std::string renderSvg(const Snapshot& snapshot, const RenderOptions& options) {
  std::string out;
  Renderer(snapshot, options, out).run();
  return out;
}

}  // namespace orvane::handoff
