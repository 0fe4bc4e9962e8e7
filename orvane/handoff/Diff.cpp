#include <orvane/handoff/Diff.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <deque>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Paint.hpp>
#include <orvane/internal/Markup.hpp>

namespace orvane::handoff {

std::string_view changeName(LayerChange change) {
  switch (change) {
    case LayerChange::renamed:
      return "renamed";
    case LayerChange::moved:
      return "moved";
    case LayerChange::resized:
      return "resized";
    case LayerChange::rotated:
      return "rotated";
    case LayerChange::restyled:
      return "restyled";
    case LayerChange::text:
      return "text";
    case LayerChange::kind:
      return "kind";
    case LayerChange::reparented:
      return "reparented";
  }
  return {};
}

std::string_view changeName(SnapshotChange change) {
  switch (change) {
    case SnapshotChange::size:
      return "size";
    case SnapshotChange::background:
      return "background";
    case SnapshotChange::density:
      return "density";
    case SnapshotChange::grid:
      return "grid";
    case SnapshotChange::links:
      return "links";
    case SnapshotChange::assets:
      return "assets";
  }
  return {};
}

namespace {

// A record's listing as one string: equal strings, equal records.
class Fingerprint final : public FieldVisitor {
 public:
  void null() override { text += 'n'; }
  void boolean(bool value) override { text += value ? 't' : 'f'; }
  void integer(std::int64_t value) override { text += 'i' + std::to_string(value) + ';'; }
  void number(double value) override {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    text += 'd';
    text.append(bytes, sizeof value);
  }
  void string(std::string_view value) override {
    text += 's' + std::to_string(value.size()) + ':';
    text += value;
  }
  void beginObject() override { text += '{'; }
  void key(std::string_view name) override { string(name); }
  void endObject() override { text += '}'; }
  void beginArray() override { text += '['; }
  void endArray() override { text += ']'; }

  std::string text;
};

// Two listings compared through buffers kept from one layer to the next.
template <class T>
bool sameListing(const T& a, const T& b) {
  static thread_local Fingerprint x, y;
  x.text.clear();
  y.text.clear();
  describe(x, a);
  describe(y, b);
  return x.text == y.text;
}

bool same(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

// Whether a person could see the difference between two coordinates.
bool near(double a, double b) {
  return same(a, b) || std::abs(a - b) < kCoordinateTolerance;
}

bool nearOrigin(const Rect& a, const Rect& b) {
  return near(a.minX(), b.minX()) && near(a.minY(), b.minY());
}

bool nearSize(const Rect& a, const Rect& b) {
  return near(a.width(), b.width()) && near(a.height(), b.height());
}

bool sameParent(const Layer& a, const Layer& b) {
  Ref<Layer> pa = a.parent(), pb = b.parent();
  if (!pa || !pb) return !pa && !pb;
  return pa->sourceIdentifier().rawValue() == pb->sourceIdentifier().rawValue();
}

// The facts a layer's changes concern, in the order `layerFacts` writes them.
constexpr std::string_view kFactOrder[] = {"kind",    "name",       "frame",    "absoluteFrame",
                                           "opacity", "blendMode",  "rotation", "cornerRadius",
                                           "fills",   "borders",    "shadows",  "blur",
                                           "content", "textStyles", "parent"};

SnapshotDiff::Changed compare(const Layer& a, const Layer& b) {
  SnapshotDiff::Changed c;
  std::unordered_set<std::string_view> facts;
  auto change = [&](LayerChange kind, std::initializer_list<std::string_view> names) {
    if (c.changes.empty() || c.changes.back() != kind) c.changes.push_back(kind);
    facts.insert(names.begin(), names.end());
  };
  if (a.name() != b.name()) change(LayerChange::renamed, {"name"});
  bool reparented = !sameParent(a, b);
  // A layer that changed groups is placed anew: its place on the artboard says whether it moved.
  Rect fa = reparented ? a.absoluteFrame() : a.frame();
  Rect fb = reparented ? b.absoluteFrame() : b.frame();
  if (!nearOrigin(fa, fb)) change(LayerChange::moved, {"frame", "absoluteFrame"});
  if (!nearSize(fa, fb)) change(LayerChange::resized, {"frame", "absoluteFrame"});
  if (!near(a.rotation().value_or(0), b.rotation().value_or(0))) {
    change(LayerChange::rotated, {"rotation"});
  }
  if (!same(a.opacity(), b.opacity())) change(LayerChange::restyled, {"opacity"});
  if (a.blendMode() != b.blendMode()) change(LayerChange::restyled, {"blendMode"});
  if (!same(a.cornerRadius(), b.cornerRadius())) change(LayerChange::restyled, {"cornerRadius"});
  if (!sameListing(a.fills(), b.fills())) change(LayerChange::restyled, {"fills"});
  if (!sameListing(a.borders(), b.borders())) change(LayerChange::restyled, {"borders"});
  if (!sameListing(a.shadows(), b.shadows())) change(LayerChange::restyled, {"shadows"});
  if (!sameListing(a.blur(), b.blur())) change(LayerChange::restyled, {"blur"});
  const auto* ta = a.kind() ? a.kind()->asText() : nullptr;
  const auto* tb = b.kind() ? b.kind()->asText() : nullptr;
  if (ta && tb) {
    if (ta->content != tb->content) change(LayerChange::text, {"content"});
    if (!sameListing(ta->rangedTextStyles, tb->rangedTextStyles)) {
      change(LayerChange::text, {"textStyles"});
    }
  }
  auto key = [](const Layer& l) { return l.kind() ? int(l.kind()->key()) : -1; };
  if (key(a) != key(b)) change(LayerChange::kind, {"kind"});
  if (reparented) change(LayerChange::reparented, {"parent"});
  for (std::string_view name : kFactOrder) {
    if (facts.count(name)) c.facts.push_back(name);
  }
  return c;
}

bool sameGrid(const Grid* a, const Grid* b) {
  if (!a || !b) return !a && !b;
  if (!same(a->horizontalOffset(), b->horizontalOffset())) return false;
  const auto &va = a->vertical(), &vb = b->vertical();
  if (!va != !vb) return false;
  if (va &&
      !(same(va->columnWidth(), vb->columnWidth()) && va->columnCount() == vb->columnCount() &&
        same(va->gutterWidth(), vb->gutterWidth()) &&
        va->hasOutsideGutters() == vb->hasOutsideGutters())) {
    return false;
  }
  const auto &ha = a->horizontal(), &hb = b->horizontal();
  if (!ha != !hb) return false;
  return !ha ||
         (same(ha->rowHeight(), hb->rowHeight()) && same(ha->gutterHeight(), hb->gutterHeight()));
}

template <class T, class Same>
bool sameLists(const std::optional<std::vector<Ref<T>>>& a,
               const std::optional<std::vector<Ref<T>>>& b, Same&& sameItem) {
  std::size_t na = a ? a->size() : 0, nb = b ? b->size() : 0;
  if (na != nb) return false;
  for (std::size_t i = 0; i < na; ++i) {
    const Ref<T>&x = (*a)[i], &y = (*b)[i];
    if (!x || !y ? (x || y) : !sameItem(*x, *y)) return false;
  }
  return true;
}

bool sameLink(const Link& a, const Link& b) {
  return a.sourceIdentifier() == b.sourceIdentifier() && nearOrigin(a.frame(), b.frame()) &&
         nearSize(a.frame(), b.frame()) && sameListing(a.destination(), b.destination());
}

// Assets compare by what a developer exports: names, kind and files. Their identifiers and
// the identifier of their layer are the service's, new in every version.
bool sameAsset(const Asset& a, const Asset& b) {
  if (a.displayName() != b.displayName() || a.layerName() != b.layerName() ||
      a.isBitmap() != b.isBitmap() || a.contents().size() != b.contents().size()) {
    return false;
  }
  for (std::size_t i = 0; i < a.contents().size(); ++i) {
    const auto &x = a.contents()[i], &y = b.contents()[i];
    if (!x || !y) {
      if (x || y) return false;
      continue;
    }
    bool urls =
        x->url() && y->url() ? x->url()->text() == y->url()->text() : !x->url() && !y->url();
    if (!urls || x->density() != y->density() || x->format() != y->format()) return false;
  }
  return true;
}

std::vector<SnapshotChange> compareSnapshots(const Snapshot& a, const Snapshot& b) {
  std::vector<SnapshotChange> changes;
  if (!near(a.size().width, b.size().width) || !near(a.size().height, b.size().height)) {
    changes.push_back(SnapshotChange::size);
  }
  if (!sameListing(a.backgroundColor(), b.backgroundColor())) {
    changes.push_back(SnapshotChange::background);
  }
  if (a.density() != b.density()) changes.push_back(SnapshotChange::density);
  if (!sameGrid(a.grid().get(), b.grid().get())) changes.push_back(SnapshotChange::grid);
  if (!sameLists(a.links(), b.links(), sameLink)) changes.push_back(SnapshotChange::links);
  if (!sameLists(a.assets(), b.assets(), sameAsset)) changes.push_back(SnapshotChange::assets);
  return changes;
}

}  // namespace

SnapshotDiff diffSnapshots(const Snapshot& before, const Snapshot& after) {
  SnapshotDiff diff;
  diff.snapshot = compareSnapshots(before, after);
  std::vector<Ref<Layer>> old = allLayers(before);
  std::unordered_map<std::string_view, std::deque<std::size_t>> bySource;
  for (std::size_t i = 0; i < old.size(); ++i) {
    bySource[old[i]->sourceIdentifier().rawValue()].push_back(i);
  }
  std::vector<bool> matched(old.size());
  for (const Ref<Layer>& layer : allLayers(after)) {
    auto it = bySource.find(layer->sourceIdentifier().rawValue());
    if (it == bySource.end() || it->second.empty()) {
      diff.added.push_back(layer);
      continue;
    }
    std::size_t i = it->second.front();
    it->second.pop_front();
    matched[i] = true;
    SnapshotDiff::Changed c = compare(*old[i], *layer);
    if (!c.changes.empty()) {
      c.before = old[i];
      c.after = layer;
      diff.changed.push_back(std::move(c));
    }
  }
  for (std::size_t i = 0; i < old.size(); ++i) {
    if (!matched[i]) diff.removed.push_back(old[i]);
  }
  return diff;
}

// --- Writing -----------------------------------------------------------------------------------

namespace {

std::string json(std::string_view text) {
  std::string out;
  detail::appendJsonString(out, text);
  return out;
}

// A name on one line: control characters escaped as JSON escapes them.
std::string oneLine(std::string_view text) {
  std::string line;
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x20) {
      line += c;
    } else {
      std::string escaped = json(std::string_view(&c, 1));
      line.append(escaped, 1, escaped.size() - 2);
    }
  }
  return line;
}

std::string layerJson(const Layer& layer) {
  return "{\"sourceIdentifier\":" + json(layer.sourceIdentifier().rawValue()) +
         ",\"name\":" + json(layer.name()) +
         ",\"identifier\":" + json(layer.identifier().rawValue()) + "}";
}

std::string layersJson(const std::vector<Ref<Layer>>& layers) {
  std::string out = "[";
  for (const auto& l : layers) {
    if (out.size() > 1) out += ',';
    out += layerJson(*l);
  }
  return out + "]";
}

// The value of a fact among `facts`, or null.
std::string factValue(const std::vector<Fact>& facts, std::string_view name) {
  for (const auto& [n, value] : facts) {
    if (n == name) return value;
  }
  return "null";
}

std::string_view snapshotFactName(SnapshotChange change) {
  return change == SnapshotChange::background ? "backgroundColor" : changeName(change);
}

// The changed facts of one side of a changed layer, as one JSON object.
std::string changedFacts(const SnapshotDiff::Changed& c, const Layer& layer,
                         const FactOptions& options) {
  std::vector<Fact> facts = layerFacts(layer, options);
  std::string out = "{";
  for (std::string_view name : c.facts) {
    if (out.size() > 1) out += ',';
    out += json(name) + ":";
    if (name == "parent") {
      Ref<Layer> parent = layer.parent();
      out += parent ? layerJson(*parent) : "null";
    } else {
      out += factValue(facts, name);
    }
  }
  return out + "}";
}

}  // namespace

std::string diffJson(const SnapshotDiff& diff, const Snapshot& before, const Snapshot& after,
                     const FactOptions& options) {
  std::string out = "{\"snapshot\":[";
  if (!diff.snapshot.empty()) {
    std::vector<Fact> was = snapshotFacts(before, options);
    std::vector<Fact> is = snapshotFacts(after, options);
    for (std::size_t i = 0; i < diff.snapshot.size(); ++i) {
      std::string_view name = snapshotFactName(diff.snapshot[i]);
      out += (i ? ",{\"change\":" : "{\"change\":") + json(changeName(diff.snapshot[i])) +
             ",\"before\":" + factValue(was, name) + ",\"after\":" + factValue(is, name) + "}";
    }
  }
  out += "],\"added\":" + layersJson(diff.added) + ",\"removed\":" + layersJson(diff.removed) +
         ",\"changed\":[";
  for (std::size_t i = 0; i < diff.changed.size(); ++i) {
    const auto& c = diff.changed[i];
    out += (i ? ",{\"layer\":" : "{\"layer\":") + layerJson(*c.after) + ",\"changes\":[";
    for (std::size_t k = 0; k < c.changes.size(); ++k) {
      if (k) out += ',';
      out += json(changeName(c.changes[k]));
    }
    out += "],\"before\":" + changedFacts(c, *c.before, options) +
           ",\"after\":" + changedFacts(c, *c.after, options) + "}";
  }
  return out + "]}\n";
}

namespace {

class Lengths {
 public:
  explicit Lengths(const FactOptions& options) : scale_(densityScale(options.density)) {}
  std::string operator()(double value) const { return detail::number(value / scale_); }
  std::string point(const Rect& r) const { return (*this)(r.minX()) + "," + (*this)(r.minY()); }
  std::string size(double width, double height) const {
    return (*this)(width) + " × " + (*this)(height);
  }

 private:
  double scale_;
};

std::string colorText(const Ref<Color>& color) {
  return color ? rgba(*color).css() : "none";
}

template <class T>
std::size_t count(const std::optional<std::vector<Ref<T>>>& list) {
  return list ? list->size() : 0;
}

// "links" alone, or with their numbers when these changed.
template <class T>
std::string counted(std::string_view what, const std::optional<std::vector<Ref<T>>>& a,
                    const std::optional<std::vector<Ref<T>>>& b) {
  std::string out(what);
  if (count(a) != count(b))
    out += " " + std::to_string(count(a)) + " -> " + std::to_string(count(b));
  return out;
}

std::string snapshotLine(const SnapshotDiff& diff, const Snapshot& a, const Snapshot& b,
                         const Lengths& length) {
  std::string line = "snapshot:";
  for (std::size_t i = 0; i < diff.snapshot.size(); ++i) {
    line += i ? "; " : " ";
    switch (diff.snapshot[i]) {
      case SnapshotChange::size:
        line += "size " + length.size(a.size().width, a.size().height) + " -> " +
                length.size(b.size().width, b.size().height);
        break;
      case SnapshotChange::background:
        line += "background " + colorText(a.backgroundColor()) + " -> " +
                colorText(b.backgroundColor());
        break;
      case SnapshotChange::density:
        line += "density " + std::string(a.density() ? rawValue(*a.density()) : "none") + " -> " +
                std::string(b.density() ? rawValue(*b.density()) : "none");
        break;
      case SnapshotChange::grid:
        line += !a.grid() ? "grid added" : !b.grid() ? "grid removed" : "grid";
        break;
      case SnapshotChange::links:
        line += counted("links", a.links(), b.links());
        break;
      case SnapshotChange::assets:
        line += counted("assets", a.assets(), b.assets());
        break;
    }
  }
  return line + "\n";
}

std::string parentName(const Layer& layer) {
  Ref<Layer> parent = layer.parent();
  return parent ? oneLine(parent->name()) : "the top";
}

std::string kindText(const Layer& layer) {
  return layer.kind() ? std::string(rawValue(layer.kind()->key())) : "none";
}

std::string changeText(LayerChange change, const Layer& a, const Layer& b, const Lengths& length) {
  std::string text(changeName(change));
  Rect fa = a.absoluteFrame(), fb = b.absoluteFrame();
  switch (change) {
    case LayerChange::renamed:
      return text + " " + oneLine(a.name()) + " -> " + oneLine(b.name());
    case LayerChange::moved:
      return text + " " + length.point(fa) + " -> " + length.point(fb);
    case LayerChange::resized:
      return text + " " + length.size(fa.width(), fa.height()) + " -> " +
             length.size(fb.width(), fb.height());
    case LayerChange::rotated:
      return text + " " + detail::number(a.rotation().value_or(0)) + "° -> " +
             detail::number(b.rotation().value_or(0)) + "°";
    case LayerChange::kind:
      return text + " " + kindText(a) + " -> " + kindText(b);
    case LayerChange::reparented:
      return text + " " + parentName(a) + " -> " + parentName(b);
    case LayerChange::restyled:
    case LayerChange::text:
      break;
  }
  return text;
}

}  // namespace

std::string diffText(const SnapshotDiff& diff, const Snapshot& before, const Snapshot& after,
                     const FactOptions& options) {
  Lengths length(options);
  std::string text;
  if (!diff.snapshot.empty()) text += snapshotLine(diff, before, after, length);
  for (const auto& l : diff.added) text += "+ " + oneLine(l->name()) + "\n";
  for (const auto& l : diff.removed) text += "- " + oneLine(l->name()) + "\n";
  for (const auto& c : diff.changed) {
    text += "~ " + oneLine(c.after->name()) + ":";
    for (std::size_t k = 0; k < c.changes.size(); ++k) {
      text += (k ? "; " : " ") + changeText(c.changes[k], *c.before, *c.after, length);
    }
    text += "\n";
  }
  return text;
}

}  // namespace orvane::handoff
