#include <orvane/snapshot/Layer.hpp>

#include <orvane/internal/ChainLoopCheck.hpp>
#include <orvane/internal/FatalError.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

namespace {
constexpr std::string_view kSourceFile = "orvane/snapshot/Layer.cpp";

[[noreturn]] void cycle(const Layer& layer, std::string_view how, int line) {
  fatalError("Layer tree has a cycle: layer \"" + std::string(layer.identifier().rawValue()) +
                 "\" " + std::string(how) + ".",
             kSourceFile, line);
}
}  // namespace

// Marks a group while a walk of the tree is below it: meeting a marked group again means the
// group is inside its own subtree.
class Layer::Visit {
 public:
  explicit Visit(const Layer& group) : group_(group) {
    if (group.flags_ & kVisiting) cycle(group, "is inside its own subtree", __LINE__);
    group.flags_ |= kVisiting;
  }
  ~Visit() { group_.flags_ &= static_cast<std::uint8_t>(~kVisiting); }
  Visit(const Visit&) = delete;
  Visit& operator=(const Visit&) = delete;

 private:
  const Layer& group_;
};

Layer::Kind::Key Layer::Kind::key() const {
  if (asText()) return Key::text;
  if (asGroup()) return Key::group;
  return Key::shape;
}

void Layer::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* text = asText()) {
    v.field("content", text->content);
    v.field("rangedTextStyles", text->rangedTextStyles);
  } else if (const auto* group = asGroup()) {
    v.field("layers", group->layers);
    v.field("componentName", group->componentName);
    v.field("interactionLevel", group->interactionLevel);
  }
}

Layer::Rare& Layer::rare() {
  if (!rare_) rare_ = std::make_unique<Rare>();
  return *rare_;
}

const Ref<Blur>& Layer::blur() const {
  static const Ref<Blur> none;
  return rare_ ? rare_->blur : none;
}

void Layer::setBlur(Ref<Blur> value) {
  if (value || rare_) rare().blur = std::move(value);
}

const std::optional<Url>& Layer::sketchFileURL() const {
  static const std::optional<Url> none;
  return rare_ ? rare_->sketchFileURL : none;
}

void Layer::setSketchFileURL(std::optional<Url> value) {
  if (value || rare_) rare().sketchFileURL = std::move(value);
}

ORVANE_PLAIN_RECORD_DEFINE(Layer, ORVANE_LAYER_FIELDS, adoptChildren)

void Layer::decodeKind(const Decoder&, const KeyedDecodingContainer& c) {
  auto key = c.decodeTolerant<Kind::Key>(CodingKeys::kind);
  if (!key) return;
  switch (*key) {
    case Kind::Key::text: {
      auto content = c.decodeString(KindKeys::content);
      auto styles = c.decode<std::vector<Ref<RangedTextStyle>>>(KindKeys::textStyles);
      kind_ = Kind::text(std::move(content), std::move(styles));
      break;
    }
    case Kind::Key::group: {
      auto layers = c.decode<std::vector<Ref<Layer>>>(KindKeys::layers);
      auto componentName = c.decodeStringIfPresent(KindKeys::componentName);
      auto interactionLevel = c.decodeTolerant<InteractionLevel>(KindKeys::interactionLevel);
      kind_ = Kind::group(std::move(layers), std::move(componentName), interactionLevel);
      break;
    }
    case Kind::Key::shape:
      kind_ = Kind::shape();
      break;
  }
}

// The payload is written as it is read: the case, then its members.
void Layer::documentKind(KeyedEncodingContainer& c) const {
  encodeKind(c);
}

void Layer::describeKind(SchemaVisitor& v) {
  v.member({CodingKeys::kind, SchemaRead::tolerant, "kind"}, Schema<Kind::Key>::shape);
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::text));
  v.member({KindKeys::content, SchemaRead::required, "kind.content"}, Schema<std::string>::shape);
  v.member({KindKeys::textStyles, SchemaRead::required, "kind.rangedTextStyles"},
           Schema<std::vector<Ref<RangedTextStyle>>>::shape);
  v.endCase();
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::group));
  v.member({KindKeys::layers, SchemaRead::required, "kind.layers"},
           Schema<std::vector<Ref<Layer>>>::shape);
  v.member({KindKeys::componentName, SchemaRead::optional, "kind.componentName"},
           Schema<std::string>::shape);
  v.member({KindKeys::interactionLevel, SchemaRead::tolerant, "kind.interactionLevel"},
           Schema<InteractionLevel>::shape);
  v.endCase();
}

void Layer::encodeKind(KeyedEncodingContainer& c) const {
  if (!kind_) return;
  c.encode(CodingKeys::kind, kind_->key());
  if (const auto* group = kind_->asGroup()) {
    c.encode(KindKeys::layers, group->layers);
    c.encodeIfPresent(KindKeys::componentName, group->componentName);
    c.encodeIfPresent(KindKeys::interactionLevel, group->interactionLevel);
  } else if (const auto* text = kind_->asText()) {
    c.encode(KindKeys::content, text->content);
    c.encode(KindKeys::textStyles, text->rangedTextStyles);
  }
}

void Layer::adoptChildren() {
  if (!kind_) return;
  if (auto* group = kind_->asGroup()) {
    auto self = shared_from_this();
    for (const auto& child : group->layers) child->parent_ = self;
  }
}

void Layer::setKind(std::optional<Kind> value) {
  kind_ = std::move(value);
  kindChanged();
}

void Layer::kindChanged() {
  if (!kind_) return;
  if (auto* group = kind_->asGroup()) {
    Visit visit(*this);
    auto self = shared_from_this();
    auto snapshot = snapshot_.lock();
    for (const auto& child : group->layers) {
      child->parent_ = self;
      child->setSnapshot(snapshot);
    }
  }
}

void Layer::setSnapshot(const Ref<Snapshot>& value) {
  snapshot_ = value;
  if (!kind_) return;
  if (const auto* group = kind_->asGroup()) {
    Visit visit(*this);
    for (const auto& child : group->layers) child->setSnapshot(value);
  }
}

Rect Layer::absoluteFrame() const {
  if (!(flags_ & kHasAbsoluteFrame)) {
    Rect frame = frame_;
    detail::ChainLoopCheck loop(this);
    for (auto ancestor = parent_.lock(); ancestor; ancestor = ancestor->parent_.lock()) {
      if (loop.revisits(ancestor.get())) cycle(*ancestor, "is its own ancestor", __LINE__);
      frame = frame.offsetBy(ancestor->frame_.origin.x, ancestor->frame_.origin.y);
    }
    absoluteFrame_ = frame;
    flags_ |= kHasAbsoluteFrame;
  }
  return absoluteFrame_;
}

void Layer::flatten(const std::vector<Ref<Layer>>& layers, Point origin, Flattened& out,
                    bool gatherNames) {
  for (const auto& layer : layers) {
    Rect absolute = layer->frame_.offsetBy(origin.x, origin.y);
    layer->setAbsoluteFrame(absolute);
    const Kind::Group* group = layer->kind_ ? layer->kind_->asGroup() : nullptr;
    if (!group) {
      out.flattenedLayers.push_back(layer);
      continue;
    }
    Visit visit(*layer);
    if (gatherNames && group->componentName) out.componentNames.insert(*group->componentName);
    const auto level = group->interactionLevel;
    if (level == InteractionLevel::bottom) out.flattenedLayers.push_back(layer);
    flatten(group->layers, absolute.origin, out, gatherNames);
    if (level == InteractionLevel::top) out.flattenedLayers.push_back(layer);
  }
}

// An upper bound of what a flattening of `layers` yields: each layer at most once.
std::size_t Layer::countLayers(const std::vector<Ref<Layer>>& layers) {
  std::size_t count = layers.size();
  for (const auto& layer : layers) {
    const auto& kind = layer->kind();
    if (const auto* group = kind ? kind->asGroup() : nullptr) {
      Visit visit(*layer);
      count += countLayers(group->layers);
    }
  }
  return count;
}

std::vector<Ref<Layer>> Layer::flattenedLayers(const std::vector<Ref<Layer>>& layers,
                                               Point origin) {
  Flattened out;
  out.flattenedLayers.reserve(countLayers(layers));  // snapshots keep it; no spare room
  flatten(layers, origin, out, false);
  return std::move(out.flattenedLayers);
}

Layer::Flattened Layer::flattenedLayersAndComponentNames(const std::vector<Ref<Layer>>& layers,
                                                         Point origin) {
  Flattened out;
  flatten(layers, origin, out, true);
  return out;
}

}  // namespace orvane
