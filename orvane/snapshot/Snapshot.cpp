#include <orvane/snapshot/Snapshot.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Version.hpp>

namespace orvane {

ORVANE_FIELDS_CODING_DEFINE(Snapshot, ORVANE_SNAPSHOT_FIELDS)
ORVANE_RECORD_CODING_DEFINE(Snapshot, wire)

void Snapshot::visitFields(FieldVisitor& visitor) const {
  ORVANE_SNAPSHOT_CODED_FIELDS(ORVANE_FIELD_VISIT)
  visitor.key("flattenedLayers");
  if (flattenedLayers_) {
    visitor.beginArray();
    for (const auto& layer : *flattenedLayers_) describe(visitor, layer->identifier());
    visitor.endArray();
  } else {
    visitor.null();
  }
  ORVANE_SNAPSHOT_CLIENT_FIELDS(ORVANE_FIELD_VISIT)
}

void Snapshot::decodeSize(const Decoder&, const KeyedDecodingContainer& c) {
  size_.width = c.decodeDouble(SizeKeys::width);
  size_.height = c.decodeDouble(SizeKeys::height);
}

void Snapshot::encodeSize(KeyedEncodingContainer& c) const {
  c.encode(SizeKeys::width, size_.width);
  c.encode(SizeKeys::height, size_.height);
}

void Snapshot::documentSize(KeyedEncodingContainer& c) const {
  encodeSize(c);
}

void Snapshot::describeSize(SchemaVisitor& v) {
  v.member({SizeKeys::width, SchemaRead::required, "size.width"}, Schema<double>::shape);
  v.member({SizeKeys::height, SchemaRead::required, "size.height"}, Schema<double>::shape);
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

}  // namespace orvane
