#include <orvane/handoff/Inspect.hpp>

#include <algorithm>
#include <cmath>
#include <unordered_set>

#include <orvane/handoff/Paint.hpp>
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

std::string jsonRect(const Rect& r) {
  return "{\"x\":" + json(r.minX()) + ",\"y\":" + json(r.minY()) + ",\"width\":" + json(r.width()) +
         ",\"height\":" + json(r.height()) + "}";
}

std::string textRect(const Rect& r) {
  return "(" + number(r.minX()) + ", " + number(r.minY()) + ", " + number(r.width()) + " × " +
         number(r.height()) + ")";
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

// --- Projects ----------------------------------------------------------------------------------

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

InspectNode inspectProject(const Project& project) {
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
    for (const auto& t : *project.textStyles()) {
      if (!t) continue;
      InspectNode n =
          node("text style " + t->name() + " " + t->fontName() + " " + number(t->fontSize()));
      fact(n, "name", json(t->name()));
      fact(n, "fontName", json(t->fontName()));
      fact(n, "fontSize", json(t->fontSize()));
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

std::string styleSummary(const Layer& layer) {
  std::vector<std::string> parts;
  if (layer.fills()) {
    for (const auto& f : *layer.fills()) {
      if (!f || !f->kind()) continue;
      if (const auto* c = f->kind()->asColor(); c && c->color) {
        parts.push_back("fill " + rgba(*c->color, f->opacity().value_or(1)).css());
      } else if (const auto* g = f->kind()->asGradient(); g && g->gradient) {
        parts.push_back(std::string(g->gradient->kind() ? rawValue(*g->gradient->kind()) : "") +
                        " gradient");
      }
    }
  }
  if (layer.borders()) {
    for (const auto& b : *layer.borders()) {
      if (b) {
        parts.push_back("border " + number(b->thickness()) +
                        (b->position() ? " " + std::string(rawValue(*b->position())) : ""));
      }
    }
  }
  if (layer.shadows() && !layer.shadows()->empty()) {
    parts.push_back(std::to_string(layer.shadows()->size()) +
                    (layer.shadows()->size() == 1 ? " shadow" : " shadows"));
  }
  if (layer.blur()) parts.push_back("blur " + number(layer.blur()->radius()));
  if (layer.cornerRadius() != 0) parts.push_back("radius " + number(layer.cornerRadius()));
  if (layer.opacity() != 1) parts.push_back("opacity " + number(layer.opacity()));
  if (layer.rotation() && *layer.rotation() != 0) {
    parts.push_back("rotated " + number(*layer.rotation()) + "°");
  }
  if (layer.blendMode()) parts.push_back(std::string(rawValue(*layer.blendMode())));
  if (layer.kind() && layer.kind()->asText()) {
    const std::string& content = layer.kind()->asText()->content;
    std::string shown = content;
    if (shown.size() > 24) {
      std::size_t cut = 24;
      while (cut > 0 && (static_cast<unsigned char>(shown[cut]) & 0xC0) == 0x80) --cut;
      shown = shown.substr(0, cut) + "…";
    }
    for (char& c : shown) {
      if (c == '\n' || c == '\r' || c == '\t') c = ' ';
    }
    parts.push_back("\"" + shown + "\"");
  }
  std::string out;
  for (const auto& p : parts) out += (out.empty() ? "" : ", ") + p;
  return out;
}

InspectNode layerNode(const Layer& layer, std::unordered_set<const Layer*>& seen) {
  std::string summary = styleSummary(layer);
  InspectNode n = node(kindName(layer) + " " + layer.name() + " (" +
                       std::string(layer.identifier().rawValue()) + ") " +
                       textRect(layer.absoluteFrame()) + (summary.empty() ? "" : ", " + summary));
  fact(n, "identifier", json(layer.identifier().rawValue()));
  fact(n, "kind", layer.kind() ? json(rawValue(layer.kind()->key())) : "null");
  fact(n, "name", json(layer.name()));
  fact(n, "absoluteFrame", jsonRect(layer.absoluteFrame()));
  fact(n, "style", json(summary));
  if (layer.kind() && layer.kind()->asGroup()) {
    std::vector<InspectNode> children;
    for (const auto& child : layer.kind()->asGroup()->layers) {
      if (child && seen.insert(child.get()).second) children.push_back(layerNode(*child, seen));
    }
    n.lists.emplace_back("layers", std::move(children));
  }
  return n;
}

}  // namespace

InspectNode inspectSnapshot(const Snapshot& snapshot, const Project* project) {
  InspectNode root = node("snapshot " + std::string(snapshot.identifier().rawValue()) + ", " +
                          number(snapshot.size().width) + " × " + number(snapshot.size().height));
  fact(root, "identifier", json(snapshot.identifier().rawValue()));
  fact(root, "size",
       "{\"width\":" + json(snapshot.size().width) + ",\"height\":" + json(snapshot.size().height) +
           "}");
  fact(root, "source", snapshot.source() ? json(rawValue(*snapshot.source())) : "null");
  fact(root, "density", snapshot.density() ? json(rawValue(*snapshot.density())) : "null");
  if (snapshot.source()) root.line += ", from " + std::string(rawValue(*snapshot.source()));
  if (snapshot.density()) root.line += ", " + std::string(rawValue(*snapshot.density()));

  std::vector<InspectNode> layers;
  std::unordered_set<const Layer*> seen;
  if (snapshot.layers()) {
    for (const auto& l : *snapshot.layers()) {
      if (l && seen.insert(l.get()).second) layers.push_back(layerNode(*l, seen));
    }
  }
  root.lists.emplace_back("layers", std::move(layers));

  std::vector<InspectNode> links;
  if (snapshot.links()) {
    for (const auto& link : *snapshot.links()) {
      if (!link) continue;
      std::string to = "nowhere";
      std::string screenId = "null";
      if (link->destination() && link->destination()->kind()) {
        const auto& kind = *link->destination()->kind();
        to = kind.asScreen() ? "screen " + kind.asScreen()->name : "the previous screen";
        if (kind.asScreen() && project && project->screensByIdentifier()) {
          for (const auto& [id, screen] : *project->screensByIdentifier()) {
            if (screen && screen->name() == kind.asScreen()->name) {
              screenId = json(id.rawValue());
              to += " (" + std::string(id.rawValue()) + ")";
              break;
            }
          }
        }
      }
      InspectNode n = node("link " + textRect(link->frame()) + " to " + to);
      fact(n, "frame", jsonRect(link->frame()));
      fact(n, "destination", json(to));
      fact(n, "screen", screenId);
      links.push_back(std::move(n));
    }
  }
  root.lists.emplace_back("links", std::move(links));

  std::vector<InspectNode> assets;
  if (snapshot.assets()) {
    for (const auto& asset : *snapshot.assets()) {
      if (!asset) continue;
      InspectNode n = node("asset " + asset->displayName() + " from " + asset->layerName());
      fact(n, "displayName", json(asset->displayName()));
      fact(n, "layerName", json(asset->layerName()));
      std::vector<InspectNode> contents;
      for (const auto& c : asset->contents()) {
        if (!c) continue;
        std::string density = c->density() ? std::string(rawValue(*c->density())) : "?";
        std::string format = c->format() ? std::string(rawValue(*c->format())) : "?";
        InspectNode cn = node(format + " at " + density);
        fact(cn, "density", c->density() ? json(density) : "null");
        fact(cn, "format", c->format() ? json(format) : "null");
        contents.push_back(std::move(cn));
      }
      n.lists.emplace_back("contents", std::move(contents));
      assets.push_back(std::move(n));
    }
  }
  root.lists.emplace_back("assets", std::move(assets));
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
    out += prefix + (lastList ? "└─ " : "├─ ") + name + " (" + std::to_string(items.size()) +
           ")\n";
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
