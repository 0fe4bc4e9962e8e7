// One element of an exported artboard: a text run, a shape or a group of further layers.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <orvane/values/BlendMode.hpp>
#include <orvane/values/CanonicalText.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/styles/Blur.hpp>
#include <orvane/styles/Border.hpp>
#include <orvane/styles/Fill.hpp>
#include <orvane/styles/RangedTextStyle.hpp>
#include <orvane/styles/Shadow.hpp>

namespace orvane {

class Snapshot;

/// A node of a snapshot's layer tree. Groups own their children; every layer points weakly at
/// its enclosing group and at the snapshot of its tree. A group placed inside its own subtree
/// is a programming error: the walks of the tree (passing the snapshot down, flattening)
/// stop the process with `fatalError` rather than recurse forever.
class Layer : public std::enable_shared_from_this<Layer> {
 public:
  /// Where a group stands relative to its children when a tree is flattened.
  enum class InteractionLevel { top, bottom };

  /// What the layer is, with its payload.
  class Kind {
   public:
    enum class Key { shape, text, group };

    struct Text {
      std::string content;
      std::vector<Ref<RangedTextStyle>> rangedTextStyles;
    };
    struct Group {
      std::vector<Ref<Layer>> layers;
      std::optional<std::string> componentName;
      std::optional<InteractionLevel> interactionLevel;
    };
    struct Shape {};

    static Kind text(std::string content, std::vector<Ref<RangedTextStyle>> rangedTextStyles) {
      return Kind(Text{std::move(content), std::move(rangedTextStyles)});
    }
    static Kind group(std::vector<Ref<Layer>> layers, std::optional<std::string> componentName,
                      std::optional<InteractionLevel> interactionLevel) {
      return Kind(Group{std::move(layers), std::move(componentName), interactionLevel});
    }
    static Kind shape() { return Kind(Shape{}); }

    Key key() const;
    /// The payload of that case, or null for another case.
    const Text* asText() const { return std::get_if<Text>(&value_); }
    const Group* asGroup() const { return std::get_if<Group>(&value_); }
    Group* asGroup() { return std::get_if<Group>(&value_); }

    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Text, Group, Shape> value) : value_(std::move(value)) {}
    std::variant<Text, Group, Shape> value_;
  };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view sourceIdentifier = "sourceId";
    static constexpr std::string_view kind = "type";
    static constexpr std::string_view frame = "rect";
    static constexpr std::string_view rotation = "rotation";
    static constexpr std::string_view cornerRadius = "borderRadius";
    static constexpr std::string_view opacity = "opacity";
    static constexpr std::string_view blendMode = "blendMode";
    static constexpr std::string_view blur = "blur";
    static constexpr std::string_view content = "content";
    static constexpr std::string_view isExportable = "exportable";
    static constexpr std::string_view componentName = "componentName";
    static constexpr std::string_view interactionLevel = "interactionLevel";
    static constexpr std::string_view layers = "layers";
    static constexpr std::string_view fills = "fills";
    static constexpr std::string_view borders = "borders";
    static constexpr std::string_view shadows = "shadows";
    static constexpr std::string_view textStyles = "textStyles";
  };

  struct Flattened {
    std::vector<Ref<Layer>> flattenedLayers;
    /// Canonically equivalent spellings of a name count once.
    CanonicalStringSet componentNames;
  };

  Layer(Passkey<Layer>, Identifier identifier, std::string name, Identifier sourceIdentifier,
        std::optional<Kind> kind, Rect frame, std::optional<double> rotation, double cornerRadius,
        double opacity, std::optional<BlendMode> blendMode, Ref<Blur> blur, bool isExportable,
        std::optional<std::vector<Ref<Fill>>> fills,
        std::optional<std::vector<Ref<Border>>> borders,
        std::optional<std::vector<Ref<Shadow>>> shadows);

  static Ref<Layer> make(std::string name, Identifier sourceIdentifier, std::optional<Kind> kind,
                         Rect frame, std::optional<double> rotation, double cornerRadius,
                         double opacity, std::optional<BlendMode> blendMode, Ref<Blur> blur,
                         bool isExportable, std::optional<std::vector<Ref<Fill>>> fills,
                         std::optional<std::vector<Ref<Border>>> borders,
                         std::optional<std::vector<Ref<Shadow>>> shadows,
                         Identifier identifier = Identifier::local());
  static Ref<Layer> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  /// The layers in drawing order, each with its absolute frame stored on the way.
  static std::vector<Ref<Layer>> flattenedLayers(const std::vector<Ref<Layer>>& layers,
                                                 Point origin = {});
  /// The same, with the component names of every group at any depth.
  static Flattened flattenedLayersAndComponentNames(const std::vector<Ref<Layer>>& layers,
                                                    Point origin = {});

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const Identifier& sourceIdentifier() const { return sourceIdentifier_; }
  void setSourceIdentifier(Identifier value) { sourceIdentifier_ = std::move(value); }
  const std::optional<Kind>& kind() const { return kind_; }
  /// Stores the kind; a group's children then get this layer as parent and its snapshot.
  void setKind(std::optional<Kind> value);
  /// Changes the kind in place (a group's children, say), then wires it as an assignment would.
  template <class Fn>
  void editKind(Fn&& fn) {
    std::forward<Fn>(fn)(kind_);
    kindChanged();
  }
  const Rect& frame() const { return frame_; }
  void setFrame(Rect value) { frame_ = value; }
  std::optional<double> rotation() const {
    return (flags_ & kHasRotation) ? std::optional<double>(rotation_) : std::nullopt;
  }
  void setRotation(std::optional<double> value) {
    rotation_ = value.value_or(0);
    setFlag(kHasRotation, value.has_value());
  }
  double cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(double value) { cornerRadius_ = value; }
  double opacity() const { return opacity_; }
  void setOpacity(double value) { opacity_ = value; }
  std::optional<BlendMode> blendMode() const {
    return (flags_ & kHasBlendMode) ? std::optional<BlendMode>(blendMode_) : std::nullopt;
  }
  void setBlendMode(std::optional<BlendMode> value) {
    if (value) blendMode_ = *value;
    setFlag(kHasBlendMode, value.has_value());
  }
  const Ref<Blur>& blur() const;
  void setBlur(Ref<Blur> value);
  bool isExportable() const { return flags_ & kIsExportable; }
  void setIsExportable(bool value) { setFlag(kIsExportable, value); }
  const std::optional<std::vector<Ref<Fill>>>& fills() const { return fills_; }
  void setFills(std::optional<std::vector<Ref<Fill>>> value) { fills_ = std::move(value); }
  const std::optional<std::vector<Ref<Border>>>& borders() const { return borders_; }
  void setBorders(std::optional<std::vector<Ref<Border>>> value) { borders_ = std::move(value); }
  const std::optional<std::vector<Ref<Shadow>>>& shadows() const { return shadows_; }
  void setShadows(std::optional<std::vector<Ref<Shadow>>> value) { shadows_ = std::move(value); }
  Ref<Snapshot> snapshot() const { return snapshot_.lock(); }
  /// Stores the snapshot and hands it down the whole subtree, also when it does not change.
  void setSnapshot(const Ref<Snapshot>& value);
  Ref<Layer> parent() const { return parent_.lock(); }
  void setParent(const Ref<Layer>& value) { parent_ = value; }
  bool exportsBitmap() const { return flags_ & kExportsBitmap; }
  void setExportsBitmap(bool value) { setFlag(kExportsBitmap, value); }
  const std::optional<Url>& sketchFileURL() const;
  void setSketchFileURL(std::optional<Url> value);

  /// The frame in the snapshot's coordinates. Computed through the parents on first read and
  /// kept from then on, so a later move of an ancestor is not seen until it is assigned again.
  /// A layer that is its own ancestor (through `setParent`) stops the process.
  Rect absoluteFrame() const;
  void setAbsoluteFrame(Rect value) {
    absoluteFrame_ = value;
    flags_ |= kHasAbsoluteFrame;
  }

 private:
  void adoptChildren();
  void kindChanged();
  static void flatten(const std::vector<Ref<Layer>>& layers, Point origin, Flattened& out,
                      bool gatherNames);
  static std::size_t countLayers(const std::vector<Ref<Layer>>& layers);

  // Layers are the most numerous records of a decoded graph, so their storage is packed: the
  // optional scalars are a value and a presence bit, and what layers seldom carry (a blur, a
  // file URL) lives in a block of its own that only those layers allocate.
  struct Rare {
    Ref<Blur> blur;
    std::optional<Url> sketchFileURL;
  };
  enum Flag : std::uint8_t {
    kHasRotation = 1,
    kHasBlendMode = 2,
    kIsExportable = 4,
    kExportsBitmap = 8,
    kHasAbsoluteFrame = 16,
    kVisiting = 32,  // a walk of the tree is below this group
  };
  class Visit;
  void setFlag(Flag flag, bool on) {
    flags_ = static_cast<std::uint8_t>(on ? flags_ | flag : flags_ & ~flag);
  }
  Rare& rare();

  Identifier identifier_;
  std::string name_;
  Identifier sourceIdentifier_;
  std::optional<Kind> kind_;
  Rect frame_;
  double rotation_ = 0;
  double cornerRadius_;
  double opacity_;
  std::optional<std::vector<Ref<Fill>>> fills_;
  std::optional<std::vector<Ref<Border>>> borders_;
  std::optional<std::vector<Ref<Shadow>>> shadows_;
  WeakRef<Snapshot> snapshot_;
  WeakRef<Layer> parent_;
  std::unique_ptr<Rare> rare_;
  mutable Rect absoluteFrame_;
  BlendMode blendMode_{};
  mutable std::uint8_t flags_ = 0;
};

template <>
struct EnumTraits<Layer::Kind::Key> {
  static constexpr std::string_view typeName = "Key";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Layer::Kind::Key>, 3> cases{{
      {Layer::Kind::Key::shape, "shape", "shape"},
      {Layer::Kind::Key::text, "text", "text"},
      {Layer::Kind::Key::group, "group", "group"},
  }};
};

template <>
struct EnumTraits<Layer::InteractionLevel> {
  static constexpr std::string_view typeName = "InteractionLevel";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Layer::InteractionLevel>, 2> cases{{
      {Layer::InteractionLevel::top, "top", "top"},
      {Layer::InteractionLevel::bottom, "bottom", "bottom"},
  }};
};

}  // namespace orvane
