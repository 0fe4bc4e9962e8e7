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

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/values/BlendMode.hpp>
#include <orvane/values/CanonicalText.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Identifier.hpp>
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
#define ORVANE_LAYER_INTERACTION_LEVEL(C) C(top, "top") C(bottom, "bottom")
  /// Where a group stands relative to its children when a tree is flattened: `bottom` before
  /// them, `top` after them; a group without a level is left out of the flattened list.
  ORVANE_ENUM(InteractionLevel, ORVANE_LAYER_INTERACTION_LEVEL)

  /// What the layer is, with its payload.
  class Kind {
   public:
#define ORVANE_LAYER_KIND_KEY(C) C(shape, "shape") C(text, "text") C(group, "group")
    /// The case, as "type" names it.
    ORVANE_ENUM(Key, ORVANE_LAYER_KIND_KEY)

    /// A run of text and the styles of its character ranges.
    struct Text {
      std::string content;                                 ///< under "content", required
      std::vector<Ref<RangedTextStyle>> rangedTextStyles;  ///< under "textStyles", required
    };
    /// Further layers, owned by this one.
    struct Group {
      std::vector<Ref<Layer>> layers;                    ///< under "layers", required
      std::optional<std::string> componentName;          ///< the component it shows, if any
      std::optional<InteractionLevel> interactionLevel;  ///< tolerant: unknown is none
    };
    /// A shape has no payload: its look is its fills, borders and shadows.
    struct Shape {};

    ///@{

    /// The kind of that case, with its payload. A group's children are wired when the kind is
    /// stored in a layer (`make`, `setKind`), not here.
    static Kind text(std::string content, std::vector<Ref<RangedTextStyle>> rangedTextStyles) {
      return Kind(Text{std::move(content), std::move(rangedTextStyles)});
    }
    static Kind group(std::vector<Ref<Layer>> layers, std::optional<std::string> componentName,
                      std::optional<InteractionLevel> interactionLevel) {
      return Kind(Group{std::move(layers), std::move(componentName), interactionLevel});
    }
    static Kind shape() { return Kind(Shape{}); }
    ///@}

    /// Which case this is.
    Key key() const;
    ///@{

    /// The payload of that case, or null for another case. Changing a group's layers through
    /// the mutable one wires nothing; `Layer::editKind` does.
    const Text* asText() const { return std::get_if<Text>(&value_); }
    const Group* asGroup() const { return std::get_if<Group>(&value_); }
    Group* asGroup() { return std::get_if<Group>(&value_); }
    ///@}

    /// Lists "case", then the payload's members.
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Text, Group, Shape> value) : value_(std::move(value)) {}
    std::variant<Text, Group, Shape> value_;
  };

  /// The keys of the kind's payloads, beside "type".
  struct KindKeys {
    static constexpr std::string_view content = "content";              ///< a text's string
    static constexpr std::string_view componentName = "componentName";  ///< a group's component
    static constexpr std::string_view interactionLevel = "interactionLevel";  ///< a group's level
    static constexpr std::string_view layers = "layers";          ///< a group's children
    static constexpr std::string_view textStyles = "textStyles";  ///< a text's ranged styles
  };

  /// What `flattenedLayersAndComponentNames` gives.
  struct Flattened {
    /// The layers in drawing order, as `flattenedLayers` gives them.
    std::vector<Ref<Layer>> flattenedLayers;
    /// Canonically equivalent spellings of a name count once.
    CanonicalStringSet componentNames;
  };

  ///@{

  /// An optional list: no list (the key was absent or null) differs from an empty one.
  using Fills = std::optional<std::vector<Ref<Fill>>>;
  using Borders = std::optional<std::vector<Ref<Border>>>;
  using Shadows = std::optional<std::vector<Ref<Shadow>>>;
  ///@}

  // Imported layers carry the source's identifiers, which mean nothing to the service
  // (`localOnImport`). Setting the kind gives a group's children this layer as parent and
  // its snapshot; setting the snapshot hands it down the whole subtree, also when it does not
  // change. The `own` fields live in packed storage (below) with accessors written by hand.
#define ORVANE_LAYER_FIELDS(F)                                                                     \
  F(identifier, Identifier, Identifier, "_id", localOnImport, never, localId, plain)               \
  F(name, Name, std::string, "name", required, always, given, plain)                               \
  F(sourceIdentifier, SourceIdentifier, Identifier, "sourceId", required, unlessLocal, given,      \
    plain)                                                                                         \
  F(kind, Kind, std::optional<Kind>, "type", custom, custom, given, observed)                      \
  F(frame, Frame, Rect, "rect", required, always, given, plain)                                    \
  F(rotation, Rotation, std::optional<double>, "rotation", optional, whenPresent, given, own)      \
  F(cornerRadius, CornerRadius, double, "borderRadius", orEmpty, always, given, plain)             \
  F(opacity, Opacity, double, "opacity", required, always, given, plain)                           \
  F(blendMode, BlendMode, std::optional<orvane::BlendMode>, "blendMode", tolerant, whenPresent,    \
    given, own)                                                                                    \
  F(blur, Blur, Ref<orvane::Blur>, "blur", optional, whenPresent, given, own)                      \
  F(isExportable, IsExportable, bool, "exportable", orEmpty, always, given, own)                   \
  F(fills, Fills, Fills, "fills", optional, whenPresent, given, plain)                             \
  F(borders, Borders, Borders, "borders", optional, whenPresent, given, plain)                     \
  F(shadows, Shadows, Shadows, "shadows", optional, whenPresent, given, plain)                     \
  F(snapshot, Snapshot, WeakRef<orvane::Snapshot>, none, none, never, none, observedBackRef)       \
  F(parent, Parent, WeakRef<Layer>, none, none, never, none, backRef)                              \
  F(exportsBitmap, ExportsBitmap, bool, none, none, never, none, own)                              \
  F(sketchFileURL, SketchFileURL, std::optional<Url>, none, none, never, none, own)                \
  F(absoluteFrame, AbsoluteFrame, Rect, none, none, never, none, own)
  ORVANE_FIELDS(Layer, ORVANE_LAYER_FIELDS)

 public:
  /// Stores the fields; a group's children then get the new layer as parent (their snapshot
  /// is not touched).
  static Ref<Layer> make(Fields fields);
  /// Fails without "_id" (not read under the import-source flag, which gives a fresh local
  /// one), "name", "sourceId", "rect" or "opacity", when a known "type" lacks its payload
  /// ("content" and "textStyles", or "layers"), or when an optional member is present but
  /// invalid; an unknown "type" or "blendMode" gives none. A group's children get the new
  /// layer as parent; the snapshot is set when one adopts the tree.
  static Ref<Layer> decode(const Decoder& decoder);
  /// Writes every coded member but "_id"; "sourceId" only when it is not local, "type" with its
  /// payload when there is a kind, the optional ones when present.
  void encode(Encoder& encoder) const;

  /// The layers in drawing order, each with its absolute frame stored on the way.
  static std::vector<Ref<Layer>> flattenedLayers(const std::vector<Ref<Layer>>& layers,
                                                 Point origin = {});
  /// The same, with the component names of every group at any depth.
  static Flattened flattenedLayersAndComponentNames(const std::vector<Ref<Layer>>& layers,
                                                    Point origin = {});

  /// Changes the kind in place (a group's children, say), then wires it as an assignment would.
  template <class Fn>
  void editKind(Fn&& fn) {
    std::forward<Fn>(fn)(kind_);
    kindChanged();
  }
  ///@{

  /// The fields kept in packed storage (see the Fields table); each accessor touches only its
  /// own field.
  std::optional<double> rotation() const {
    return (flags_ & kHasRotation) ? std::optional<double>(rotation_) : std::nullopt;
  }
  void setRotation(std::optional<double> value) {
    rotation_ = value.value_or(0);
    setFlag(kHasRotation, value.has_value());
  }
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
  bool exportsBitmap() const { return flags_ & kExportsBitmap; }
  void setExportsBitmap(bool value) { setFlag(kExportsBitmap, value); }
  const std::optional<Url>& sketchFileURL() const;
  void setSketchFileURL(std::optional<Url> value);
  ///@}

  /// The frame in the snapshot's coordinates. Computed through the parents on first read and
  /// kept from then on, so a later move of an ancestor is not seen until it is assigned again.
  /// A layer that is its own ancestor (through `setParent`) stops the process.
  Rect absoluteFrame() const;
  /// Stores the frame that reads return from now on; flattening sets it on every layer.
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

  double rotation_ = 0;
  std::unique_ptr<Rare> rare_;
  mutable Rect absoluteFrame_;
  BlendMode blendMode_{};
  mutable std::uint8_t flags_ = 0;
};

ORVANE_ENUM_TRAITS(Layer::Kind::Key, "Key", ORVANE_LAYER_KIND_KEY, false)
ORVANE_ENUM_TRAITS(Layer::InteractionLevel, "InteractionLevel", ORVANE_LAYER_INTERACTION_LEVEL,
                   false)

}  // namespace orvane
