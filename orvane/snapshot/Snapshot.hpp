// What one version of a screen or component carries: the exported artboard and its contents.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/values/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Geometry.hpp>
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
  /// The kind of design source the artboard came from.
  enum class Source { bitmap, sketch, photoshop, figma, xd };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view width = "width";
    static constexpr std::string_view height = "height";
    static constexpr std::string_view url = "url";
    static constexpr std::string_view density = "density";
    static constexpr std::string_view source = "source";
    static constexpr std::string_view componentNames = "componentNames";
    static constexpr std::string_view backgroundColor = "backgroundColor";
    static constexpr std::string_view grid = "grid";
    static constexpr std::string_view assets = "assets";
    static constexpr std::string_view layers = "layers";
    static constexpr std::string_view links = "links";
  };

  Snapshot(Passkey<Snapshot>, Identifier identifier, Size size, std::optional<Url> url,
           std::optional<Density> density, std::optional<Source> source,
           std::vector<std::string> componentNames, Ref<Color> backgroundColor, Ref<Grid> grid,
           std::optional<std::vector<Ref<Asset>>> assets,
           std::optional<std::vector<Ref<Layer>>> layers,
           std::optional<std::vector<Ref<Link>>> links);

  static Ref<Snapshot> make(Size size, std::optional<Url> url, std::optional<Density> density,
                            std::optional<Source> source, Ref<Color> backgroundColor,
                            Ref<Grid> grid, std::optional<std::vector<Ref<Asset>>> assets,
                            std::optional<std::vector<Ref<Layer>>> layers,
                            std::optional<std::vector<Ref<Link>>> links,
                            Identifier identifier = Identifier::local(),
                            std::vector<std::string> componentNames = {});
  static Ref<Snapshot> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const Size& size() const { return size_; }
  void setSize(Size value) { size_ = value; }
  const std::optional<Url>& url() const { return url_; }
  void setUrl(std::optional<Url> value) { url_ = std::move(value); }
  std::optional<Density> density() const { return density_; }
  void setDensity(std::optional<Density> value) { density_ = value; }
  std::optional<Source> source() const { return source_; }
  void setSource(std::optional<Source> value) { source_ = value; }
  const std::vector<std::string>& componentNames() const { return componentNames_; }
  void setComponentNames(std::vector<std::string> value) { componentNames_ = std::move(value); }
  const Ref<Color>& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(Ref<Color> value) { backgroundColor_ = std::move(value); }

  const Ref<Grid>& grid() const { return grid_; }
  /// Stores the grid and points it back at this snapshot.
  void setGrid(Ref<Grid> value);
  const std::optional<std::vector<Ref<Asset>>>& assets() const { return assets_; }
  /// Stores the list and points each asset back at this snapshot.
  void setAssets(std::optional<std::vector<Ref<Asset>>> value);
  template <class Fn>
  void editAssets(Fn&& fn) {
    std::forward<Fn>(fn)(assets_);
    wireAssets();
  }
  const std::optional<std::vector<Ref<Layer>>>& layers() const { return layers_; }
  /// Stores the top-level layers, hands this snapshot down the tree and flattens it again.
  void setLayers(std::optional<std::vector<Ref<Layer>>> value);
  template <class Fn>
  void editLayers(Fn&& fn) {
    std::forward<Fn>(fn)(layers_);
    layersChanged();
  }
  const std::optional<std::vector<Ref<Link>>>& links() const { return links_; }
  void setLinks(std::optional<std::vector<Ref<Link>>> value) { links_ = std::move(value); }

  /// The tree in drawing order, as of the last assignment of `layers`.
  const std::optional<std::vector<Ref<Layer>>>& flattenedLayers() const { return flattenedLayers_; }
  void setFlattenedLayers(std::optional<std::vector<Ref<Layer>>> value) {
    flattenedLayers_ = std::move(value);
  }
  Ref<Version> version() const { return version_.lock(); }
  void setVersion(const Ref<Version>& value) { version_ = value; }
  const std::optional<std::string>& imagePath() const { return imagePath_; }
  void setImagePath(std::optional<std::string> value) { imagePath_ = std::move(value); }
  bool isExportable() const { return isExportable_; }
  void setIsExportable(bool value) { isExportable_ = value; }
  bool exportsBitmap() const { return exportsBitmap_; }
  void setExportsBitmap(bool value) { exportsBitmap_ = value; }

 private:
  /// What both initializers do once the fields are stored.
  void wire();
  void wireAssets();
  void wireLayers();
  void layersChanged();

  Identifier identifier_;
  Size size_;
  std::optional<Url> url_;
  std::optional<Density> density_;
  std::optional<Source> source_;
  std::vector<std::string> componentNames_;
  Ref<Color> backgroundColor_;
  Ref<Grid> grid_;
  std::optional<std::vector<Ref<Asset>>> assets_;
  std::optional<std::vector<Ref<Layer>>> layers_;
  std::optional<std::vector<Ref<Link>>> links_;
  std::optional<std::vector<Ref<Layer>>> flattenedLayers_;
  WeakRef<Version> version_;
  std::optional<std::string> imagePath_;
  bool isExportable_ = false;
  bool exportsBitmap_ = false;
};

template <>
struct EnumTraits<Snapshot::Source> {
  static constexpr std::string_view typeName = "Source";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Snapshot::Source>, 5> cases{{
      {Snapshot::Source::bitmap, "bitmap", "bitmap"},
      {Snapshot::Source::sketch, "sketch", "sketch"},
      {Snapshot::Source::photoshop, "psd", "photoshop"},
      {Snapshot::Source::figma, "figma", "figma"},
      {Snapshot::Source::xd, "xd", "xd"},
  }};
};

}  // namespace orvane
