#include <orvane/snapshot/Layer.hpp>

#include <orvane/values/Geometry.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/internal/FatalError.hpp>
#include <orvane/internal/ChainLoopCheck.hpp>

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

Layer::Layer(Passkey<Layer>, Identifier identifier, std::string name, Identifier sourceIdentifier,
             std::optional<Kind> kind, Rect frame, std::optional<double> rotation,
             double cornerRadius, double opacity, std::optional<BlendMode> blendMode,
             Ref<Blur> blur, bool isExportable, std::optional<std::vector<Ref<Fill>>> fills,
             std::optional<std::vector<Ref<Border>>> borders,
             std::optional<std::vector<Ref<Shadow>>> shadows)
    : identifier_(std::move(identifier)),
      name_(std::move(name)),
      sourceIdentifier_(std::move(sourceIdentifier)),
      kind_(std::move(kind)),
      frame_(frame),
      cornerRadius_(cornerRadius),
      opacity_(opacity),
      fills_(std::move(fills)),
      borders_(std::move(borders)),
      shadows_(std::move(shadows)) {
  setRotation(rotation);
  setBlendMode(blendMode);
  if (blur) rare().blur = std::move(blur);
  setIsExportable(isExportable);
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

Ref<Layer> Layer::make(std::string name, Identifier sourceIdentifier, std::optional<Kind> kind,
                       Rect frame, std::optional<double> rotation, double cornerRadius,
                       double opacity, std::optional<BlendMode> blendMode, Ref<Blur> blur,
                       bool isExportable, std::optional<std::vector<Ref<Fill>>> fills,
                       std::optional<std::vector<Ref<Border>>> borders,
                       std::optional<std::vector<Ref<Shadow>>> shadows, Identifier identifier) {
  auto layer = makeRef<Layer>(Passkey<Layer>{}, std::move(identifier), std::move(name),
                              std::move(sourceIdentifier), std::move(kind), frame, rotation,
                              cornerRadius, opacity, blendMode, std::move(blur), isExportable,
                              std::move(fills), std::move(borders), std::move(shadows));
  layer->adoptChildren();
  return layer;
}

Ref<Layer> Layer::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  // Imported layers carry the source's identifiers, which mean nothing to the service.
  auto identifier =
      decoder.isFromImportSource() ? Identifier::local() : c.decode<Identifier>(K::identifier);
  auto name = c.decodeString(K::name);
  auto sourceIdentifier = c.decode<Identifier>(K::sourceIdentifier);
  std::optional<Kind> kind;
  if (auto key = c.decodeTolerant<Kind::Key>(K::kind)) {
    switch (*key) {
      case Kind::Key::text: {
        auto content = c.decodeString(K::content);
        auto styles = c.decode<std::vector<Ref<RangedTextStyle>>>(K::textStyles);
        kind = Kind::text(std::move(content), std::move(styles));
        break;
      }
      case Kind::Key::group: {
        auto layers = c.decode<std::vector<Ref<Layer>>>(K::layers);
        auto componentName = c.decodeStringIfPresent(K::componentName);
        auto interactionLevel = c.decodeTolerant<InteractionLevel>(K::interactionLevel);
        kind = Kind::group(std::move(layers), std::move(componentName), interactionLevel);
        break;
      }
      case Kind::Key::shape:
        kind = Kind::shape();
        break;
    }
  }
  auto frame = c.decode<Rect>(K::frame);
  auto rotation = c.decodeDoubleIfPresent(K::rotation);
  auto cornerRadius = c.decodeDoubleIfPresent(K::cornerRadius).value_or(0);
  auto opacity = c.decodeDouble(K::opacity);
  auto blendMode = c.decodeTolerant<BlendMode>(K::blendMode);
  auto blur = c.decodeIfPresent<Ref<Blur>>(K::blur);
  auto isExportable = c.decodeBoolIfPresent(K::isExportable).value_or(false);
  auto fills = c.decodeIfPresent<std::vector<Ref<Fill>>>(K::fills);
  auto borders = c.decodeIfPresent<std::vector<Ref<Border>>>(K::borders);
  auto shadows = c.decodeIfPresent<std::vector<Ref<Shadow>>>(K::shadows);
  auto layer = makeRef<Layer>(Passkey<Layer>{}, std::move(identifier), std::move(name),
                              std::move(sourceIdentifier), std::move(kind), frame, rotation,
                              cornerRadius, opacity, blendMode, std::move(blur), isExportable,
                              std::move(fills), std::move(borders), std::move(shadows));
  layer->adoptChildren();
  return layer;
}

void Layer::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::name, name_);
  if (!sourceIdentifier_.isLocal()) c.encode(K::sourceIdentifier, sourceIdentifier_.rawValue());
  if (kind_) {
    c.encode(K::kind, kind_->key());
    if (const auto* group = kind_->asGroup()) {
      c.encode(K::layers, group->layers);
      c.encodeIfPresent(K::componentName, group->componentName);
      c.encodeIfPresent(K::interactionLevel, group->interactionLevel);
    } else if (const auto* text = kind_->asText()) {
      c.encode(K::content, text->content);
      c.encode(K::textStyles, text->rangedTextStyles);
    }
  }
  c.encode(K::frame, frame_);
  c.encodeIfPresent(K::rotation, rotation());
  c.encode(K::cornerRadius, cornerRadius_);
  c.encode(K::opacity, opacity_);
  c.encodeIfPresent(K::blendMode, blendMode());
  c.encodeIfPresent(K::blur, blur());
  c.encode(K::isExportable, isExportable());
  c.encodeIfPresent(K::fills, fills_);
  c.encodeIfPresent(K::borders, borders_);
  c.encodeIfPresent(K::shadows, shadows_);
}

void Layer::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("sourceIdentifier", sourceIdentifier_);
  v.field("kind", kind_);
  v.field("frame", frame_);
  v.field("rotation", rotation());
  v.field("cornerRadius", cornerRadius_);
  v.field("opacity", opacity_);
  v.field("blendMode", blendMode());
  v.field("blur", blur());
  v.field("isExportable", isExportable());
  v.field("fills", fills_);
  v.field("borders", borders_);
  v.field("shadows", shadows_);
  v.field("snapshot", snapshot_);
  v.field("parent", parent_);
  v.field("exportsBitmap", exportsBitmap());
  v.field("sketchFileURL", sketchFileURL());
  v.field("absoluteFrame", absoluteFrame());
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
