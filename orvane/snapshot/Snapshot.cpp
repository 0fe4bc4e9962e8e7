#include <orvane/snapshot/Snapshot.hpp>

#include <orvane/project/Version.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Snapshot::Snapshot(Passkey<Snapshot>, Identifier identifier, Size size, std::optional<Url> url,
                   std::optional<Density> density, std::optional<Source> source,
                   std::vector<std::string> componentNames, Ref<Color> backgroundColor,
                   Ref<Grid> grid, std::optional<std::vector<Ref<Asset>>> assets,
                   std::optional<std::vector<Ref<Layer>>> layers,
                   std::optional<std::vector<Ref<Link>>> links)
    : identifier_(std::move(identifier)),
      size_(size),
      url_(std::move(url)),
      density_(density),
      source_(source),
      componentNames_(std::move(componentNames)),
      backgroundColor_(std::move(backgroundColor)),
      grid_(std::move(grid)),
      assets_(std::move(assets)),
      layers_(std::move(layers)),
      links_(std::move(links)) {}

Ref<Snapshot> Snapshot::make(Size size, std::optional<Url> url, std::optional<Density> density,
                             std::optional<Source> source, Ref<Color> backgroundColor,
                             Ref<Grid> grid, std::optional<std::vector<Ref<Asset>>> assets,
                             std::optional<std::vector<Ref<Layer>>> layers,
                             std::optional<std::vector<Ref<Link>>> links, Identifier identifier,
                             std::vector<std::string> componentNames) {
  auto snapshot = makeRef<Snapshot>(
      Passkey<Snapshot>{}, std::move(identifier), size, std::move(url), density, source,
      std::move(componentNames), std::move(backgroundColor), std::move(grid), std::move(assets),
      std::move(layers), std::move(links));
  snapshot->wire();
  return snapshot;
}

Ref<Snapshot> Snapshot::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  // Imported snapshots carry the source's identifiers, which mean nothing to the service.
  auto identifier =
      decoder.isFromImportSource() ? Identifier::local() : c.decode<Identifier>(K::identifier);
  Size size;
  size.width = c.decodeDouble(K::width);
  size.height = c.decodeDouble(K::height);
  auto url = c.decodeUrlIfPresent(K::url);
  auto density = c.decodeTolerant<Density>(K::density);
  auto source = c.decodeTolerant<Source>(K::source);
  auto componentNames = c.decodeIfPresent<std::vector<std::string>>(K::componentNames)
                            .value_or(std::vector<std::string>{});
  auto backgroundColor = c.decodeIfPresent<Ref<Color>>(K::backgroundColor);
  auto grid = c.decodeIfPresent<Ref<Grid>>(K::grid);
  auto assets = c.decodeIfPresent<std::vector<Ref<Asset>>>(K::assets);
  auto layers = c.decodeIfPresent<std::vector<Ref<Layer>>>(K::layers);
  auto links = c.decodeIfPresent<std::vector<Ref<Link>>>(K::links);
  auto snapshot = makeRef<Snapshot>(
      Passkey<Snapshot>{}, std::move(identifier), size, std::move(url), density, source,
      std::move(componentNames), std::move(backgroundColor), std::move(grid), std::move(assets),
      std::move(layers), std::move(links));
  snapshot->wire();
  return snapshot;
}

void Snapshot::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::width, size_.width);
  c.encode(K::height, size_.height);
  c.encodeIfPresent(K::url, url_);
  c.encodeIfPresent(K::density, density_);
  c.encodeIfPresent(K::source, source_);
  c.encode(K::componentNames, componentNames_);
  c.encodeIfPresent(K::backgroundColor, backgroundColor_);
  c.encodeIfPresent(K::grid, grid_);
  c.encodeIfPresent(K::assets, assets_);
  c.encodeIfPresent(K::layers, layers_);
  c.encodeIfPresent(K::links, links_);
}

void Snapshot::wire() {
  if (grid_) grid_->setSnapshot(shared_from_this());
  wireAssets();
  if (layers_) {
    wireLayers();
    flattenedLayers_ = Layer::flattenedLayers(*layers_);
  }
}

void Snapshot::wireAssets() {
  if (!assets_) return;
  auto self = shared_from_this();
  for (const auto& asset : *assets_) asset->setSnapshot(self);
}

void Snapshot::wireLayers() {
  auto self = shared_from_this();
  for (const auto& layer : *layers_) layer->setSnapshot(self);
}

void Snapshot::setGrid(Ref<Grid> value) {
  grid_ = std::move(value);
  if (grid_) grid_->setSnapshot(shared_from_this());
}

void Snapshot::setAssets(std::optional<std::vector<Ref<Asset>>> value) {
  assets_ = std::move(value);
  wireAssets();
}

void Snapshot::setLayers(std::optional<std::vector<Ref<Layer>>> value) {
  layers_ = std::move(value);
  layersChanged();
}

void Snapshot::layersChanged() {
  if (!layers_) {
    flattenedLayers_.reset();
    return;
  }
  wireLayers();
  flattenedLayers_ = Layer::flattenedLayers(*layers_);
}

void Snapshot::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("size", size_);
  v.field("url", url_);
  v.field("density", density_);
  v.field("source", source_);
  v.field("componentNames", componentNames_);
  v.field("backgroundColor", backgroundColor_);
  v.field("grid", grid_);
  v.field("assets", assets_);
  v.field("layers", layers_);
  v.field("links", links_);
  v.key("flattenedLayers");
  if (flattenedLayers_) {
    v.beginArray();
    for (const auto& layer : *flattenedLayers_) describe(v, layer->identifier());
    v.endArray();
  } else {
    v.null();
  }
  v.field("version", version_);
  v.field("imagePath", imagePath_);
  v.field("isExportable", isExportable_);
  v.field("exportsBitmap", exportsBitmap_);
}

}  // namespace orvane
