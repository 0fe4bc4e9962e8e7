#include <orvane/handoff/Diff.hpp>

#include <cmath>
#include <cstring>
#include <deque>
#include <string>
#include <unordered_map>

#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/handoff/Find.hpp>

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

std::string styleOf(const Layer& layer) {
  Fingerprint f;
  f.field("fills", layer.fills());
  f.field("borders", layer.borders());
  f.field("shadows", layer.shadows());
  f.field("blur", layer.blur());
  f.field("opacity", layer.opacity());
  f.field("blendMode", layer.blendMode());
  f.field("cornerRadius", layer.cornerRadius());
  return f.text;
}

std::string textOf(const Layer::Kind::Text& text) {
  Fingerprint f;
  f.field("content", text.content);
  f.field("styles", text.rangedTextStyles);
  return f.text;
}

std::string parentOf(const Layer& layer) {
  Ref<Layer> parent = layer.parent();
  if (!parent) return "top";
  std::string key = "p";  // appended, not "p" + ...: GCC 12 misreads that as overlapping
  key += parent->sourceIdentifier().rawValue();
  return key;
}

bool same(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

std::vector<LayerChange> compare(const Layer& a, const Layer& b) {
  std::vector<LayerChange> changes;
  if (a.name() != b.name()) changes.push_back(LayerChange::renamed);
  bool reparented = parentOf(a) != parentOf(b);
  // A layer that changed groups is placed anew: its place on the artboard says whether it moved.
  Rect fa = reparented ? a.absoluteFrame() : a.frame();
  Rect fb = reparented ? b.absoluteFrame() : b.frame();
  if (!same(fa.origin.x, fb.origin.x) || !same(fa.origin.y, fb.origin.y)) {
    changes.push_back(LayerChange::moved);
  }
  if (!same(fa.size.width, fb.size.width) || !same(fa.size.height, fb.size.height)) {
    changes.push_back(LayerChange::resized);
  }
  if (!same(a.rotation().value_or(0), b.rotation().value_or(0))) {
    changes.push_back(LayerChange::rotated);
  }
  if (styleOf(a) != styleOf(b)) changes.push_back(LayerChange::restyled);
  const auto* ta = a.kind() ? a.kind()->asText() : nullptr;
  const auto* tb = b.kind() ? b.kind()->asText() : nullptr;
  if (ta && tb && textOf(*ta) != textOf(*tb)) changes.push_back(LayerChange::text);
  auto key = [](const Layer& l) { return l.kind() ? int(l.kind()->key()) : -1; };
  if (key(a) != key(b)) changes.push_back(LayerChange::kind);
  if (reparented) changes.push_back(LayerChange::reparented);
  return changes;
}

}  // namespace

SnapshotDiff diffSnapshots(const Snapshot& before, const Snapshot& after) {
  SnapshotDiff diff;
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
    std::vector<LayerChange> changes = compare(*old[i], *layer);
    if (!changes.empty()) diff.changed.push_back({old[i], layer, std::move(changes)});
  }
  for (std::size_t i = 0; i < old.size(); ++i) {
    if (!matched[i]) diff.removed.push_back(old[i]);
  }
  return diff;
}

}  // namespace orvane::handoff
