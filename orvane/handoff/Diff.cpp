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

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool sameStyle(const Layer& a, const Layer& b) {
  return same(a.opacity(), b.opacity()) && a.blendMode() == b.blendMode() &&
         same(a.cornerRadius(), b.cornerRadius()) && sameListing(a.fills(), b.fills()) &&
         sameListing(a.borders(), b.borders()) && sameListing(a.shadows(), b.shadows()) &&
         sameListing(a.blur(), b.blur());
}

bool sameText(const Layer::Kind::Text& a, const Layer::Kind::Text& b) {
  return a.content == b.content && sameListing(a.rangedTextStyles, b.rangedTextStyles);
}

bool sameParent(const Layer& a, const Layer& b) {
  Ref<Layer> pa = a.parent(), pb = b.parent();
  if (!pa || !pb) return !pa && !pb;
  return pa->sourceIdentifier().rawValue() == pb->sourceIdentifier().rawValue();
}


std::vector<LayerChange> compare(const Layer& a, const Layer& b) {
  std::vector<LayerChange> changes;
  if (a.name() != b.name()) changes.push_back(LayerChange::renamed);
  bool reparented = !sameParent(a, b);
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
  if (!sameStyle(a, b)) changes.push_back(LayerChange::restyled);
  const auto* ta = a.kind() ? a.kind()->asText() : nullptr;
  const auto* tb = b.kind() ? b.kind()->asText() : nullptr;
  if (ta && tb && !sameText(*ta, *tb)) changes.push_back(LayerChange::text);
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
