// What one version of a screen or component carries: the exported artboard and its contents.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/values/Color.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/snapshot/Grid.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Link.hpp>

namespace orvane {

class Version;

/// Owns its grid, assets, layer tree and links, and wires itself into the grid, every asset and
/// every layer of the tree. Keeps the tree flattened in drawing order.
class Snapshot : public std::enable_shared_from_this<Snapshot> {
 public:
#define ORVANE_SNAPSHOT_SOURCE(C) \
  C(bitmap, "bitmap") C(sketch, "sketch") C(photoshop, "psd") C(figma, "figma") C(xd, "xd")
  /// The design tool or format the artboard came from.
  ORVANE_ENUM(Source, ORVANE_SNAPSHOT_SOURCE)

  /// The keys of the size, which stands in the snapshot's own object.
  struct SizeKeys {
    static constexpr std::string_view width = "width";    ///< a required number
    static constexpr std::string_view height = "height";  ///< a required number
  };

  ///@{

  /// An optional list: no list (the key was absent or null) differs from an empty one.
  using Assets = std::optional<std::vector<Ref<Asset>>>;
  using Layers = std::optional<std::vector<Ref<Layer>>>;
  using Links = std::optional<std::vector<Ref<Link>>>;
  ///@}

  // Imported snapshots carry the source's identifiers, which mean nothing to the service
  // (`localOnImport`). Setting the grid, the assets or the layers points them back at this
  // snapshot; setting the layers also flattens the tree again. The flattened tree is listed by
  // identifier only, so the fields are stated in three parts around it.
#define ORVANE_SNAPSHOT_CODED_FIELDS(F)                                                           \
  F(identifier, Identifier, Identifier, "_id", localOnImport, never, localId, plain)              \
  F(size, Size, orvane::Size, none, payload, custom, given, plain)                                \
  F(url, Url, std::optional<orvane::Url>, "url", optional, whenPresent, given, plain)             \
  F(density, Density, std::optional<orvane::Density>, "density", tolerant, whenPresent, given,    \
    plain)                                                                                        \
  F(source, Source, std::optional<Source>, "source", tolerant, whenPresent, given, plain)         \
  F(componentNames, ComponentNames, std::vector<std::string>, "componentNames", orEmpty, always, \
    empty, plain)                                                                                 \
  F(backgroundColor, BackgroundColor, Ref<Color>, "backgroundColor", optional, whenPresent,      \
    given, plain)                                                                                 \
  F(grid, Grid, Ref<orvane::Grid>, "grid", optional, whenPresent, given, observed)                \
  F(assets, Assets, Assets, "assets", optional, whenPresent, given, observed)                     \
  F(layers, Layers, Layers, "layers", optional, whenPresent, given, observed)                     \
  F(links, Links, Links, "links", optional, whenPresent, given, plain)
#define ORVANE_SNAPSHOT_FLATTENED_FIELD(F) \
  F(flattenedLayers, FlattenedLayers, Layers, none, none, never, none, plain)
#define ORVANE_SNAPSHOT_CLIENT_FIELDS(F)                                                     \
  F(version, Version, WeakRef<orvane::Version>, none, none, never, none, backRef)            \
  F(imagePath, ImagePath, std::optional<std::string>, none, none, never, none, plain)        \
  F(isExportable, IsExportable, bool, none, none, never, none, plain)                        \
  F(exportsBitmap, ExportsBitmap, bool, none, none, never, none, plain)
#define ORVANE_SNAPSHOT_FIELDS(F)                                  \
  ORVANE_SNAPSHOT_CODED_FIELDS(F) ORVANE_SNAPSHOT_FLATTENED_FIELD(F) \
  ORVANE_SNAPSHOT_CLIENT_FIELDS(F)
  ORVANE_FIELDS(Snapshot, ORVANE_SNAPSHOT_FIELDS)

 public:
  /// Stores the fields, then wires itself in as decoding does.
  static Ref<Snapshot> make(Fields fields);
  /// Fails without "_id" (not read under the import-source flag, which gives a fresh local
  /// one), without numeric "width" and "height", or when a member that is present fails; an
  /// unknown "density" or "source" leaves none. Then points the grid, every asset and every
  /// layer of the tree back here and flattens the tree.
  static Ref<Snapshot> decode(const Decoder& decoder);
  /// Writes "width" and "height", "componentNames", and the other coded members when present;
  /// never "_id" nor the flattened tree.
  void encode(Encoder& encoder) const;

  /// Changes the assets in place, then wires them as `setAssets` would.
  template <class Fn>
  void editAssets(Fn&& fn) {
    std::forward<Fn>(fn)(assets_);
    wireAssets();
  }
  /// Changes the top-level layers in place, then wires and flattens them as `setLayers` would.
  template <class Fn>
  void editLayers(Fn&& fn) {
    std::forward<Fn>(fn)(layers_);
    layersChanged();
  }

 private:
  /// What both initializers do once the fields are stored.
  void wire();
  void wireAssets();
  void wireLayers();
  void layersChanged();
};

ORVANE_ENUM_TRAITS(Snapshot::Source, "Source", ORVANE_SNAPSHOT_SOURCE, false)

}  // namespace orvane
