#include <orvane/handoff/Code.hpp>

#include <algorithm>
#include <cmath>
#include <vector>

#include <orvane/handoff/Paint.hpp>
#include <orvane/handoff/Text.hpp>
#include <orvane/internal/Box.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/internal/PlatformCode.hpp>
#include <orvane/snapshot/Snapshot.hpp>

namespace orvane::handoff {

using detail::finite;
using detail::number;

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

// What every language reads of a layer, once.
struct Look {
  const Layer& layer;
  double x, y, w, h;
  double radius;
  double opacity;
  double rotation;
  std::vector<const Fill*> fills;
  std::vector<const Border*> borders;
  std::vector<const Shadow*> outer, inner;
  const Blur* blur = nullptr;
  const Layer::Kind::Text* text = nullptr;
  std::string name;

  explicit Look(const Layer& l) : layer(l) {
    detail::Box frame = detail::Box::of(l.absoluteFrame());
    x = frame.x;
    y = frame.y;
    w = frame.w;
    h = frame.h;
    radius = detail::fitRadius(l.cornerRadius(), frame);
    opacity = std::clamp(finite(l.opacity(), 1), 0.0, 1.0);
    rotation = finite(l.rotation().value_or(0));
    if (l.fills()) {
      for (const auto& f : *l.fills()) {
        if (f && f->kind()) fills.push_back(f.get());
      }
    }
    if (l.borders()) {
      for (const auto& b : *l.borders()) {
        if (b && b->fill() && b->fill()->kind() && finite(b->thickness()) > 0) {
          borders.push_back(b.get());
        }
      }
    }
    if (l.shadows()) {
      for (const auto& s : *l.shadows()) {
        if (!s || !s->color()) continue;
        (s->kind() == Shadow::Kind::inner ? inner : outer).push_back(s.get());
      }
    }
    if (l.blur() && finite(l.blur()->radius()) > 0) blur = l.blur().get();
    if (l.kind()) text = l.kind()->asText();
    name = slug(l.name(), "layer", "l-");
  }
  Rect box() const { return Rect(x, y, w, h); }
  bool backgroundBlur() const { return blur && blur->kind() == Blur::Kind::background; }
};

double densityOf(const Layer& layer, const CodeOptions& options) {
  if (options.density) return densityScale(*options.density);
  if (auto snapshot = layer.snapshot(); snapshot && snapshot->density()) {
    return densityScale(*snapshot->density());
  }
  return 1;
}

// The one color a fill or border paints, if it paints one color.
const Color* solidColor(const Fill& fill) {
  if (const auto* c = fill.kind()->asColor()) return c->color.get();
  return nullptr;
}

// The first stop's color: what stands in where a gradient cannot be used.
const Color* firstStop(const Fill& fill) {
  const auto* g = fill.kind()->asGradient();
  if (!g || !g->gradient) return nullptr;
  for (const auto& stop : g->gradient->stops()) {
    if (stop && stop->color()) return stop->color().get();
  }
  return nullptr;
}

double fillOpacity(const Fill& fill) {
  return std::clamp(finite(fill.opacity().value_or(1), 1), 0.0, 1.0);
}

// What each language's writer starts from: the layer's look, the options, how many document
// units make one of the platform's, and the style guide's tokens for what it finds there.
class Writer {
 protected:
  Writer(const Look& look, const CodeOptions& options, double scale)
      : look_(look), options_(options), scale_(scale) {}

  // A color's token, when the guide has the color and it is drawn as it is.
  const StyleGuide::Token<ProjectColor>* colorToken(const Color& c, double opacity) const {
    return options_.styleGuide && opacity >= 1 ? options_.styleGuide->color(c) : nullptr;
  }
  const StyleGuide::Token<ProjectTextStyle>* styleToken(const TextStyle& style) const {
    return options_.styleGuide ? options_.styleGuide->textStyle(style) : nullptr;
  }
  std::string scaled(double units) const { return number(units / scale_); }

  const Look& look_;
  const CodeOptions& options_;
  double scale_;
};

// --- CSS -------------------------------------------------------------------------------------

class Css : Writer {
 public:
  // CSS keeps document units as pixels.
  Css(const Look& look, const CodeOptions& options) : Writer(look, options, 1) {}

  std::string run() {
    const Look& l = look_;
    out_ = "." + l.name + " {\n";
    px("left", l.x);
    px("top", l.y);
    px("width", l.w);
    px("height", l.h);
    out_.insert(out_.find('\n') + 1, "  position: absolute;\n");
    background();
    borders();
    if (l.radius > 0) px("border-radius", l.radius);
    shadows();
    if (l.opacity < 1) line("opacity", number(l.opacity));
    if (auto mode = l.layer.blendMode(); mode && *mode != BlendMode::normal) {
      CssBlendMode css = cssBlendMode(*mode);
      if (!css.exact) comment(std::string(rawValue(*mode)) + " has no CSS blend mode: nearest");
      line("mix-blend-mode", std::string(css.name));
    }
    if (l.rotation != 0) line("transform", "rotate(" + number(-l.rotation) + "deg)");
    if (l.blur) {
      line(l.backgroundBlur() ? "backdrop-filter" : "filter",
           "blur(" + number(finite(l.blur->radius())) + "px)");
    }
    if (l.text) text();
    return out_ + "}\n";
  }

 private:
  void line(const std::string& property, const std::string& value) {
    out_ += "  " + property + ": " + value + ";\n";
  }
  void px(const std::string& property, double value) { line(property, number(value) + "px"); }
  void comment(const std::string& text) { out_ += "  /* " + text + " */\n"; }

  // A color, by its token where the style guide has it.
  std::string color(const Color& c, double opacity = 1) {
    if (const auto* token = colorToken(c, opacity)) return "var(--" + token->name + ")";
    return rgba(c, opacity).css();
  }

  void background() {
    std::vector<std::string> layers, blends;
    bool anyBlend = false;
    // CSS lists its top background first; the fills list their bottom one first.
    for (auto it = look_.fills.rbegin(); it != look_.fills.rend(); ++it) {
      const Fill& fill = **it;
      double opacity = fillOpacity(fill);
      std::string image;
      if (const Color* c = solidColor(fill)) {
        std::string value = color(*c, opacity);
        image = std::next(it) == look_.fills.rend()
                    ? value
                    : "linear-gradient(" + value + ", " + value + ")";
      } else if (const auto* g = fill.kind()->asGradient(); g && g->gradient) {
        std::string note;
        image = cssGradient(*g->gradient, look_.box(), opacity, &note);
        if (!note.empty()) comment(note);
      }
      if (image.empty()) continue;
      layers.push_back(image);
      std::string_view blend = "normal";
      if (fill.blendMode() && *fill.blendMode() != BlendMode::normal) {
        CssBlendMode css = cssBlendMode(*fill.blendMode());
        blend = css.name;
        anyBlend = true;
      }
      blends.emplace_back(blend);
    }
    if (layers.empty()) return;
    std::string value;
    for (const auto& layer : layers) value += (value.empty() ? "" : ", ") + layer;
    line("background", value);
    if (anyBlend) {
      comment("fill blend modes mix the layer's own backgrounds only");
      std::string list;
      for (const auto& b : blends) list += (list.empty() ? "" : ", ") + b;
      line("background-blend-mode", list);
    }
  }

  // A border's paint: its color, or a gradient's first color (CSS borders take no gradient
  // that follows rounded corners).
  std::string borderColor(const Border& border) {
    const Fill& fill = *border.fill();
    if (const Color* c = solidColor(fill)) return color(*c, fillOpacity(fill));
    if (const Color* c = firstStop(fill)) {
      comment("a gradient border drawn in its first color");
      return color(*c, fillOpacity(fill));
    }
    return {};
  }

  void borders() {
    const auto& list = look_.borders;
    // The common case reads as a developer writes it; stacked or outer ones become rings.
    if (list.size() == 1 && list[0]->position() == Border::Position::inside) {
      std::string c = borderColor(*list[0]);
      if (c.empty()) return;
      line("box-sizing", "border-box");
      line("border", number(finite(list[0]->thickness())) + "px solid " + c);
      return;
    }
    for (auto it = list.rbegin(); it != list.rend(); ++it) {
      const Border& b = **it;
      std::string c = borderColor(b);
      if (c.empty()) continue;
      double t = finite(b.thickness());
      auto position = b.position().value_or(Border::Position::center);
      if (position != Border::Position::outside) {
        rings_.push_back("inset 0 0 0 " + number(position == Border::Position::inside ? t : t / 2) +
                         "px " + c);
      }
      if (position != Border::Position::inside) {
        rings_.push_back("0 0 0 " + number(position == Border::Position::outside ? t : t / 2) +
                         "px " + c);
      }
    }
  }

  std::string shadow(const Shadow& s, bool inset, bool spread) {
    std::string v = inset ? "inset " : "";
    v += number(finite(s.x())) + "px " + number(finite(s.y())) + "px " +
         number(std::max(0.0, finite(s.blurRadius()))) + "px ";
    if (spread) v += number(finite(s.spread())) + "px ";
    return v + color(*s.color());
  }

  void shadows() {
    std::vector<std::string> list = rings_;
    if (look_.text) {
      if (!look_.inner.empty()) comment("inner shadows of text have no CSS");
    } else {
      for (auto it = look_.inner.rbegin(); it != look_.inner.rend(); ++it) {
        list.push_back(shadow(**it, true, true));
      }
      for (auto it = look_.outer.rbegin(); it != look_.outer.rend(); ++it) {
        list.push_back(shadow(**it, false, true));
      }
    }
    if (list.empty()) return;
    std::string value;
    for (const auto& s : list) value += (value.empty() ? "" : ", ") + s;
    line("box-shadow", value);
  }

  void font(const TextStyle& style) {
    const StyleGuide::Token<ProjectTextStyle>* token = styleToken(style);
    if (token) {
      line("font", "var(--" + token->name + "-font)");
      if (style.letterSpacing())
        line("letter-spacing", "var(--" + token->name + "-letter-spacing)");
      if (style.color()) line("color", "var(--" + token->name + "-color)");
    } else {
      FontFace face = fontFace(style.fontName());
      std::string family;
      detail::appendCssString(family, face.family);
      line("font-family", family + ", sans-serif");
      line("font-weight", std::to_string(face.weight));
      if (face.italic) line("font-style", "italic");
      px("font-size", style.fontSize());
      if (style.lineHeight()) px("line-height", *style.lineHeight());
      if (style.letterSpacing()) px("letter-spacing", *style.letterSpacing());
      if (style.color()) line("color", color(*style.color()));
    }
    if (style.alignment()) line("text-align", std::string(rawValue(*style.alignment())));
  }

  void text() {
    const auto& text = *look_.text;
    if (Ref<TextStyle> paragraph = paragraphStyle(text.rangedTextStyles)) font(*paragraph);
    line("white-space", "pre-wrap");
    line("overflow-wrap", "break-word");
    if (!look_.outer.empty()) {
      std::string value;
      bool spread = false;
      for (auto it = look_.outer.rbegin(); it != look_.outer.rend(); ++it) {
        value += (value.empty() ? "" : ", ") + shadow(**it, false, false);
        spread = spread || finite((*it)->spread()) != 0;
      }
      if (spread) comment("text shadows have no spread");
      line("text-shadow", value);
    }
    // Runs in other styles than the paragraph's, for spans.
    Ref<TextStyle> paragraph = paragraphStyle(text.rangedTextStyles);
    for (const TextRun& run : textRuns(text.content, text.rangedTextStyles)) {
      if (!run.style || run.style == paragraph) continue;
      std::string part = text.content.substr(run.begin, run.end - run.begin);
      FontFace face = fontFace(run.style->fontName());
      std::string css = "font-weight: " + std::to_string(face.weight) +
                        "; font-size: " + number(run.style->fontSize()) + "px";
      if (run.style->color()) css += "; color: " + color(*run.style->color());
      std::string quoted;
      detail::appendCssString(quoted, part);
      // Keep the comment a comment whatever the text holds.
      std::size_t end;
      while ((end = quoted.find("*/")) != std::string::npos) quoted.replace(end, 2, "* /");
      comment("span " + quoted + ": " + css);
    }
  }

  std::string out_;
  std::vector<std::string> rings_;
};

// --- SwiftUI ---------------------------------------------------------------------------------

class Swift : Writer {
 public:
  Swift(const Look& look, const CodeOptions& options)
      : Writer(look, options, densityOf(look.layer, options)) {}

  std::string run() {
    const Look& l = look_;
    if (l.text) {
      textView();
    } else {
      out_ = shape();
      std::string first = l.fills.empty() ? "" : paint(*l.fills.front());
      if (!l.inner.empty()) {
        if (first.empty()) first = "Color.clear";
        for (const Shadow* s : l.inner) {
          first = first + ".shadow(.inner(color: " + color(*s->color()) +
                  ", radius: " + pt(std::max(0.0, finite(s->blurRadius())) / 2) +
                  ", x: " + pt(finite(s->x())) + ", y: " + pt(finite(s->y())) + "))";
        }
      }
      if (!first.empty()) modifier("fill(" + first + ")");
    }
    modifier("frame(width: " + pt(l.w) + ", height: " + pt(l.h) +
             (l.text ? ", alignment: " + alignment() : "") + ")");
    for (std::size_t i = l.text ? 0 : 1; i < l.fills.size(); ++i) {
      std::string p = paint(*l.fills[i]);
      if (p.empty()) continue;
      modifier(l.text ? "background(" + p + ")" : "overlay(" + shape() + ".fill(" + p + "))");
    }
    for (const Border* b : l.borders) border(*b);
    if (l.backgroundBlur()) {
      comment("a material stands in for the background blur of " +
              number(finite(l.blur->radius())));
      modifier("background(.ultraThinMaterial, in: " + shape() + ")");
    }
    for (const Shadow* s : l.outer) {
      if (finite(s->spread()) != 0) comment("SwiftUI shadows have no spread");
      modifier("shadow(color: " + color(*s->color()) +
               ", radius: " + pt(std::max(0.0, finite(s->blurRadius())) / 2) +
               ", x: " + pt(finite(s->x())) + ", y: " + pt(finite(s->y())) + ")");
    }
    if (l.opacity < 1) modifier("opacity(" + number(l.opacity) + ")");
    if (auto mode = l.layer.blendMode(); mode && *mode != BlendMode::normal) {
      bool exact = true;
      std::string name(swiftBlendMode(*mode, exact));
      if (!exact) comment(std::string(rawValue(*mode)) + " has no SwiftUI blend mode: nearest");
      modifier("blendMode(" + name + ")");
    }
    if (l.rotation != 0) modifier("rotationEffect(.degrees(" + number(-l.rotation) + "))");
    if (l.blur && !l.backgroundBlur())
      modifier("blur(radius: " + pt(finite(l.blur->radius())) + ")");
    modifier("position(x: " + pt(l.x + l.w / 2) + ", y: " + pt(l.y + l.h / 2) + ")");
    return out_ + "\n";
  }

 private:
  std::string pt(double units) { return scaled(units); }
  void modifier(const std::string& m) { out_ += "\n    ." + m; }
  void comment(const std::string& text) { out_ += "\n    // " + text; }

  std::string shape() {
    return look_.radius > 0 ? "RoundedRectangle(cornerRadius: " + pt(look_.radius) + ")"
                            : "Rectangle()";
  }

  std::string color(const Color& c, double opacity = 1) {
    if (const auto* token = colorToken(c, opacity)) return "Color." + swiftName(token->name, false);
    std::string out = swiftColor(c);
    if (opacity < 1) out += ".opacity(" + number(opacity) + ")";
    return out;
  }

  std::string stops(const Gradient& g, double opacity) {
    std::string out = "[";
    for (const auto& stop : g.stops()) {
      if (!stop || !stop->color()) continue;
      if (out.size() > 1) out += ", ";
      out += ".init(color: " + color(*stop->color(), opacity) +
             ", location: " + number(std::clamp(finite(stop->position()), 0.0, 1.0)) + ")";
    }
    return out + "]";
  }

  static std::string unitPoint(Point p) {
    return "UnitPoint(x: " + number(finite(p.x)) + ", y: " + number(finite(p.y)) + ")";
  }

  std::string paint(const Fill& fill) {
    double opacity = fillOpacity(fill);
    if (const Color* c = solidColor(fill)) return color(*c, opacity);
    const auto* holder = fill.kind()->asGradient();
    if (!holder || !holder->gradient) return {};
    const Gradient& g = *holder->gradient;
    GradientGeometry geometry = gradientGeometry(g, look_.box());
    switch (g.kind().value_or(Gradient::Kind::linear)) {
      case Gradient::Kind::radial:
        return "RadialGradient(stops: " + stops(g, opacity) + ", center: " + unitPoint(g.from()) +
               ", startRadius: 0, endRadius: " + pt(geometry.radius) + ")";
      case Gradient::Kind::angular:
        return "AngularGradient(stops: " + stops(g, opacity) + ", center: " + unitPoint(g.from()) +
               ", angle: .degrees(" + number(geometry.startAngle - 90) + "))";
      case Gradient::Kind::linear:
        break;
    }
    return "LinearGradient(stops: " + stops(g, opacity) + ", startPoint: " + unitPoint(g.from()) +
           ", endPoint: " + unitPoint(g.to()) + ")";
  }

  void border(const Border& b) {
    std::string p = paint(*b.fill());
    if (p.empty()) return;
    double t = finite(b.thickness());
    switch (b.position().value_or(Border::Position::center)) {
      case Border::Position::inside:
        modifier("overlay(" + shape() + ".strokeBorder(" + p + ", lineWidth: " + pt(t) + "))");
        break;
      case Border::Position::outside: {
        std::string outer = look_.radius > 0
                                ? "RoundedRectangle(cornerRadius: " + pt(look_.radius + t / 2) + ")"
                                : "Rectangle()";
        modifier("overlay(" + outer + ".stroke(" + p + ", lineWidth: " + pt(t) + ").padding(-" +
                 pt(t / 2) + "))");
        break;
      }
      case Border::Position::center:
        modifier("overlay(" + shape() + ".stroke(" + p + ", lineWidth: " + pt(t) + "))");
        break;
    }
  }

  std::string alignment() {
    Ref<TextStyle> p = paragraphStyle(look_.text->rangedTextStyles);
    if (p && p->alignment() == TextStyle::Alignment::center) return ".top";
    if (p && p->alignment() == TextStyle::Alignment::right) return ".topTrailing";
    return ".topLeading";
  }

  std::string runText(std::string_view part, const Ref<TextStyle>& style) {
    std::string out = "Text(" + swiftString(part) + ")";
    if (!style) return out;
    const auto* token = styleToken(*style);
    out +=
        ".font(" + (token ? "." + swiftName(token->name, true) : swiftFont(*style, scale_)) + ")";
    if (style->letterSpacing()) out += ".kerning(" + pt(*style->letterSpacing()) + ")";
    if (style->color()) out += ".foregroundColor(" + color(*style->color()) + ")";
    return out;
  }

  void textView() {
    const auto& text = *look_.text;
    std::vector<TextRun> runs = textRuns(text.content, text.rangedTextStyles);
    if (runs.empty()) runs.push_back({0, 0, paragraphStyle(text.rangedTextStyles)});
    for (std::size_t i = 0; i < runs.size(); ++i) {
      if (i) out_ += "\n    + ";
      out_ +=
          runText(std::string_view(text.content).substr(runs[i].begin, runs[i].end - runs[i].begin),
                  runs[i].style);
    }
    if (runs.size() > 1) out_ = "(" + out_ + ")";
    Ref<TextStyle> p = paragraphStyle(text.rangedTextStyles);
    if (p && p->lineHeight()) {
      modifier("lineSpacing(" + pt(std::max(0.0, *p->lineHeight() - p->fontSize())) +
               ")  // line height " + pt(*p->lineHeight()));
    }
    if (p && p->alignment()) {
      static constexpr const char* kAlign[] = {".leading", ".center", ".trailing", ".leading"};
      modifier(std::string("multilineTextAlignment(") + kAlign[static_cast<int>(*p->alignment())] +
               ")");
    }
    if (!look_.inner.empty()) comment("inner shadows of text have no SwiftUI modifier");
  }

  std::string out_;
};

// --- Jetpack Compose -------------------------------------------------------------------------

class Compose : Writer {
 public:
  Compose(const Look& look, const CodeOptions& options)
      : Writer(look, options, densityOf(look.layer, options)) {}

  std::string run() {
    const Look& l = look_;
    modifier("offset(x = " + dp(l.x) + ", y = " + dp(l.y) + ")");
    modifier("size(width = " + dp(l.w) + ", height = " + dp(l.h) + ")");
    if (l.rotation != 0) modifier("rotate(" + number(-l.rotation) + "f)");
    std::string layer;
    if (l.opacity < 1) layer += "alpha = " + number(l.opacity) + "f";
    if (auto mode = l.layer.blendMode(); mode && *mode != BlendMode::normal) {
      bool exact = true;
      std::string name(composeBlendMode(*mode, exact));
      if (!exact) comment(std::string(rawValue(*mode)) + " has no Compose blend mode: nearest");
      layer += (layer.empty() ? "" : "; ") + std::string("blendMode = BlendMode.") + name;
    }
    if (!layer.empty()) modifier("graphicsLayer { " + layer + " }");
    for (const Shadow* s : l.outer) {
      if (l.text) break;
      comment("shadow " + number(finite(s->x())) + " " + number(finite(s->y())) + " blur " +
              number(finite(s->blurRadius())) + " spread " + number(finite(s->spread())) +
              ": Compose casts elevation shadows, this is the nearest");
      modifier("shadow(elevation = " + dp(std::max(0.0, finite(s->blurRadius())) / 2) +
               ", shape = " + shape() + ", ambientColor = " + color(*s->color()) +
               ", spotColor = " + color(*s->color()) + ")");
    }
    if (l.radius > 0) modifier("clip(" + shape() + ")");
    for (const Fill* f : l.fills) {
      std::string p = paint(*f);
      if (!p.empty()) modifier("background(" + p + ")");
    }
    if (!l.inner.empty()) comment("inner shadows have no Compose modifier");
    for (const Border* b : l.borders) {
      std::string p = paint(*b->fill());
      if (p.empty()) continue;
      if (b->position() != Border::Position::inside) {
        comment("Compose borders lie inside: this one lies " +
                std::string(b->position() ? rawValue(*b->position()) : "on the outline"));
      }
      modifier("border(width = " + dp(finite(b->thickness())) + ", " +
               (solidColor(*b->fill()) ? "color = " : "brush = ") + p + ", shape = " + shape() +
               ")");
    }
    if (l.blur) {
      if (l.backgroundBlur()) {
        comment("background blur " + number(finite(l.blur->radius())) +
                ": Compose blurs only the layer's own content");
      } else {
        modifier("blur(" + dp(finite(l.blur->radius())) + ")");
      }
    }
    std::string modifiers = "Modifier" + chain_;
    if (!l.text) return "Box(\n    modifier = " + modifiers + "\n)\n";
    return textCall(modifiers);
  }

 private:
  std::string dp(double units) { return scaled(units) + ".dp"; }
  void modifier(const std::string& m) { chain_ += "\n        ." + m; }
  void comment(const std::string& text) { chain_ += "\n        // " + text; }

  std::string shape() {
    return look_.radius > 0 ? "RoundedCornerShape(" + dp(look_.radius) + ")" : "RectangleShape";
  }

  std::string color(const Color& c, double opacity = 1) {
    if (const auto* token = colorToken(c, opacity)) return kotlinName(token->name);
    return kotlinColor(*Color::make({.red = c.red(),
                                     .green = c.green(),
                                     .blue = c.blue(),
                                     .alpha = std::clamp(finite(c.alpha()), 0.0, 1.0) * opacity}));
  }

  std::string paint(const Fill& fill) {
    double opacity = fillOpacity(fill);
    if (const Color* c = solidColor(fill)) return color(*c, opacity);
    const auto* holder = fill.kind()->asGradient();
    if (!holder || !holder->gradient) return {};
    const Gradient& g = *holder->gradient;
    GradientGeometry geometry = gradientGeometry(g, Rect(0, 0, look_.w, look_.h));
    std::string stops;
    for (const auto& stop : g.stops()) {
      if (!stop || !stop->color()) continue;
      stops += number(std::clamp(finite(stop->position()), 0.0, 1.0)) + "f to " +
               color(*stop->color(), opacity) + ", ";
    }
    auto offset = [](Point p) { return "Offset(" + number(p.x) + "f, " + number(p.y) + "f)"; };
    // Brushes measure in pixels of the drawn box: at another density, scale these.
    switch (g.kind().value_or(Gradient::Kind::linear)) {
      case Gradient::Kind::radial:
        return "Brush.radialGradient(" + stops + "center = " + offset(geometry.from) +
               ", radius = " + number(geometry.radius) + "f)";
      case Gradient::Kind::angular:
        return "Brush.sweepGradient(" + stops + "center = " + offset(geometry.from) + ")";
      case Gradient::Kind::linear:
        break;
    }
    return "Brush.linearGradient(" + stops + "start = " + offset(geometry.from) +
           ", end = " + offset(geometry.to) + ")";
  }

  std::string textCall(const std::string& modifiers) {
    const auto& text = *look_.text;
    Ref<TextStyle> p = paragraphStyle(text.rangedTextStyles);
    std::string content;
    detail::appendJsonString(content, text.content);
    // Kotlin strings take `$` as a template.
    for (std::size_t at = 0; (at = content.find('$', at)) != std::string::npos; at += 2) {
      content.replace(at, 1, "\\$");
    }
    std::string style = "TextStyle.Default";
    if (p) {
      const auto* token = styleToken(*p);
      style = token ? kotlinName(token->name)
                    : kotlinTextStyle(*p, scale_, "    ", p->color() ? color(*p->color()) : "");
    }
    std::string out = "Text(\n    text = " + content + ",\n    modifier = " + modifiers +
                      ",\n    style = " + style + ",\n)\n";
    if (textRuns(text.content, text.rangedTextStyles).size() > 1) {
      out = "// other ranged styles: build an AnnotatedString with SpanStyles\n" + out;
    }
    return out;
  }

  std::string chain_;
};

}  // namespace

std::string layerCss(const Layer& layer, const CodeOptions& options) {
  Look look(layer);
  return Css(look, options).run();
}

std::string layerSwiftUI(const Layer& layer, const CodeOptions& options) {
  Look look(layer);
  return Swift(look, options).run();
}

std::string layerCompose(const Layer& layer, const CodeOptions& options) {
  Look look(layer);
  return Compose(look, options).run();
}

}  // namespace orvane::handoff
