#include <orvane/handoff/Code.hpp>

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Paint.hpp>
#include <orvane/handoff/Text.hpp>
#include <orvane/internal/Box.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/internal/PlatformCode.hpp>
#include <orvane/project/Version.hpp>
#include <orvane/project/VersionCollection.hpp>

namespace orvane::handoff {

double densityScale(Density density) {
  switch (density) {
    case Density::_2x:
    case Density::xhdpi:
      return 2;
    case Density::_3x:
    case Density::xxhdpi:
      return 3;
    case Density::hdpi:
      return 1.5;
    case Density::xxxhdpi:
      return 4;
    case Density::_1x:
    case Density::mdpi:
      break;
  }
  return 1;
}

namespace {

using detail::number;

constexpr double kPi = 3.14159265358979323846;
constexpr const char* kClampedNote = "values beyond what a Float holds, or not numbers, are clamped";

double unitInterval(double value, double otherwise) {
  return std::isfinite(value) ? std::clamp(value, 0.0, 1.0) : otherwise;
}

// --- What every language reads of a layer -----------------------------------------------------

// What a fill paints with: one color, or a gradient of two stops or more.
struct Paint {
  const Color* color = nullptr;
  const Gradient* gradient = nullptr;
  double opacity = 1;               // the fill's own, 0 to 1
  std::optional<BlendMode> blend;   // other than normal
};

// How `fill` paints, if it does: a gradient of one stop is that stop's color, one without stops
// paints nothing (`empty` says so).
std::optional<Paint> paintOf(const Fill& fill, bool& empty) {
  if (!fill.kind()) return std::nullopt;
  Paint p;
  p.opacity = unitInterval(fill.opacity().value_or(1), 1);
  if (fill.blendMode() && *fill.blendMode() != BlendMode::normal) p.blend = fill.blendMode();
  if (const auto* c = fill.kind()->asColor()) {
    if (!c->color) return std::nullopt;
    p.color = c->color.get();
    return p;
  }
  const auto* holder = fill.kind()->asGradient();
  if (!holder || !holder->gradient) return std::nullopt;
  std::size_t stops = 0;
  const Color* only = nullptr;
  for (const auto& stop : holder->gradient->stops()) {
    if (stop && stop->color()) {
      ++stops;
      only = stop->color().get();
    }
  }
  if (stops == 0) {
    empty = true;
    return std::nullopt;
  }
  if (stops == 1) {
    p.color = only;
  } else {
    p.gradient = holder->gradient.get();
  }
  return p;
}

// A gradient's usable stops, in order.
std::vector<const Gradient::Stop*> stopsOf(const Gradient& g) {
  std::vector<const Gradient::Stop*> out;
  for (const auto& stop : g.stops()) {
    if (stop && stop->color()) out.push_back(stop.get());
  }
  return out;
}

double stopPosition(const Gradient::Stop& stop) { return unitInterval(stop.position(), 0); }

struct BorderLook {
  Border::Position position;
  double thickness;
  Paint paint;
};

struct ShadowLook {
  double x, y, blur, spread;
  const Color* color;
};

// A layer as every language reads it: lengths already in the platform's units.
struct Look {
  const Layer& layer;
  std::string name;
  double x = 0, y = 0, w = 0, h = 0;  // absolute frame, standardized
  double radius = 0;                  // as CSS fits it into the frame
  double opacity = 1;
  double rotation = 0;  // degrees, counter-clockwise
  std::optional<BlendMode> blend;
  std::vector<Paint> fills;
  std::vector<BorderLook> borders;
  std::vector<ShadowLook> outer, inner;
  bool blurred = false, backgroundBlur = false;
  double blurRadius = 0;
  const Layer::Kind::Text* text = nullptr;
  const Layer::Kind::Group* group = nullptr;
  bool emptyGradient = false;

  Look(const Layer& l, std::string className, double scale) : layer(l), name(std::move(className)) {
    Rect frame = l.absoluteFrame();
    x = frame.minX() / scale;
    y = frame.minY() / scale;
    w = frame.width() / scale;
    h = frame.height() / scale;
    double fit = std::min(std::isnan(w) ? 0 : w, std::isnan(h) ? 0 : h) / 2;
    double r = l.cornerRadius() / scale;
    radius = std::isnan(r) ? r : std::clamp(r, 0.0, std::max(0.0, fit));
    opacity = unitInterval(l.opacity(), 1);
    rotation = l.rotation().value_or(0);
    if (l.blendMode() && *l.blendMode() != BlendMode::normal) blend = l.blendMode();
    if (l.fills()) {
      for (const auto& f : *l.fills()) {
        if (!f) continue;
        if (auto p = paintOf(*f, emptyGradient)) fills.push_back(*p);
      }
    }
    if (l.borders()) {
      for (const auto& b : *l.borders()) {
        if (!b || !b->fill() || !(b->thickness() > 0)) continue;
        if (auto p = paintOf(*b->fill(), emptyGradient)) {
          borders.push_back({b->position().value_or(Border::Position::center),
                             b->thickness() / scale, *p});
        }
      }
    }
    if (l.shadows()) {
      for (const auto& s : *l.shadows()) {
        if (!s || !s->color()) continue;
        ShadowLook look{s->x() / scale, s->y() / scale, std::max(0.0, s->blurRadius() / scale),
                        s->spread() / scale, s->color().get()};
        (s->kind() == Shadow::Kind::inner ? inner : outer).push_back(look);
      }
    }
    if (l.blur() && !(l.blur()->radius() <= 0)) {
      blurred = true;
      backgroundBlur = l.blur()->kind() == Blur::Kind::background;
      blurRadius = l.blur()->radius() / scale;
    }
    if (l.kind()) {
      text = l.kind()->asText();
      group = l.kind()->asGroup();
    }
  }

  // Whether the layer draws anything of its own (a group's look beside its children).
  bool draws() const {
    return !fills.empty() || !borders.empty() || !outer.empty() || !inner.empty() || blurred;
  }
};

// The class name each layer of the snapshot has, unique in it: made in tree order, so that a
// layer is named alike in its own code and in the whole snapshot's.
class LayerNames {
 public:
  static constexpr const char* kArtboard = "artboard";

  explicit LayerNames(const Snapshot* snapshot) {
    names_.reserve(kArtboard);
    if (!snapshot) return;
    for (const Ref<Layer>& layer : allLayers(*snapshot)) {
      byLayer_.emplace(layer.get(), names_.take(slug(layer->name(), "layer", "l-")));
    }
  }

  // The layer's name; a layer outside the snapshot gets one made from its own name.
  std::string of(const Layer& layer) {
    auto it = byLayer_.find(&layer);
    if (it != byLayer_.end()) return it->second;
    return byLayer_.emplace(&layer, names_.take(slug(layer.name(), "layer", "l-"))).first->second;
  }

  // A further name, free in the snapshot (for text spans).
  std::string take(const std::string& name) { return names_.take(name); }

 private:
  UniqueNames names_;
  std::unordered_map<const Layer*, std::string> byLayer_;
};

// The layers the flattening draws: a group without interaction level is only a container.
std::unordered_set<const Layer*> drawnLayers(const Snapshot& snapshot) {
  std::unordered_set<const Layer*> drawn;
  if (snapshot.flattenedLayers()) {
    for (const auto& l : *snapshot.flattenedLayers()) drawn.insert(l.get());
  }
  return drawn;
}

// The layers of a group (or the snapshot's top level), the nulls and the ones already seen left
// out, so that a tree that holds a layer twice is written once.
std::vector<const Layer*> childrenOf(const std::vector<Ref<Layer>>& layers,
                                     std::unordered_set<const Layer*>& seen) {
  std::vector<const Layer*> out;
  for (const auto& l : layers) {
    if (l && seen.insert(l.get()).second) out.push_back(l.get());
  }
  return out;
}

// `card-group` as `CardGroup`, for the names of types and functions.
std::string upperCamelCase(std::string_view slug) {
  std::string name = camelCase(slug);
  if (!name.empty()) name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
  return name;
}

// The name the screen or component gives the snapshot, for the view's or function's name.
std::string screenName(const Snapshot& snapshot) {
  std::string name;
  if (Ref<Version> version = snapshot.version()) {
    if (Ref<VersionCollection> collection = version->collection()) name = collection->name();
  }
  return slug(name, "snapshot", "s-");
}

// What each language's writer starts from: the options, how many design units make one of the
// platform's, the numbers it writes (clamped where a Float cannot hold them) and the style
// guide's tokens for what it finds there.
class Writer {
 protected:
  explicit Writer(const CodeOptions& options)
      : options_(options), scale_(densityScale(options.density)) {}

  std::string n(double value) { return codeNumber(value, clamped_); }

  // A color's token, when the guide has the color and it is drawn as it is.
  const StyleGuide::Token<ProjectColor>* colorToken(const Color& c, double opacity) const {
    return options_.styleGuide && opacity >= 1 ? options_.styleGuide->color(c) : nullptr;
  }
  const StyleGuide::Token<ProjectTextStyle>* styleToken(const TextStyle& style) const {
    return options_.styleGuide ? options_.styleGuide->textStyle(style) : nullptr;
  }

  // The gradient's end points in the box (0, 0, w, h), its `angle` turned in: the line a
  // linear gradient runs along, as the platforms lay it.
  static std::pair<Point, Point> turnedLine(const Gradient& g, double w, double h) {
    GradientGeometry geometry = gradientGeometry(g, Rect(0, 0, w, h));
    double a = -geometry.rotation * kPi / 180;
    double dx = geometry.to.x - geometry.from.x, dy = geometry.to.y - geometry.from.y;
    Point to{geometry.from.x + dx * std::cos(a) - dy * std::sin(a),
             geometry.from.y + dx * std::sin(a) + dy * std::cos(a)};
    return {geometry.from, to};
  }

  const CodeOptions& options_;
  double scale_;
  bool clamped_ = false;
};

// --- CSS ---------------------------------------------------------------------------------------

class Css : Writer {
 public:
  explicit Css(const CodeOptions& options) : Writer(options) {}

  // `.NAME { ... }` at the layer's absolute frame, with its text's other runs as comments.
  std::string layerRule(const Look& l) {
    std::string body = place(l.x, l.y, l.w, l.h) + style(l);
    if (l.text) body += spanComments(l);
    if (clamped_) body = comment(kClampedNote) + body;
    return rule("." + l.name, body);
  }

  // The whole snapshot as an HTML document.
  std::string page(const Snapshot& snapshot, LayerNames& names) {
    std::string rules, markup;
    double w = snapshot.size().width / scale_, h = snapshot.size().height / scale_;
    std::string artboard = "  position: relative;\n  overflow: hidden;\n  width: " + n(w) +
                           "px;\n  height: " + n(h) + "px;\n";
    if (snapshot.backgroundColor()) {
      artboard += "  background: " + color(*snapshot.backgroundColor()) + ";\n";
    }
    rules += rule("." + std::string(LayerNames::kArtboard), artboard);
    std::unordered_set<const Layer*> seen;
    std::unordered_set<const Layer*> drawn = drawnLayers(snapshot);
    markup += "<div class=\"" + std::string(LayerNames::kArtboard) + "\">\n";
    if (snapshot.layers()) {
      for (const Layer* child : childrenOf(*snapshot.layers(), seen)) {
        element(*child, 0, 0, 1, names, drawn, seen, rules, markup);
      }
    }
    markup += "</div>\n";
    std::string head = "html, body {\n  margin: 0;\n}\n";
    if (options_.styleGuide) head += writeTokens(*options_.styleGuide, TokenFormat::css,
                                                 {.density = options_.density, .pretty = false});
    if (clamped_) head = "/* " + std::string(kClampedNote) + " */\n" + head;
    std::string title;
    detail::appendXml(title, upperCamelCase(screenName(snapshot)));
    std::string style = head + rules;
    // A style element ends at the first `</style`, whatever the rules' strings hold.
    for (std::size_t at = 0; (at = style.find("</", at)) != std::string::npos;) {
      style.replace(at, 2, "<\\/");
    }
    return "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>" + title +
           "</title>\n<style>\n" + style + "</style>\n</head>\n<body>\n" + markup +
           "</body>\n</html>\n";
  }

 private:
  static std::string rule(const std::string& selector, const std::string& body) {
    return selector + " {\n" + body + "}\n";
  }
  static std::string line(const std::string& property, const std::string& value) {
    return "  " + property + ": " + value + ";\n";
  }
  static std::string comment(const std::string& text) { return "  /* " + text + " */\n"; }
  std::string px(double value) { return n(value) + "px"; }

  std::string place(double x, double y, double w, double h) {
    return line("position", "absolute") + line("left", px(x)) + line("top", px(y)) +
           line("width", px(w)) + line("height", px(h));
  }

  // A color, by its token where the style guide has it.
  std::string color(const Color& c, double opacity = 1) {
    if (const auto* token = colorToken(c, opacity)) return "var(--" + token->name + ")";
    return rgba(c, opacity).css();
  }

  // The declarations that style a look, without its place.
  std::string style(const Look& l) {
    std::string out;
    if (l.emptyGradient) out += comment("a gradient without stops paints nothing");
    out += background(l);
    std::vector<std::string> rings;
    out += borders(l, rings);
    if (l.radius > 0 || std::isnan(l.radius)) out += line("border-radius", px(l.radius));
    out += shadows(l, rings);
    if (l.opacity < 1) out += line("opacity", number(l.opacity));
    if (l.blend) {
      CssBlendMode css = cssBlendMode(*l.blend);
      if (!css.exact) out += comment(std::string(rawValue(*l.blend)) + " has no CSS blend mode: nearest");
      out += line("mix-blend-mode", std::string(css.name));
    }
    if (l.rotation != 0) out += line("transform", "rotate(" + n(-l.rotation) + "deg)");
    if (l.blurred) {
      out += line(l.backgroundBlur ? "backdrop-filter" : "filter", "blur(" + px(l.blurRadius) + ")");
    }
    if (l.text) out += textStyle(l);
    return out;
  }

  std::string background(const Look& l) {
    std::vector<std::string> layers, blends;
    std::string notes;
    bool anyBlend = false;
    // CSS lists its top background first; the fills list their bottom one first.
    for (auto it = l.fills.rbegin(); it != l.fills.rend(); ++it) {
      const Paint& p = *it;
      std::string image;
      if (p.color) {
        std::string value = color(*p.color, p.opacity);
        image = std::next(it) == l.fills.rend() ? value
                                                : "linear-gradient(" + value + ", " + value + ")";
      } else {
        std::string note;
        image = cssGradient(*p.gradient, Rect(0, 0, l.w, l.h), p.opacity, &note);
        if (!note.empty()) notes += comment(note);
      }
      layers.push_back(image);
      std::string_view blend = "normal";
      if (p.blend) {
        blend = cssBlendMode(*p.blend).name;
        anyBlend = true;
      }
      blends.emplace_back(blend);
    }
    if (layers.empty()) return notes;
    std::string out = notes + line("background", join(layers));
    if (anyBlend) {
      out += comment("fill blend modes mix the layer's own backgrounds only");
      out += line("background-blend-mode", join(blends));
    }
    return out;
  }

  static std::string join(const std::vector<std::string>& parts) {
    std::string out;
    for (const auto& p : parts) out += (out.empty() ? "" : ", ") + p;
    return out;
  }

  // A border's paint: its color, or a gradient's first color (CSS borders take no gradient
  // that follows rounded corners).
  std::string borderColor(const Paint& p, std::string& out) {
    if (p.color) return color(*p.color, p.opacity);
    out += comment("a gradient border drawn in its first color");
    return color(*stopsOf(*p.gradient).front()->color(), p.opacity);
  }

  std::string borders(const Look& l, std::vector<std::string>& rings) {
    std::string out;
    const auto& list = l.borders;
    // The common case reads as a developer writes it; stacked or outer ones become rings.
    if (list.size() == 1 && list[0].position == Border::Position::inside) {
      std::string c = borderColor(list[0].paint, out);
      out += line("box-sizing", "border-box");
      out += line("border", px(list[0].thickness) + " solid " + c);
      return out;
    }
    for (auto it = list.rbegin(); it != list.rend(); ++it) {
      std::string c = borderColor(it->paint, out);
      double t = it->thickness;
      if (it->position != Border::Position::outside) {
        rings.push_back("inset 0 0 0 " + px(it->position == Border::Position::inside ? t : t / 2) +
                        " " + c);
      }
      if (it->position != Border::Position::inside) {
        rings.push_back("0 0 0 " + px(it->position == Border::Position::outside ? t : t / 2) + " " +
                        c);
      }
    }
    return out;
  }

  std::string shadow(const ShadowLook& s, bool inset, bool spread) {
    std::string v = inset ? "inset " : "";
    v += px(s.x) + " " + px(s.y) + " " + px(s.blur) + " ";
    if (spread) v += px(s.spread) + " ";
    return v + color(*s.color);
  }

  std::string shadows(const Look& l, std::vector<std::string>& rings) {
    std::string out;
    std::vector<std::string> list = rings;
    if (l.text) {
      if (!l.inner.empty()) out += comment("inner shadows of text have no CSS");
    } else {
      for (auto it = l.inner.rbegin(); it != l.inner.rend(); ++it) {
        list.push_back(shadow(*it, true, true));
      }
      for (auto it = l.outer.rbegin(); it != l.outer.rend(); ++it) {
        list.push_back(shadow(*it, false, true));
      }
    }
    if (!list.empty()) out += line("box-shadow", join(list));
    return out;
  }

  // The declarations of a text style: by its token where the guide has it.
  std::string font(const TextStyle& style) {
    std::string out;
    if (const auto* token = styleToken(style)) {
      out += line("font", "var(--" + token->name + "-font)");
      out += line("letter-spacing", "var(--" + token->name + "-letter-spacing)");
      if (style.color()) out += line("color", "var(--" + colorTokenName(*token) + ")");
    } else {
      FontFace face = fontFace(style.fontName());
      out += line("font-family", cssFontFamily(style.fontName()));
      out += line("font-weight", std::to_string(face.weight));
      out += line("font-style", face.italic ? "italic" : "normal");
      out += line("font-size", px(style.fontSize() / scale_));
      if (style.lineHeight()) out += line("line-height", px(*style.lineHeight() / scale_));
      if (style.letterSpacing()) {
        out += line("letter-spacing", px(*style.letterSpacing() / scale_));
      }
      if (style.color()) out += line("color", color(*style.color()));
    }
    return out;
  }

  std::string textStyle(const Look& l) {
    std::string out;
    Ref<TextStyle> paragraph = paragraphStyle(l.text->rangedTextStyles);
    if (paragraph) {
      out += font(*paragraph);
      if (paragraph->alignment()) {
        out += line("text-align", std::string(rawValue(*paragraph->alignment())));
      }
    }
    out += line("white-space", "pre-wrap");
    out += line("overflow-wrap", "break-word");
    if (!l.outer.empty()) {
      std::vector<std::string> list;
      bool spread = false;
      for (auto it = l.outer.rbegin(); it != l.outer.rend(); ++it) {
        list.push_back(shadow(*it, false, false));
        spread = spread || it->spread != 0;
      }
      if (spread) out += comment("text shadows have no spread");
      out += line("text-shadow", join(list));
    }
    return out;
  }

  // Runs in other styles than the paragraph's, each as the declarations a span would take.
  std::string spanComments(const Look& l) {
    std::string out;
    const auto& text = *l.text;
    Ref<TextStyle> paragraph = paragraphStyle(text.rangedTextStyles);
    for (const TextRun& run : textRuns(text.content, text.rangedTextStyles)) {
      if (!run.style || run.style == paragraph) continue;
      std::string quoted;
      detail::appendCssString(quoted, text.content.substr(run.begin, run.end - run.begin));
      std::string declarations = font(*run.style);
      std::string css;
      for (std::size_t at = 0; at < declarations.size();) {
        std::size_t end = declarations.find('\n', at);
        std::string_view d(declarations.data() + at + 2, end - at - 2);  // without the indent
        if (!css.empty()) css += ' ';
        css += d;
        at = end + 1;
      }
      std::string text2 = "span " + quoted + ": " + css;
      // Keep the comment a comment whatever the text holds.
      for (std::size_t end; (end = text2.find("*/")) != std::string::npos;) text2.replace(end, 2, "* /");
      out += comment(text2);
    }
    return out;
  }

  // A layer's element and rules, placed relative to its parent at (px, py), then its children.
  void element(const Layer& layer, double parentX, double parentY, int depth, LayerNames& names,
               const std::unordered_set<const Layer*>& drawn,
               std::unordered_set<const Layer*>& seen, std::string& rules, std::string& markup) {
    Look l(layer, names.of(layer), scale_);
    std::string indent(2 * static_cast<std::size_t>(depth), ' ');
    std::string place = this->place(l.x - parentX, l.y - parentY, l.w, l.h);
    if (!l.group) {
      rules += rule("." + l.name, place + style(l));
      markup += indent + "<div class=\"" + l.name + "\">" + textMarkup(l, names, rules) +
                "</div>\n";
      return;
    }
    // A group the drawing leaves out has no element: its children lie in its parent's.
    if (!drawn.count(&layer)) {
      for (const Layer* child : childrenOf(l.group->layers, seen)) {
        element(*child, parentX, parentY, depth, names, drawn, seen, rules, markup);
      }
      return;
    }
    // A group is a container; its own look lies in a pseudo-element below or above its
    // children, so that nothing of it carries over to them.
    rules += rule("." + l.name, place);
    if (l.draws()) {
      bool above = l.group->interactionLevel == Layer::InteractionLevel::top;
      rules += rule("." + l.name + (above ? "::after" : "::before"),
                    line("content", "\"\"") + this->place(0, 0, l.w, l.h) + style(l));
    }
    markup += indent + "<div class=\"" + l.name + "\">\n";
    for (const Layer* child : childrenOf(l.group->layers, seen)) {
      element(*child, l.x, l.y, depth + 1, names, drawn, seen, rules, markup);
    }
    markup += indent + "</div>\n";
  }

  // A text layer's content, its runs in other styles than the paragraph's as spans.
  std::string textMarkup(const Look& l, LayerNames& names, std::string& rules) {
    if (!l.text) return {};
    std::string out;
    const auto& text = *l.text;
    Ref<TextStyle> paragraph = paragraphStyle(text.rangedTextStyles);
    for (const TextRun& run : textRuns(text.content, text.rangedTextStyles)) {
      std::string part;
      detail::appendXml(part, std::string_view(text.content).substr(run.begin, run.end - run.begin));
      if (!run.style || run.style == paragraph) {
        out += part;
        continue;
      }
      std::string span = names.take(l.name + "-span");
      rules += rule("." + span, font(*run.style));
      out += "<span class=\"" + span + "\">" + part + "</span>";
    }
    return out;
  }
};

// --- SwiftUI -----------------------------------------------------------------------------------

// Lines of code, each indented by `by` spaces more.
std::string indented(const std::string& code, std::size_t by) {
  std::string pad(by, ' '), out;
  for (std::size_t at = 0; at < code.size();) {
    std::size_t end = code.find('\n', at);
    if (end == std::string::npos) end = code.size();
    if (end > at) out += pad;
    out.append(code, at, end - at);
    out += '\n';
    at = end + 1;
  }
  return out;
}

class Swift : Writer {
 public:
  explicit Swift(const CodeOptions& options) : Writer(options) {}

  // The layer's view, placed with `.position` at (cx, cy) of its parent; no final line break.
  std::string view(const Look& l, double cx, double cy) {
    out_.clear();
    bool before = clamped_;
    clamped_ = false;
    if (l.emptyGradient) comment("a gradient without stops paints nothing");
    if (l.text) {
      textView(l);
    } else {
      shapeView(l);
    }
    modifier("frame(width: " + n(l.w) + ", height: " + n(l.h) +
             (l.text ? ", alignment: " + alignment(l) : "") + ")");
    for (std::size_t i = 0; i < l.fills.size(); ++i) {
      if (!l.text && i == 0 && !l.fills[0].blend) continue;  // the shape's own fill
      std::string filled = l.text ? paint(l.fills[i], l) : shape(l) + ".fill(" + paint(l.fills[i], l) + ")";
      if (l.fills[i].blend) filled += ".blendMode(" + blendMode(*l.fills[i].blend) + ")";
      modifier((l.text ? "background(" : "overlay(") + filled + ")");
    }
    for (const BorderLook& b : l.borders) border(b, l);
    if (l.backgroundBlur) {
      comment("a material stands in for the background blur of " + n(l.blurRadius));
      modifier("background(.ultraThinMaterial, in: " + shape(l) + ")");
    }
    for (const ShadowLook& s : l.outer) {
      if (s.spread != 0) comment("SwiftUI shadows have no spread");
      modifier("shadow(color: " + color(*s.color) + ", radius: " + n(s.blur / 2) + ", x: " +
               n(s.x) + ", y: " + n(s.y) + ")");
    }
    if (l.opacity < 1) modifier("opacity(" + number(l.opacity) + ")");
    if (l.blend) modifier("blendMode(" + blendMode(*l.blend) + ")");
    if (l.rotation != 0) modifier("rotationEffect(.degrees(" + n(-l.rotation) + "))");
    if (l.blurred && !l.backgroundBlur) modifier("blur(radius: " + n(l.blurRadius) + ")");
    modifier("position(x: " + n(cx) + ", y: " + n(cy) + ")");
    std::string code = std::move(out_);
    if (clamped_) code = "// " + std::string(kClampedNote) + "\n" + code;
    clamped_ = before;
    return code;
  }

  // The whole snapshot as a View.
  std::string screen(const Snapshot& snapshot, LayerNames& names) {
    std::unordered_set<const Layer*> seen;
    drawn_ = drawnLayers(snapshot);
    std::string name = upperCamelCase(screenName(snapshot) + "-view");
    std::vector<std::string> children;
    if (snapshot.layers()) {
      for (const Layer* child : childrenOf(*snapshot.layers(), seen)) {
        children.push_back(placed(*child, 0, 0, names, seen));
      }
    }
    std::string body = "ZStack(alignment: .topLeading) {\n" + stack(children) + "}\n";
    body += "    .frame(width: " + n(snapshot.size().width / scale_) +
            ", height: " + n(snapshot.size().height / scale_) + ", alignment: .topLeading)\n";
    if (snapshot.backgroundColor()) {
      body += "    .background(" + color(*snapshot.backgroundColor()) + ")\n";
    }
    body += "    .clipped()\n";
    std::string out = "import SwiftUI\n\n";
    if (clamped_) out += "// " + std::string(kClampedNote) + "\n";
    out += "struct " + name + ": View {\n    var body: some View {\n" + indented(body, 8) +
           "    }\n" + propertiesText_ + "}\n";
    return out;
  }

 private:
  void modifier(const std::string& m) { out_ += "\n    ." + m; }
  void comment(const std::string& text) { out_ += "\n    // " + text; }

  std::string shape(const Look& l) {
    return l.radius > 0 || std::isnan(l.radius) ? "RoundedRectangle(cornerRadius: " + n(l.radius) + ")"
                                                : "Rectangle()";
  }

  std::string blendMode(BlendMode mode) {
    bool exact = true;
    std::string name(swiftBlendMode(mode, exact));
    if (!exact) comment(std::string(rawValue(mode)) + " has no SwiftUI blend mode: nearest");
    return name;
  }

  std::string color(const Color& c, double opacity = 1) {
    if (const auto* token = colorToken(c, opacity)) return "Color." + swiftName(token->name, false);
    std::string out = swiftColor(c);
    if (opacity < 1) out += ".opacity(" + number(opacity) + ")";
    return out;
  }

  std::string stops(const Gradient& g, double opacity) {
    std::string out = "[";
    for (const Gradient::Stop* stop : stopsOf(g)) {
      if (out.size() > 1) out += ", ";
      out += ".init(color: " + color(*stop->color(), opacity) +
             ", location: " + number(stopPosition(*stop)) + ")";
    }
    return out + "]";
  }

  std::string unitPoint(Point p, const Look& l) {
    double ux = l.w > 0 ? p.x / l.w : 0, uy = l.h > 0 ? p.y / l.h : 0;
    return "UnitPoint(x: " + n(ux) + ", y: " + n(uy) + ")";
  }

  std::string paint(const Paint& p, const Look& l) {
    if (p.color) return color(*p.color, p.opacity);
    const Gradient& g = *p.gradient;
    GradientGeometry geometry = gradientGeometry(g, Rect(0, 0, l.w, l.h));
    switch (g.kind().value_or(Gradient::Kind::linear)) {
      case Gradient::Kind::radial:
        if (geometry.crossScale != 1) {
          comment("a radial gradient's scale (" + number(geometry.crossScale) +
                  ") has no SwiftUI form: drawn as a circle");
        }
        return "RadialGradient(stops: " + stops(g, p.opacity) + ", center: " +
               unitPoint(geometry.from, l) + ", startRadius: 0, endRadius: " + n(geometry.radius) +
               ")";
      case Gradient::Kind::angular:
        // SwiftUI starts an angle at the trailing edge, CSS's conic gradients at the top.
        return "AngularGradient(stops: " + stops(g, p.opacity) + ", center: " +
               unitPoint(geometry.from, l) + ", angle: .degrees(" + n(geometry.startAngle - 90) +
               "))";
      case Gradient::Kind::linear:
        break;
    }
    auto [from, to] = turnedLine(g, l.w, l.h);
    return "LinearGradient(stops: " + stops(g, p.opacity) + ", startPoint: " + unitPoint(from, l) +
           ", endPoint: " + unitPoint(to, l) + ")";
  }

  void shapeView(const Look& l) {
    // A shape always states its fill: without one SwiftUI fills it with the foreground color.
    std::string base = "Color.clear";
    if (!l.fills.empty() && !l.fills[0].blend) base = paint(l.fills[0], l);
    for (const ShadowLook& s : l.inner) {
      base += ".shadow(.inner(color: " + color(*s.color) + ", radius: " + n(s.blur / 2) +
              ", x: " + n(s.x) + ", y: " + n(s.y) + "))";
    }
    out_ = shape(l) + out_;
    modifier("fill(" + base + ")");
  }

  void border(const BorderLook& b, const Look& l) {
    std::string p = paint(b.paint, l);
    if (b.paint.blend) comment("a border's blend mode has no SwiftUI form");
    double t = b.thickness;
    switch (b.position) {
      case Border::Position::inside:
        modifier("overlay(" + shape(l) + ".strokeBorder(" + p + ", lineWidth: " + n(t) + "))");
        break;
      case Border::Position::outside: {
        std::string outer = l.radius > 0 ? "RoundedRectangle(cornerRadius: " + n(l.radius + t / 2) + ")"
                                         : "Rectangle()";
        modifier("overlay(" + outer + ".stroke(" + p + ", lineWidth: " + n(t) + ").padding(-" +
                 n(t / 2) + "))");
        break;
      }
      case Border::Position::center:
        modifier("overlay(" + shape(l) + ".stroke(" + p + ", lineWidth: " + n(t) + "))");
        break;
    }
  }

  std::string alignment(const Look& l) {
    Ref<TextStyle> p = paragraphStyle(l.text->rangedTextStyles);
    if (p && p->alignment() == TextStyle::Alignment::center) return ".top";
    if (p && p->alignment() == TextStyle::Alignment::right) return ".topTrailing";
    return ".topLeading";
  }

  // A run as `Text`, its modifiers each after `separator`.
  std::string runText(std::string_view part, const TextStyle* style, const std::string& separator) {
    std::string out = "Text(verbatim: " + swiftString(part) + ")";
    if (!style) return out;
    const auto* token = styleToken(*style);
    out += separator + "font(" +
           (token ? "." + swiftName(token->name, true) : swiftFont(*style, scale_, clamped_)) + ")";
    if (style->letterSpacing()) {
      out += separator + "kerning(" + n(*style->letterSpacing() / scale_) + ")";
    }
    if (style->color()) {
      out += separator + "foregroundColor(" +
             (token ? "Color." + swiftName(colorTokenName(*token), false) : color(*style->color())) +
             ")";
    }
    return out;
  }

  void textView(const Look& l) {
    const auto& text = *l.text;
    Ref<TextStyle> p = paragraphStyle(text.rangedTextStyles);
    std::vector<TextRun> runs = textRuns(text.content, text.rangedTextStyles);
    if (runs.empty()) runs.push_back({0, 0, p});
    std::string joined;
    for (std::size_t i = 0; i < runs.size(); ++i) {
      if (i) joined += "\n    + ";
      // Text no range covers is set as the paragraph is, as the drawing sets it.
      const TextStyle* style = runs[i].style ? runs[i].style.get() : p.get();
      // One run reads as any view, a modifier a line; runs joined by `+` keep one a line.
      joined += runText(
          std::string_view(text.content).substr(runs[i].begin, runs[i].end - runs[i].begin), style,
          runs.size() > 1 ? "." : "\n    .");
    }
    out_ = (runs.size() > 1 ? "(" + joined + ")" : joined) + out_;
    if (p && p->lineHeight()) {
      modifier("lineSpacing(" + n(std::max(0.0, (*p->lineHeight() - p->fontSize()) / scale_)) +
               ")  // line height " + n(*p->lineHeight() / scale_));
    }
    if (p && p->alignment()) {
      if (*p->alignment() == TextStyle::Alignment::justify) {
        comment("SwiftUI has no justified text: set leading");
      }
      static constexpr const char* kAlign[] = {".leading", ".center", ".trailing", ".leading"};
      modifier(std::string("multilineTextAlignment(") + kAlign[static_cast<int>(*p->alignment())] +
               ")");
    }
    if (!l.inner.empty()) comment("inner shadows of text have no SwiftUI modifier");
  }

  // Children of a stack: no more than ten a block, as view builders take them.
  static std::string stack(std::vector<std::string> children) {
    while (children.size() > 10) {
      std::vector<std::string> groups;
      for (std::size_t i = 0; i < children.size(); i += 10) {
        std::string block;
        for (std::size_t k = i; k < std::min(children.size(), i + 10); ++k) block += children[k];
        groups.push_back("Group {\n" + indented(block, 4) + "}\n");
      }
      children = std::move(groups);
    }
    std::string out;
    for (const auto& c : children) out += c;
    return indented(out, 4);
  }

  // A layer's view placed in its parent whose top left is at (px, py): a group becomes a
  // property of its own.
  std::string placed(const Layer& layer, double px, double py, LayerNames& names,
                     std::unordered_set<const Layer*>& seen) {
    Look l(layer, names.of(layer), scale_);
    std::string label = "// " + oneLine(layer.name()) + "\n";
    if (!l.group) return label + view(l, l.x - px + l.w / 2, l.y - py + l.h / 2) + "\n";
    std::vector<std::string> children;
    for (const Layer* child : childrenOf(l.group->layers, seen)) {
      children.push_back(placed(*child, l.x, l.y, names, seen));
    }
    if (drawn_.count(&layer) && l.draws()) {
      std::string look = "// " + oneLine(layer.name()) + ", its own look\n" +
                         view(l, l.w / 2, l.h / 2) + "\n";
      if (l.group->interactionLevel == Layer::InteractionLevel::top) {
        children.push_back(look);
      } else {
        children.insert(children.begin(), look);
      }
    }
    std::string property = camelCase(properties_.take(l.name + "-view"));
    std::string code = "ZStack(alignment: .topLeading) {\n" + stack(children) + "}\n.frame(width: " +
                       n(l.w) + ", height: " + n(l.h) + ", alignment: .topLeading)\n";
    propertiesText_ += "\n    " + label + "    private var " + property + ": some View {\n" +
                       indented(code, 8) + "    }\n";
    return label + property + "\n    .position(x: " + n(l.x - px + l.w / 2) +
           ", y: " + n(l.y - py + l.h / 2) + ")\n";
  }

  static std::string oneLine(const std::string& text) {
    std::string out;
    for (char c : text) out += (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) ? ' ' : c;
    return out;
  }

  std::string out_;
  std::unordered_set<const Layer*> drawn_;
  UniqueNames properties_{true};
  std::string propertiesText_;
};

// --- Jetpack Compose ---------------------------------------------------------------------------

constexpr const char* kComposeImports =
    "import androidx.compose.foundation.background\n"
    "import androidx.compose.foundation.border\n"
    "import androidx.compose.foundation.layout.Box\n"
    "import androidx.compose.foundation.layout.offset\n"
    "import androidx.compose.foundation.layout.size\n"
    "import androidx.compose.foundation.shape.RoundedCornerShape\n"
    "import androidx.compose.material3.Text\n"
    "import androidx.compose.runtime.Composable\n"
    "import androidx.compose.ui.Modifier\n"
    "import androidx.compose.ui.draw.BlurredEdgeTreatment\n"
    "import androidx.compose.ui.draw.blur\n"
    "import androidx.compose.ui.draw.clip\n"
    "import androidx.compose.ui.draw.clipToBounds\n"
    "import androidx.compose.ui.draw.drawBehind\n"
    "import androidx.compose.ui.draw.drawWithContent\n"
    "import androidx.compose.ui.draw.rotate\n"
    "import androidx.compose.ui.draw.shadow\n"
    "import androidx.compose.ui.geometry.CornerRadius\n"
    "import androidx.compose.ui.geometry.Offset\n"
    "import androidx.compose.ui.geometry.Size\n"
    "import androidx.compose.ui.graphics.BlendMode\n"
    "import androidx.compose.ui.graphics.Brush\n"
    "import androidx.compose.ui.graphics.Color\n"
    "import androidx.compose.ui.graphics.RectangleShape\n"
    "import androidx.compose.ui.graphics.Shadow\n"
    "import androidx.compose.ui.graphics.drawscope.Stroke\n"
    "import androidx.compose.ui.graphics.drawscope.clipRect\n"
    "import androidx.compose.ui.graphics.drawscope.rotate\n"
    "import androidx.compose.ui.graphics.graphicsLayer\n"
    "import androidx.compose.ui.platform.LocalDensity\n"
    "import androidx.compose.ui.text.SpanStyle\n"
    "import androidx.compose.ui.text.TextStyle\n"
    "import androidx.compose.ui.text.buildAnnotatedString\n"
    "import androidx.compose.ui.text.font.FontFamily\n"
    "import androidx.compose.ui.text.font.FontStyle\n"
    "import androidx.compose.ui.text.font.FontWeight\n"
    "import androidx.compose.ui.text.style.TextAlign\n"
    "import androidx.compose.ui.text.withStyle\n"
    "import androidx.compose.ui.unit.dp\n"
    "import androidx.compose.ui.unit.sp\n";

class Compose : Writer {
 public:
  explicit Compose(const CodeOptions& options) : Writer(options) {}

  // The layer's composable, placed with `.offset(x, y)` in its parent (none when `place` is
  // false: at the parent's top left), ending with a line break.
  std::string call(const Look& l, double x, double y, bool place = true) {
    chain_.clear();
    notes_.clear();
    bool before = clamped_;
    clamped_ = false;
    if (l.emptyGradient) comment("a gradient without stops paints nothing");
    if (place) modifier("offset(x = " + dp(x) + ", y = " + dp(y) + ")");
    modifier("size(width = " + dp(l.w) + ", height = " + dp(l.h) + ")");
    if (l.rotation != 0) modifier("rotate(" + f(-l.rotation) + ")");
    std::string layer;
    if (l.opacity < 1) layer += "alpha = " + f(l.opacity);
    if (l.blend) layer += (layer.empty() ? "" : "; ") + std::string("blendMode = ") + blendMode(*l.blend);
    if (!layer.empty()) modifier("graphicsLayer { " + layer + " }");
    if (l.blurred) {
      if (l.backgroundBlur) {
        comment("background blur " + n(l.blurRadius) + ": Compose blurs only the layer's own content");
      } else {
        // Blurs all that the chain draws after it, as the layer's blur covers all it draws.
        modifier("blur(" + dp(l.blurRadius) + ", edgeTreatment = BlurredEdgeTreatment.Unbounded)");
      }
    }
    if (!l.text) {
      for (const ShadowLook& s : l.outer) {
        comment("shadow " + n(s.x) + " " + n(s.y) + " blur " + n(s.blur) + " spread " + n(s.spread) +
                ": Compose casts elevation shadows, this is the nearest");
        modifier("shadow(elevation = " + dp(s.blur / 2) + ", shape = " + shape(l) +
                 ", clip = false, ambientColor = " + color(*s.color) + ", spotColor = " +
                 color(*s.color) + ")");
      }
    }
    borders(l);
    if (l.radius > 0 || std::isnan(l.radius)) modifier("clip(" + shape(l) + ")");
    for (const Paint& p : l.fills) fill(p, l);
    if (!l.inner.empty()) comment("inner shadows have no Compose modifier");
    std::string modifiers = "Modifier" + chain_;
    std::string out = l.text ? textCall(l, modifiers) : "Box(\n    modifier = " + modifiers + ",\n)\n";
    if (clamped_) out = "// " + std::string(kClampedNote) + "\n" + out;
    clamped_ = before;
    return out;
  }

  // The whole snapshot as one screen function, each group a function of its own.
  std::string screen(const Snapshot& snapshot, LayerNames& names) {
    std::unordered_set<const Layer*> seen;
    drawn_ = drawnLayers(snapshot);
    std::string owner = functionNames_.take(screenName(snapshot) + "-screen");
    std::string name = upperCamelCase(owner);
    std::vector<std::string> children;
    if (snapshot.layers()) {
      for (const Layer* child : childrenOf(*snapshot.layers(), seen)) {
        children.push_back(placed(*child, 0, 0, names, seen));
      }
    }
    std::string chain = "\n        .size(width = " + dp(snapshot.size().width / scale_) +
                        ", height = " + dp(snapshot.size().height / scale_) + ")\n        .clipToBounds()";
    if (snapshot.backgroundColor()) chain += "\n        .background(" + color(*snapshot.backgroundColor()) + ")";
    std::string body = "Box(\n    modifier = Modifier" + chain + ",\n) {\n" +
                       container(children, owner) + "}\n";
    std::string out = kComposeImports;
    if (clamped_) out += "\n// " + std::string(kClampedNote) + "\n";
    return out + "\n@Composable\nfun " + name + "() {\n" + indented(body, 4) + "}\n" + functions_;
  }

 private:
  std::string dp(double units) { return n(units) + ".dp"; }
  std::string px(double units) { return dp(units) + ".toPx()"; }
  std::string f(double value) { return n(value) + "f"; }
  void modifier(const std::string& m) { chain_ += "\n        ." + m; }
  void comment(const std::string& text) { chain_ += "\n        // " + text; }

  std::string shape(const Look& l) {
    return l.radius > 0 || std::isnan(l.radius) ? "RoundedCornerShape(" + dp(l.radius) + ")"
                                                : "RectangleShape";
  }

  std::string blendMode(BlendMode mode) {
    bool exact = true;
    std::string name(composeBlendMode(mode, exact));
    if (!exact) comment(std::string(rawValue(mode)) + " has no Compose blend mode: nearest");
    return "BlendMode." + name;
  }

  std::string color(const Color& c, double opacity = 1) {
    if (const auto* token = colorToken(c, opacity)) return kotlinName(token->name);
    return kotlinColor(*Color::make({.red = c.red(),
                                     .green = c.green(),
                                     .blue = c.blue(),
                                     .alpha = unitInterval(c.alpha(), 0) * opacity}));
  }

  std::string offset(Point p) { return "Offset(" + px(p.x) + ", " + px(p.y) + ")"; }

  // The paint as a draw call's `color = ...` or `brush = ...` argument, in the layer's box;
  // lengths turn into pixels as it draws (`.dp.toPx()`), so that the brush fits any screen.
  std::string paintArgument(const Paint& p, const Look& l, std::string& around) {
    if (p.color) return "color = " + color(*p.color, p.opacity);
    const Gradient& g = *p.gradient;
    std::vector<const Gradient::Stop*> stops = stopsOf(g);
    std::string list;
    for (const Gradient::Stop* stop : stops) {
      list += number(stopPosition(*stop)) + "f to " + color(*stop->color(), p.opacity) + ", ";
    }
    GradientGeometry geometry = gradientGeometry(g, Rect(0, 0, l.w, l.h));
    // A gradient of no length paints its last color, as SVG and CSS paint it.
    std::string last = "color = " + color(*stops.back()->color(), p.opacity);
    switch (g.kind().value_or(Gradient::Kind::linear)) {
      case Gradient::Kind::radial:
        if (!(geometry.radius > 0)) return last;
        if (geometry.crossScale != 1) {
          comment("a radial gradient's scale (" + number(geometry.crossScale) +
                  ") has no Compose brush: drawn as a circle");
        }
        return "brush = Brush.radialGradient(" + list + "center = " + offset(geometry.from) +
               ", radius = " + px(geometry.radius) + ")";
      case Gradient::Kind::angular:
        // A sweep starts at 3 o'clock; the drawing turns it to where the gradient starts.
        around = "rotate(degrees = " + f(geometry.startAngle - 90) + ", pivot = " +
                 offset(geometry.from) + ")";
        return "brush = Brush.sweepGradient(" + list + "center = " + offset(geometry.from) + ")";
      case Gradient::Kind::linear:
        break;
    }
    auto [from, to] = turnedLine(g, l.w, l.h);
    if (from.x == to.x && from.y == to.y) return last;
    return "brush = Brush.linearGradient(" + list + "start = " + offset(from) + ", end = " +
           offset(to) + ")";
  }

  void fill(const Paint& p, const Look& l) {
    if (p.color && !p.blend) {
      modifier("background(" + color(*p.color, p.opacity) + ")");
      return;
    }
    std::string around;
    std::string argument = paintArgument(p, l, around);
    std::string blend = p.blend ? ", blendMode = " + blendMode(*p.blend) : "";
    if (around.empty()) {
      modifier("drawBehind { drawRect(" + argument + blend + ") }");
      return;
    }
    // A turned sweep covers the box with a circle that reaches past every corner.
    modifier("drawBehind {\n            clipRect {\n                " + around +
             " {\n                    drawCircle(" + argument +
             ", radius = size.maxDimension * 2, center = " + offset(gradientGeometry(*p.gradient, Rect(0, 0, l.w, l.h)).from) +
             blend + ")\n                }\n            }\n        }");
  }

  void borders(const Look& l) {
    if (l.borders.empty()) return;
    const BorderLook& first = l.borders.front();
    if (l.borders.size() == 1 && first.position == Border::Position::inside && first.paint.color &&
        !first.paint.blend) {
      modifier("border(width = " + dp(first.thickness) + ", color = " +
               color(*first.paint.color, first.paint.opacity) + ", shape = " + shape(l) + ")");
      return;
    }
    // Strokes over all the layer draws, unclipped, each on its line: inside, centred or outside.
    std::string draw = "drawWithContent {\n            drawContent()";
    for (const BorderLook& b : l.borders) {
      double t = b.thickness;
      double shift = b.position == Border::Position::inside    ? t / 2
                     : b.position == Border::Position::outside ? -t / 2
                                                               : 0;
      double r = l.radius > 0 ? std::max(0.0, l.radius - shift) : 0;
      std::string around;
      std::string argument = paintArgument(b.paint, l, around);
      if (!around.empty()) {
        comment("a sweep border drawn from 3 o'clock");
      }
      draw += "\n            drawRoundRect(" + argument + ", topLeft = Offset(" + px(shift) + ", " +
              px(shift) + "), size = Size(size.width - " + px(2 * shift) + ", size.height - " +
              px(2 * shift) + "), cornerRadius = CornerRadius(" + px(r) + "), style = Stroke(width = " +
              px(t) + ")" + (b.paint.blend ? ", blendMode = " + blendMode(*b.paint.blend) : "") + ")";
    }
    modifier(draw + "\n        }");
  }

  // A text style as a span's: what a run sets beside the paragraph's style.
  std::string spanStyle(const TextStyle& style) {
    FontFace face = fontFace(style.fontName());
    std::string out = "SpanStyle(fontWeight = FontWeight(" + std::to_string(face.weight) + ")";
    out += face.italic ? ", fontStyle = FontStyle.Italic" : ", fontStyle = FontStyle.Normal";
    out += ", fontSize = " + n(style.fontSize() / scale_) + ".sp";
    if (style.letterSpacing()) out += ", letterSpacing = " + n(*style.letterSpacing() / scale_) + ".sp";
    if (style.color()) out += ", color = " + color(*style.color());
    return out + ")";
  }

  static std::string kotlinString(std::string_view text) {
    std::string out;
    detail::appendJsonString(out, text);
    // Kotlin strings take `$` as a template.
    for (std::size_t at = 0; (at = out.find('$', at)) != std::string::npos; at += 2) {
      out.replace(at, 1, "\\$");
    }
    return out;
  }

  std::string textCall(const Look& l, const std::string& modifiers) {
    const auto& text = *l.text;
    Ref<TextStyle> p = paragraphStyle(text.rangedTextStyles);
    std::string shadow;
    if (!l.outer.empty()) {
      const ShadowLook& s = l.outer.back();  // the top-most
      if (l.outer.size() > 1) comment("Compose sets one text shadow: the top-most");
      if (s.spread != 0) comment("text shadows have no spread");
      shadow = "with(LocalDensity.current) { Shadow(color = " + color(*s.color) + ", offset = Offset(" +
               px(s.x) + ", " + px(s.y) + "), blurRadius = " + px(s.blur) + ") }";
    }
    std::string style = "TextStyle.Default";
    if (p) {
      const auto* token = styleToken(*p);
      if (token) {
        style = kotlinName(token->name);
        if (!shadow.empty()) style += ".copy(shadow = " + shadow + ")";
      } else {
        style = kotlinTextStyle(*p, scale_, "    ", p->color() ? color(*p->color()) : "", clamped_,
                                shadow.empty() ? "" : "        shadow = " + shadow + ",\n");
      }
    } else if (!shadow.empty()) {
      style = "TextStyle(shadow = " + shadow + ")";
    }
    if (!l.inner.empty()) comment("inner shadows of text have no Compose form");
    std::string content;
    std::vector<TextRun> runs = textRuns(text.content, text.rangedTextStyles);
    bool spans = false;
    for (const TextRun& run : runs) spans = spans || (run.style && run.style != p);
    if (!spans) {
      content = kotlinString(text.content);
    } else {
      content = "buildAnnotatedString {\n";
      for (const TextRun& run : runs) {
        std::string part = kotlinString(std::string_view(text.content).substr(run.begin, run.end - run.begin));
        if (!run.style || run.style == p) {
          content += "        append(" + part + ")\n";
        } else {
          content += "        // the run's family: " + kotlinString(fontFace(run.style->fontName()).family) + "\n";
          content += "        withStyle(" + spanStyle(*run.style) + ") { append(" + part + ") }\n";
        }
      }
      content += "    }";
    }
    return "Text(\n    text = " + content + ",\n    modifier = " + modifiers + ",\n    style = " +
           style + ",\n)\n";
  }

  // Children of a box; when many, spread over functions of their own, so that no function
  // grows beyond what the JVM takes.
  std::string container(const std::vector<std::string>& children, const std::string& owner) {
    constexpr std::size_t kMost = 40;
    std::string out;
    if (children.size() <= kMost) {
      for (const auto& c : children) out += c;
      return indented(out, 4);
    }
    for (std::size_t i = 0; i < children.size(); i += kMost) {
      std::string part = upperCamelCase(functionNames_.take(owner + "-part"));
      std::string body;
      for (std::size_t k = i; k < std::min(children.size(), i + kMost); ++k) body += children[k];
      functions_ += "\n@Composable\nprivate fun " + part + "() {\n" + indented(body, 4) + "}\n";
      out += part + "()\n";
    }
    return indented(out, 4);
  }

  // A layer's composable placed in its parent whose top left is at (px, py): a group becomes a
  // function of its own.
  std::string placed(const Layer& layer, double px, double py, LayerNames& names,
                     std::unordered_set<const Layer*>& seen) {
    Look l(layer, names.of(layer), scale_);
    std::string label = "// " + oneLine(layer.name()) + "\n";
    if (!l.group) return label + call(l, l.x - px, l.y - py);
    std::string owner = functionNames_.take(l.name + "-group");
    std::string function = upperCamelCase(owner);
    std::vector<std::string> children;
    for (const Layer* child : childrenOf(l.group->layers, seen)) {
      children.push_back(placed(*child, l.x, l.y, names, seen));
    }
    if (drawn_.count(&layer) && l.draws()) {
      std::string look = "// " + oneLine(layer.name()) + ", its own look\n" + call(l, 0, 0, false);
      if (l.group->interactionLevel == Layer::InteractionLevel::top) {
        children.push_back(look);
      } else {
        children.insert(children.begin(), look);
      }
    }
    std::string body = "Box(\n    modifier = Modifier\n        .offset(x = " + dp(l.x - px) +
                       ", y = " + dp(l.y - py) + ")\n        .size(width = " + dp(l.w) +
                       ", height = " + dp(l.h) + "),\n) {\n" + container(children, owner) + "}\n";
    functions_ += "\n" + label + "@Composable\nprivate fun " + function + "() {\n" +
                  indented(body, 4) + "}\n";
    return label + function + "()\n";
  }

  static std::string oneLine(const std::string& text) {
    std::string out;
    for (char c : text) out += (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) ? ' ' : c;
    return out;
  }

  std::string chain_;
  std::string notes_;
  std::unordered_set<const Layer*> drawn_;
  UniqueNames functionNames_{true};
  std::string functions_;
};

LayerNames namesFor(const Layer& layer) {
  Ref<Snapshot> snapshot = layer.snapshot();
  return LayerNames(snapshot.get());
}

}  // namespace

std::string layerCss(const Layer& layer, const CodeOptions& options) {
  LayerNames names = namesFor(layer);
  Look look(layer, names.of(layer), densityScale(options.density));
  return Css(options).layerRule(look);
}

std::string layerSwiftUI(const Layer& layer, const CodeOptions& options) {
  LayerNames names = namesFor(layer);
  Look look(layer, names.of(layer), densityScale(options.density));
  return Swift(options).view(look, look.x + look.w / 2, look.y + look.h / 2) + "\n";
}

std::string layerCompose(const Layer& layer, const CodeOptions& options) {
  LayerNames names = namesFor(layer);
  Look look(layer, names.of(layer), densityScale(options.density));
  return Compose(options).call(look, look.x, look.y);
}

std::vector<LayerCode> snapshotLayerCode(const Snapshot& snapshot, const CodeOptions& options) {
  LayerNames names(&snapshot);
  const double scale = densityScale(options.density);
  std::vector<LayerCode> out;
  for (const Ref<Layer>& layer : allLayers(snapshot)) {
    Look look(*layer, names.of(*layer), scale);
    out.push_back({layer, Css(options).layerRule(look),
                   Swift(options).view(look, look.x + look.w / 2, look.y + look.h / 2) + "\n",
                   Compose(options).call(look, look.x, look.y)});
  }
  return out;
}

std::string snapshotHtml(const Snapshot& snapshot, const CodeOptions& options) {
  LayerNames names(&snapshot);
  return Css(options).page(snapshot, names);
}

std::string snapshotSwiftUI(const Snapshot& snapshot, const CodeOptions& options) {
  LayerNames names(&snapshot);
  return Swift(options).screen(snapshot, names);
}

std::string snapshotCompose(const Snapshot& snapshot, const CodeOptions& options) {
  LayerNames names(&snapshot);
  return Compose(options).screen(snapshot, names);
}

}  // namespace orvane::handoff
