#include <orvane/handoff/Inspect.hpp>

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Paint.hpp>
#include <orvane/handoff/Text.hpp>
#include <orvane/internal/DateText.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/project/ComponentSection.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/snapshot/Destination.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Link.hpp>

namespace orvane::handoff {

using detail::number;

namespace {

std::string json(std::string_view text) {
  std::string out;
  detail::appendJsonString(out, text);
  return out;
}

std::string json(double value) {
  // JSON has no place for what is not a number.
  return std::isfinite(value) ? number(value) : "null";
}

std::string dateText(Date date) {
  return detail::formatUtc(date, 0);
}

std::string userName(const User& user) {
  return user.username() && !user.username()->empty() ? *user.username() : user.email();
}

InspectNode node(std::string line) {
  return InspectNode{std::move(line), {}, {}};
}

void fact(InspectNode& n, std::string name, std::string value) {
  n.facts.emplace_back(std::move(name), std::move(value));
}

// The whole of an entry as JSON, its lists included.
void writeJson(std::string& out, const InspectNode& n);

template <class E>
std::string jsonEnum(const std::optional<E>& value) {
  return value ? json(rawValue(*value)) : "null";
}

std::string jsonNumber(const std::optional<double>& value) {
  return value ? json(*value) : "null";
}

std::string jsonPoint(const Point& p) {
  return "{\"x\":" + json(p.x) + ",\"y\":" + json(p.y) + "}";
}

// A list as a JSON array of what `each` writes of its entries; no list is null.
template <class T, class Each>
std::string jsonList(const std::optional<std::vector<Ref<T>>>& list, Each&& each) {
  if (!list) return "null";
  std::string out = "[";
  for (const auto& item : *list) {
    if (out.size() > 1) out += ',';
    out += item ? each(*item) : "null";
  }
  return out + "]";
}

// The facts of one snapshot as the options ask for them: lengths divided by the scale, colors
// and text styles named by their tokens.
class Writer {
 public:
  explicit Writer(const FactOptions& options)
      : options_(options), scale_(densityScale(options.density)) {}

  const FactOptions& options() const { return options_; }

  std::string length(double value) const { return json(value / scale_); }
  std::string length(const std::optional<double>& value) const {
    return value ? length(*value) : "null";
  }
  std::string lengthText(double value) const { return number(value / scale_); }

  std::string rect(const Rect& r) const {
    return "{\"x\":" + length(r.minX()) + ",\"y\":" + length(r.minY()) +
           ",\"width\":" + length(r.width()) + ",\"height\":" + length(r.height()) + "}";
  }
  std::string rectText(const Rect& r) const {
    return "(" + lengthText(r.minX()) + ", " + lengthText(r.minY()) + ", " + lengthText(r.width()) +
           " × " + lengthText(r.height()) + ")";
  }
  std::string size(const Size& s) const {
    return "{\"width\":" + length(s.width) + ",\"height\":" + length(s.height) + "}";
  }

  const ProjectColor* colorToken(const Color& color) const {
    if (!options_.styleGuide) return nullptr;
    const auto* token = options_.styleGuide->color(color);
    return token ? token->value.get() : nullptr;
  }
  const ProjectTextStyle* textStyleToken(const TextStyle& style) const {
    if (!options_.styleGuide) return nullptr;
    const auto* token = options_.styleGuide->textStyle(style);
    return token ? token->value.get() : nullptr;
  }

  std::string color(const Color* color) const {
    if (!color) return "null";
    Rgba value = rgba(*color);
    std::string out = "{\"hex\":" + json(value.hex()) + ",\"alpha\":" + json(value.alpha);
    if (const auto* token = colorToken(*color)) out += ",\"token\":" + json(token->name());
    return out + "}";
  }
  // As a person reads it: the color with `opacity` in its alpha, and its token.
  std::string colorText(const Color& color, double opacity = 1) const {
    std::string out = rgba(color, opacity).css();
    if (const auto* token = colorToken(color)) out += " (" + token->name() + ")";
    return out;
  }

  std::string gradient(const Gradient& g) const {
    std::string out = "{\"kind\":" + jsonEnum(g.kind()) + ",\"from\":" + jsonPoint(g.from()) +
                      ",\"to\":" + jsonPoint(g.to()) + ",\"angle\":" + jsonNumber(g.angle()) +
                      ",\"scale\":" + jsonNumber(g.scale()) + ",\"stops\":[";
    bool first = true;
    for (const auto& stop : g.stops()) {
      if (!first) out += ',';
      first = false;
      out += stop ? "{\"position\":" + json(stop->position()) +
                        ",\"color\":" + color(stop->color().get()) + "}"
                  : "null";
    }
    return out + "]}";
  }

  std::string fill(const Fill* fill) const {
    if (!fill) return "null";
    std::string out = "{\"kind\":";
    const auto& kind = fill->kind();
    if (!kind) {
      out += "null";
    } else if (const auto* c = kind->asColor()) {
      out += "\"color\",\"color\":" + color(c->color.get());
    } else if (const auto* g = kind->asGradient()) {
      out += "\"gradient\",\"gradient\":" + (g->gradient ? gradient(*g->gradient) : "null");
    }
    return out + ",\"opacity\":" + jsonNumber(fill->opacity()) +
           ",\"blendMode\":" + jsonEnum(fill->blendMode()) + "}";
  }
  // A fill in a few words: its color, or its gradient's kind.
  std::string fillText(const Fill& fill) const {
    std::string out;
    if (!fill.kind()) return "unknown paint";
    if (const auto* c = fill.kind()->asColor(); c && c->color) {
      out = colorText(*c->color, fill.opacity().value_or(1));
    } else if (const auto* g = fill.kind()->asGradient(); g && g->gradient) {
      out = (g->gradient->kind() ? std::string(rawValue(*g->gradient->kind())) + " " : "") +
            "gradient";
      if (fill.opacity() && *fill.opacity() != 1) out += " at " + number(*fill.opacity());
    } else {
      out = "unknown paint";
    }
    if (fill.blendMode()) out += " " + std::string(rawValue(*fill.blendMode()));
    return out;
  }

  std::string border(const Border& b) const {
    return "{\"position\":" + jsonEnum(b.position()) + ",\"thickness\":" + length(b.thickness()) +
           ",\"fill\":" + fill(b.fill().get()) + "}";
  }
  std::string shadow(const Shadow& s) const {
    return "{\"kind\":" + jsonEnum(s.kind()) + ",\"x\":" + length(s.x()) +
           ",\"y\":" + length(s.y()) + ",\"blurRadius\":" + length(s.blurRadius()) +
           ",\"spread\":" + length(s.spread()) + ",\"color\":" + color(s.color().get()) + "}";
  }
  std::string blur(const Blur* b) const {
    if (!b) return "null";
    return "{\"kind\":" + jsonEnum(b->kind()) + ",\"radius\":" + length(b->radius()) + "}";
  }

  std::string textStyle(const RangedTextStyle& ranged) const {
    std::string out = "{\"range\":{\"location\":" + std::to_string(ranged.range().location) +
                      ",\"length\":" + std::to_string(ranged.range().length) + "}";
    const TextStyle* style = ranged.textStyle().get();
    if (!style) return out + ",\"fontName\":null}";
    std::vector<Fact> facts;
    styleFacts(facts, *style);
    for (const auto& [name, value] : facts) {
      out += ',';
      out += json(name);
      out += ':';
      out += value;
    }
    if (const auto* token = textStyleToken(*style)) out += ",\"token\":" + json(token->name());
    return out + "}";
  }
  // A text style's own facts: its face as written and as read, its lengths, color, alignment.
  void styleFacts(std::vector<Fact>& facts, const TextStyle& style) const {
    FontFace face = fontFace(style.fontName());
    facts.emplace_back("fontName", json(style.fontName()));
    facts.emplace_back("fontFamily", json(face.family));
    facts.emplace_back("fontWeight", std::to_string(face.weight));
    facts.emplace_back("fontStyle", face.italic ? "\"italic\"" : "\"normal\"");
    facts.emplace_back("fontSize", length(style.fontSize()));
    facts.emplace_back("lineHeight", length(style.lineHeight()));
    facts.emplace_back("letterSpacing", length(style.letterSpacing()));
    facts.emplace_back("color", color(style.color().get()));
    facts.emplace_back("alignment", jsonEnum(style.alignment()));
  }
  // A text style in a few words: face, size and line height, color, token.
  std::string textStyleText(const TextStyle& style) const {
    std::string out = style.fontName() + " " + lengthText(style.fontSize());
    if (style.lineHeight()) out += "/" + lengthText(*style.lineHeight());
    if (style.color()) out += " " + rgba(*style.color()).css();
    if (const auto* token = textStyleToken(style)) out += " (" + token->name() + ")";
    return out;
  }

  std::string gridJson(const Grid* grid) const {
    if (!grid) return "null";
    std::string out =
        "{\"horizontalOffset\":" + length(grid->horizontalOffset()) + ",\"vertical\":";
    if (const auto& v = grid->vertical()) {
      out += "{\"columnWidth\":" + length(v->columnWidth()) +
             ",\"columnCount\":" + std::to_string(v->columnCount()) +
             ",\"gutterWidth\":" + length(v->gutterWidth()) +
             ",\"hasOutsideGutters\":" + (v->hasOutsideGutters() ? "true" : "false") + "}";
    } else {
      out += "null";
    }
    out += ",\"horizontal\":";
    if (const auto& h = grid->horizontal()) {
      out += "{\"rowHeight\":" + length(h->rowHeight()) +
             ",\"gutterHeight\":" + length(h->gutterHeight()) + "}";
    } else {
      out += "null";
    }
    return out + "}";
  }

 private:
  const FactOptions& options_;
  double scale_;
};

}  // namespace

// --- Projects ----------------------------------------------------------------------------------

namespace {

InspectNode versionNode(const Version& version) {
  InspectNode n = node("version " + std::string(version.identifier().rawValue()));
  fact(n, "identifier", json(version.identifier().rawValue()));
  fact(n, "createDate", json(dateText(version.createDate())));
  n.line += ", " + dateText(version.createDate());
  Ref<User> creator = version.creator();
  if (!creator && version.commit()) creator = version.commit()->author();
  fact(n, "creator", creator ? json(userName(*creator)) : "null");
  if (creator) n.line += ", by " + userName(*creator);
  fact(n, "snapshotURL", version.snapshotURL() ? json(version.snapshotURL()->text()) : "null");
  if (version.snapshotURL()) n.line += ", " + std::string(version.snapshotURL()->text());
  const auto* message = version.commit() ? &version.commit()->message() : nullptr;
  fact(n, "message", message && *message ? json(**message) : "null");
  return n;
}

InspectNode collectionNode(const VersionCollection& c, const char* what) {
  InspectNode n = node(std::string(what) + " " + c.name() + " (" +
                       std::string(c.identifier().rawValue()) + ")");
  fact(n, "name", json(c.name()));
  fact(n, "identifier", json(c.identifier().rawValue()));
  auto path = c.versionsPathIfAvailable();
  fact(n, "versionsPath", path ? json(*path) : "null");
  // The latest first, as the document has it, then the listed ones not seen yet.
  std::vector<InspectNode> versions;
  std::unordered_set<std::string> seen;
  auto add = [&](const Ref<Version>& v) {
    if (v && seen.insert(std::string(v->identifier().rawValue())).second) {
      versions.push_back(versionNode(*v));
    }
  };
  add(c.latestVersion());
  if (c.versions()) {
    for (const auto& v : *c.versions()) add(v);
  }
  n.line +=
      ", " + std::to_string(versions.size()) + (versions.size() == 1 ? " version" : " versions");
  n.lists.emplace_back("versions", std::move(versions));
  return n;
}

InspectNode screenNode(const Screen& screen) {
  InspectNode n = collectionNode(screen, "screen");
  std::vector<InspectNode> dots;
  if (screen.dots()) {
    for (const auto& dot : *screen.dots()) {
      if (!dot) continue;
      InspectNode d = node("dot " + dot->name() + ", " + std::to_string(dot->comments().size()) +
                           (dot->comments().size() == 1 ? " comment" : " comments"));
      fact(d, "identifier", json(dot->identifier().rawValue()));
      fact(d, "name", json(dot->name()));
      fact(d, "status", dot->status() ? json(rawValue(*dot->status())) : "null");
      if (dot->status()) d.line += ", " + std::string(rawValue(*dot->status()));
      fact(d, "commentCount", std::to_string(dot->comments().size()));
      // Where the pin stands on the artboard, and what was said there.
      fact(d, "x", json(dot->x()));
      fact(d, "y", json(dot->y()));
      fact(d, "color", dot->color() ? json(rgba(*dot->color()).hex()) : "null");
      fact(d, "creator", dot->creator() ? json(userName(*dot->creator())) : "null");
      std::string comments = "[";
      for (const auto& comment : dot->comments()) {
        if (!comment) continue;
        if (comments.size() > 1) comments += ',';
        comments += "{\"identifier\":" + json(comment->identifier().rawValue()) +
                    ",\"note\":" + json(comment->note()) + ",\"author\":" +
                    (comment->author() ? json(userName(*comment->author())) : "null") +
                    ",\"createDate\":" + json(dateText(comment->createDate())) + "}";
      }
      fact(d, "comments", comments + "]");
      dots.push_back(std::move(d));
    }
  }
  n.lists.emplace_back("dots", std::move(dots));
  return n;
}

InspectNode componentSectionNode(const ComponentSection& section,
                                 std::unordered_set<const ComponentSection*>& seen) {
  InspectNode n = node("component section " + section.name());
  fact(n, "name", json(section.name()));
  fact(n, "identifier", json(section.identifier().rawValue()));
  std::vector<InspectNode> sections, components;
  if (section.sections()) {
    for (const auto& s : *section.sections()) {
      if (s && seen.insert(s.get()).second) sections.push_back(componentSectionNode(*s, seen));
    }
  }
  if (section.components()) {
    for (const auto& c : *section.components()) {
      if (!c) continue;
      InspectNode cn = collectionNode(*c, "component");
      if (auto path = c->versionsPathIfAvailable()) cn.line += ", " + *path;
      components.push_back(std::move(cn));
    }
  }
  n.lists.emplace_back("componentSections", std::move(sections));
  n.lists.emplace_back("components", std::move(components));
  return n;
}

}  // namespace

std::vector<Ref<Screen>> screensInOrder(const Project& project) {
  std::vector<Ref<Screen>> out;
  std::unordered_set<const Screen*> seen;
  const auto* byIdentifier = project.screensByIdentifier() ? &*project.screensByIdentifier() : nullptr;
  if (project.sections() && byIdentifier) {
    for (const auto& section : *project.sections()) {
      if (!section) continue;
      for (const auto& id : section->screenIdentifiers()) {
        auto it = byIdentifier->find(id);
        if (it != byIdentifier->end() && it->second && seen.insert(it->second.get()).second) {
          out.push_back(it->second);
        }
      }
    }
  }
  if (byIdentifier) {
    std::vector<Ref<Screen>> rest;
    for (const auto& [id, screen] : *byIdentifier) {
      if (screen && !seen.count(screen.get())) rest.push_back(screen);
    }
    std::sort(rest.begin(), rest.end(), [](const Ref<Screen>& a, const Ref<Screen>& b) {
      return a->identifier().rawValue() < b->identifier().rawValue();
    });
    out.insert(out.end(), rest.begin(), rest.end());
  }
  return out;
}

InspectNode inspectProject(const Project& project, Density density) {
  InspectNode root =
      node("project " + project.name() + " (" + std::string(project.identifier().rawValue()) + ")");
  fact(root, "name", json(project.name()));
  fact(root, "identifier", json(project.identifier().rawValue()));
  fact(root, "kind", project.kind() ? json(rawValue(*project.kind())) : "null");
  fact(root, "density", project.density() ? json(rawValue(*project.density())) : "null");
  fact(root, "status", project.status() ? json(rawValue(*project.status())) : "null");
  fact(root, "createDate", json(dateText(project.createDate())));
  fact(root, "updateDate", json(dateText(project.updateDate())));
  if (project.kind()) root.line += ", " + std::string(rawValue(*project.kind()));
  if (project.density()) root.line += ", " + std::string(rawValue(*project.density()));
  root.line += ", created " + dateText(project.createDate());

  // Screens in document order: the dictionary keeps none, so they are sorted by identifier
  // where no section orders them.
  std::vector<InspectNode> sections, loose;
  std::unordered_set<std::string> named;
  if (project.sections()) {
    for (const auto& section : *project.sections()) {
      if (!section) continue;
      InspectNode s = node("section " + section->name());
      fact(s, "name", json(section->name()));
      fact(s, "identifier", json(section->identifier().rawValue()));
      std::vector<InspectNode> screens;
      for (const auto& id : section->screenIdentifiers()) {
        named.insert(std::string(id.rawValue()));
        Ref<Screen> screen;
        if (project.screensByIdentifier()) {
          auto it = project.screensByIdentifier()->find(id);
          if (it != project.screensByIdentifier()->end()) screen = it->second;
        }
        if (screen) {
          screens.push_back(screenNode(*screen));
        } else {
          InspectNode missing =
              node("screen " + std::string(id.rawValue()) + " (not in the project)");
          fact(missing, "identifier", json(id.rawValue()));
          screens.push_back(std::move(missing));
        }
      }
      s.lists.emplace_back("screens", std::move(screens));
      sections.push_back(std::move(s));
    }
  }
  if (project.screensByIdentifier()) {
    std::vector<Ref<Screen>> rest;
    for (const auto& [id, screen] : *project.screensByIdentifier()) {
      if (screen && !named.count(std::string(id.rawValue()))) rest.push_back(screen);
    }
    std::sort(rest.begin(), rest.end(), [](const Ref<Screen>& a, const Ref<Screen>& b) {
      return a->identifier().rawValue() < b->identifier().rawValue();
    });
    for (const auto& screen : rest) loose.push_back(screenNode(*screen));
  }
  root.lists.emplace_back("sections", std::move(sections));
  root.lists.emplace_back("screens", std::move(loose));

  std::vector<InspectNode> componentSections;
  std::unordered_set<const ComponentSection*> seen;
  if (project.componentSections()) {
    for (const auto& s : *project.componentSections()) {
      if (s && seen.insert(s.get()).second) {
        componentSections.push_back(componentSectionNode(*s, seen));
      }
    }
  }
  root.lists.emplace_back("componentSections", std::move(componentSections));

  std::vector<InspectNode> colors, textStyles, members;
  if (project.colors()) {
    for (const auto& c : *project.colors()) {
      if (!c) continue;
      Rgba value = rgba(*c);
      InspectNode n = node("color " + c->name() + " " + value.css());
      fact(n, "name", json(c->name()));
      fact(n, "hex", json(value.hex()));
      fact(n, "alpha", json(value.alpha));
      colors.push_back(std::move(n));
    }
  }
  if (project.textStyles()) {
    FactOptions options{density, nullptr, nullptr};
    Writer w(options);
    for (const auto& t : *project.textStyles()) {
      if (!t) continue;
      InspectNode n = node("text style " + t->name() + " " + w.textStyleText(*t));
      fact(n, "name", json(t->name()));
      w.styleFacts(n.facts, *t);
      textStyles.push_back(std::move(n));
    }
  }
  for (const auto& member : project.users()) {
    if (!member || !member->user()) continue;
    InspectNode n = node("member " + userName(*member->user()));
    fact(n, "name", json(userName(*member->user())));
    fact(n, "identifier", json(member->user()->identifier().rawValue()));
    fact(n, "role", member->role() ? json(rawValue(*member->role())) : "null");
    if (member->role()) n.line += ", " + std::string(rawValue(*member->role()));
    members.push_back(std::move(n));
  }
  root.lists.emplace_back("colors", std::move(colors));
  root.lists.emplace_back("textStyles", std::move(textStyles));
  root.lists.emplace_back("members", std::move(members));
  return root;
}

// --- Snapshots ---------------------------------------------------------------------------------

namespace {

std::string kindName(const Layer& layer) {
  return layer.kind() ? std::string(rawValue(layer.kind()->key())) : "unknown";
}

// The start of a text on one line.
std::string excerpt(const std::string& content) {
  std::string shown = content;
  if (shown.size() > 24) {
    std::size_t cut = 24;
    while (cut > 0 && (static_cast<unsigned char>(shown[cut]) & 0xC0) == 0x80) --cut;
    shown = shown.substr(0, cut) + "…";
  }
  for (char& c : shown) {
    if (c == '\n' || c == '\r' || c == '\t') c = ' ';
  }
  return "\"" + shown + "\"";
}

std::string styleSummary(const Layer& layer, const Writer& w) {
  std::vector<std::string> parts;
  if (layer.fills()) {
    for (const auto& f : *layer.fills()) {
      if (f) parts.push_back("fill " + w.fillText(*f));
    }
  }
  if (layer.borders()) {
    for (const auto& b : *layer.borders()) {
      if (!b) continue;
      std::string part = "border " + w.lengthText(b->thickness());
      if (b->position()) part += " " + std::string(rawValue(*b->position()));
      if (b->fill()) part += " " + w.fillText(*b->fill());
      parts.push_back(std::move(part));
    }
  }
  if (layer.shadows()) {
    for (const auto& s : *layer.shadows()) {
      if (!s) continue;
      std::string part = s->kind() == Shadow::Kind::inner ? "inner shadow " : "shadow ";
      part += w.lengthText(s->x()) + "," + w.lengthText(s->y()) + " blur " +
              w.lengthText(s->blurRadius());
      if (s->spread() != 0) part += " spread " + w.lengthText(s->spread());
      if (s->color()) part += " " + w.colorText(*s->color());
      parts.push_back(std::move(part));
    }
  }
  if (const auto& blur = layer.blur()) {
    parts.push_back(std::string(blur->kind() == Blur::Kind::background ? "background " : "") +
                    "blur " + w.lengthText(blur->radius()));
  }
  if (layer.cornerRadius() != 0) parts.push_back("radius " + w.lengthText(layer.cornerRadius()));
  if (layer.opacity() != 1) parts.push_back("opacity " + number(layer.opacity()));
  if (layer.rotation() && *layer.rotation() != 0) {
    parts.push_back("rotated " + number(*layer.rotation()) + "°");
  }
  if (layer.blendMode()) parts.push_back(std::string(rawValue(*layer.blendMode())));
  if (const auto* text = layer.kind() ? layer.kind()->asText() : nullptr) {
    std::string part = excerpt(text->content);
    std::size_t styles = 0;
    for (const auto& ranged : text->rangedTextStyles) {
      if (!ranged || !ranged->textStyle()) continue;
      if (styles++ == 0) part += " " + w.textStyleText(*ranged->textStyle());
    }
    if (styles > 1) {
      part += " and " + std::to_string(styles - 1) + (styles == 2 ? " more style" : " more styles");
    }
    parts.push_back(std::move(part));
  }
  std::string out;
  for (const auto& p : parts) out += (out.empty() ? "" : ", ") + p;
  return out;
}

std::vector<Fact> layerFactsWith(const Layer& layer, const Writer& w) {
  std::vector<Fact> facts;
  facts.reserve(16);
  facts.emplace_back("identifier", json(layer.identifier().rawValue()));
  facts.emplace_back("kind", layer.kind() ? json(rawValue(layer.kind()->key())) : "null");
  facts.emplace_back("name", json(layer.name()));
  facts.emplace_back("frame", w.rect(layer.frame()));
  facts.emplace_back("absoluteFrame", w.rect(layer.absoluteFrame()));
  facts.emplace_back("isExportable", layer.isExportable() ? "true" : "false");
  facts.emplace_back("opacity", json(layer.opacity()));
  facts.emplace_back("blendMode", jsonEnum(layer.blendMode()));
  facts.emplace_back("rotation", jsonNumber(layer.rotation()));
  facts.emplace_back("cornerRadius", w.length(layer.cornerRadius()));
  facts.emplace_back("fills", jsonList(layer.fills(), [&](const Fill& f) { return w.fill(&f); }));
  facts.emplace_back("borders",
                     jsonList(layer.borders(), [&](const Border& b) { return w.border(b); }));
  facts.emplace_back("shadows",
                     jsonList(layer.shadows(), [&](const Shadow& s) { return w.shadow(s); }));
  facts.emplace_back("blur", w.blur(layer.blur().get()));
  if (const auto* text = layer.kind() ? layer.kind()->asText() : nullptr) {
    facts.emplace_back("content", json(text->content));
    facts.emplace_back("textStyles",
                       jsonList(std::optional(text->rangedTextStyles),
                                [&](const RangedTextStyle& r) { return w.textStyle(r); }));
  }
  return facts;
}

InspectNode layerNode(const Layer& layer, const Writer& w, std::unordered_set<const Layer*>& seen) {
  std::string summary = styleSummary(layer, w);
  InspectNode n = node(kindName(layer) + " " + layer.name() + " (" +
                       std::string(layer.identifier().rawValue()) + ") " +
                       w.rectText(layer.absoluteFrame()) + (summary.empty() ? "" : ", " + summary));
  n.facts = layerFactsWith(layer, w);
  if (layer.kind() && layer.kind()->asGroup()) {
    std::vector<InspectNode> children;
    for (const auto& child : layer.kind()->asGroup()->layers) {
      if (child && seen.insert(child.get()).second) children.push_back(layerNode(*child, w, seen));
    }
    n.lists.emplace_back("layers", std::move(children));
  }
  return n;
}

InspectNode linkNode(const Link& link, const Writer& w) {
  const Project* project = w.options().project;
  std::string to = "nowhere";
  std::string screenId = "null";
  if (link.destination() && link.destination()->kind()) {
    const auto& kind = *link.destination()->kind();
    to = kind.asScreen() ? "screen " + kind.asScreen()->name : "the previous screen";
    if (kind.asScreen() && project) {
      // Of the screens that share the name, the first as the project is listed.
      for (const auto& screen : screensInOrder(*project)) {
        if (screen->name() == kind.asScreen()->name) {
          screenId = json(screen->identifier().rawValue());
          to += " (" + std::string(screen->identifier().rawValue()) + ")";
          break;
        }
      }
    }
  }
  InspectNode n = node("link " + w.rectText(link.frame()) + " to " + to);
  fact(n, "sourceIdentifier",
       link.sourceIdentifier() ? json(link.sourceIdentifier()->rawValue()) : "null");
  fact(n, "frame", w.rect(link.frame()));
  fact(n, "destination", json(to));
  fact(n, "screen", screenId);
  return n;
}

InspectNode assetNode(const Asset& asset) {
  InspectNode n = node("asset " + asset.displayName() + " from " + asset.layerName() +
                       (asset.isBitmap() ? ", bitmap" : ""));
  fact(n, "displayName", json(asset.displayName()));
  fact(n, "layerName", json(asset.layerName()));
  fact(n, "layerIdentifier",
       asset.layerIdentifier() ? json(asset.layerIdentifier()->rawValue()) : "null");
  fact(n, "isBitmap", asset.isBitmap() ? "true" : "false");
  std::vector<InspectNode> contents;
  for (const auto& c : asset.contents()) {
    if (!c) continue;
    std::string format = c->format() ? std::string(rawValue(*c->format())) : "unknown format";
    InspectNode cn =
        node(format + (c->density() ? " at " + std::string(rawValue(*c->density())) : "") +
             (c->url() ? ", " + std::string(c->url()->text()) : ""));
    fact(cn, "density", jsonEnum(c->density()));
    fact(cn, "format", jsonEnum(c->format()));
    fact(cn, "url", c->url() ? json(c->url()->text()) : "null");
    contents.push_back(std::move(cn));
  }
  n.lists.emplace_back("contents", std::move(contents));
  return n;
}

std::vector<InspectNode> linkNodes(const Snapshot& snapshot, const Writer& w) {
  std::vector<InspectNode> links;
  if (snapshot.links()) {
    for (const auto& link : *snapshot.links()) {
      if (link) links.push_back(linkNode(*link, w));
    }
  }
  return links;
}

std::vector<InspectNode> assetNodes(const Snapshot& snapshot) {
  std::vector<InspectNode> assets;
  if (snapshot.assets()) {
    for (const auto& asset : *snapshot.assets()) {
      if (asset) assets.push_back(assetNode(*asset));
    }
  }
  return assets;
}

// The facts at the root of a snapshot's tree, its lists aside.
std::vector<Fact> ownFacts(const Snapshot& snapshot, const Writer& w) {
  std::vector<Fact> facts;
  facts.emplace_back("identifier", json(snapshot.identifier().rawValue()));
  facts.emplace_back("size", w.size(snapshot.size()));
  facts.emplace_back("url", snapshot.url() ? json(snapshot.url()->text()) : "null");
  facts.emplace_back("source", jsonEnum(snapshot.source()));
  facts.emplace_back("density", jsonEnum(snapshot.density()));
  facts.emplace_back("backgroundColor", w.color(snapshot.backgroundColor().get()));
  facts.emplace_back("grid", w.gridJson(snapshot.grid().get()));
  return facts;
}

std::string gridText(const Grid& grid, const Writer& w) {
  std::string out = "grid";
  if (const auto& v = grid.vertical()) {
    out += " " + std::to_string(v->columnCount()) + " columns of " +
           w.lengthText(v->columnWidth()) + ", gutter " + w.lengthText(v->gutterWidth());
  }
  if (const auto& h = grid.horizontal()) {
    out += std::string(grid.vertical() ? ";" : "") + " rows of " + w.lengthText(h->rowHeight()) +
           ", gutter " + w.lengthText(h->gutterHeight());
  }
  return out;
}

}  // namespace

std::vector<Fact> layerFacts(const Layer& layer, const FactOptions& options) {
  return layerFactsWith(layer, Writer(options));
}

std::vector<Fact> snapshotFacts(const Snapshot& snapshot, const FactOptions& options) {
  Writer w(options);
  std::vector<Fact> facts = ownFacts(snapshot, w);
  auto array = [](const std::vector<InspectNode>& nodes) {
    std::string out = "[";
    for (const auto& n : nodes) {
      if (out.size() > 1) out += ',';
      writeJson(out, n);
    }
    return out + "]";
  };
  facts.emplace_back("links", array(linkNodes(snapshot, w)));
  facts.emplace_back("assets", array(assetNodes(snapshot)));
  return facts;
}

InspectNode inspectSnapshot(const Snapshot& snapshot, const Project* project, Density density) {
  std::optional<StyleGuide> guide;
  if (project) guide.emplace(*project);
  FactOptions options{density, guide ? &*guide : nullptr, project};
  Writer w(options);
  InspectNode root =
      node("snapshot " + std::string(snapshot.identifier().rawValue()) + ", " +
           w.lengthText(snapshot.size().width) + " × " + w.lengthText(snapshot.size().height));
  root.facts = ownFacts(snapshot, w);
  if (snapshot.source()) root.line += ", from " + std::string(rawValue(*snapshot.source()));
  if (snapshot.density()) root.line += ", " + std::string(rawValue(*snapshot.density()));
  if (snapshot.backgroundColor()) {
    root.line += ", background " + w.colorText(*snapshot.backgroundColor());
  }
  if (snapshot.grid()) root.line += ", " + gridText(*snapshot.grid(), w);

  std::vector<InspectNode> layers;
  std::unordered_set<const Layer*> seen;
  if (snapshot.layers()) {
    for (const auto& l : *snapshot.layers()) {
      if (l && seen.insert(l.get()).second) layers.push_back(layerNode(*l, w, seen));
    }
  }
  root.lists.emplace_back("layers", std::move(layers));
  root.lists.emplace_back("links", linkNodes(snapshot, w));
  root.lists.emplace_back("assets", assetNodes(snapshot));
  return root;
}

// --- Writing -----------------------------------------------------------------------------------

namespace {

// One line of text as a terminal shows it: no control characters.
std::string printable(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = ' ';
  }
  return text;
}

void writeText(std::string& out, const InspectNode& n, const std::string& prefix,
               std::size_t limit) {
  // Empty lists say nothing; the others get a heading with their size.
  std::vector<const std::pair<std::string, std::vector<InspectNode>>*> lists;
  for (const auto& list : n.lists) {
    if (!list.second.empty()) lists.push_back(&list);
  }
  for (std::size_t i = 0; i < lists.size(); ++i) {
    bool lastList = i + 1 == lists.size();
    const auto& [name, items] = *lists[i];
    out += prefix + (lastList ? "└─ " : "├─ ") + name + " (" + std::to_string(items.size()) + ")\n";
    std::string inner = prefix + (lastList ? "   " : "│  ");
    std::size_t shown = std::min(items.size(), limit);
    for (std::size_t k = 0; k < shown; ++k) {
      bool last = k + 1 == shown && shown == items.size();
      out += inner + (last ? "└─ " : "├─ ") + printable(items[k].line) + "\n";
      writeText(out, items[k], inner + (last ? "   " : "│  "), limit);
    }
    if (shown < items.size()) {
      out += inner + "└─ … and " + std::to_string(items.size() - shown) + " more\n";
    }
  }
}

void writeJson(std::string& out, const InspectNode& n) {
  out += '{';
  bool first = true;
  for (const auto& [name, value] : n.facts) {
    if (!first) out += ',';
    first = false;
    out += json(name) + ":" + value;
  }
  for (const auto& [name, items] : n.lists) {
    if (!first) out += ',';
    first = false;
    out += json(name) + ":[";
    for (std::size_t k = 0; k < items.size(); ++k) {
      if (k) out += ',';
      writeJson(out, items[k]);
    }
    out += ']';
  }
  out += '}';
}

}  // namespace

std::string inspectText(const InspectNode& root, std::size_t listLimit) {
  std::string out = printable(root.line) + "\n";
  writeText(out, root, "", std::max<std::size_t>(listLimit, 1));
  return out;
}

std::string inspectJson(const InspectNode& root) {
  std::string out;
  writeJson(out, root);
  return out + "\n";
}

}  // namespace orvane::handoff
