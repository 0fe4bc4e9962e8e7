#include <orvane/snapshot/Grid.hpp>

#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Grid::Vertical> Grid::Vertical::make(double columnWidth, std::int64_t columnCount,
                                         double gutterWidth, bool hasOutsideGutters) {
  return makeRef<Vertical>(Passkey<Vertical>{}, columnWidth, columnCount, gutterWidth,
                                    hasOutsideGutters);
}

Ref<Grid::Vertical> Grid::Vertical::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto columnWidth = c.decodeDouble(K::columnWidth);
  auto columnCount = c.decodeInt(K::columnCount);
  auto gutterWidth = c.decodeDouble(K::gutterWidth);
  auto hasOutsideGutters = c.decodeBool(K::hasOutsideGutters);
  return make(columnWidth, columnCount, gutterWidth, hasOutsideGutters);
}

void Grid::Vertical::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::columnWidth, columnWidth_);
  c.encode(K::columnCount, columnCount_);
  c.encode(K::gutterWidth, gutterWidth_);
  c.encode(K::hasOutsideGutters, hasOutsideGutters_);
}

void Grid::Vertical::visitFields(FieldVisitor& v) const {
  v.field("columnWidth", columnWidth_);
  v.field("columnCount", columnCount_);
  v.field("gutterWidth", gutterWidth_);
  v.field("hasOutsideGutters", hasOutsideGutters_);
}

Ref<Grid::Horizontal> Grid::Horizontal::make(double rowHeight, double gutterHeight) {
  return makeRef<Horizontal>(Passkey<Horizontal>{}, rowHeight, gutterHeight);
}

Ref<Grid::Horizontal> Grid::Horizontal::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto rowHeight = c.decodeDouble(K::rowHeight);
  auto gutterHeight = c.decodeDouble(K::gutterHeight);
  return make(rowHeight, gutterHeight);
}

void Grid::Horizontal::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::rowHeight, rowHeight_);
  c.encode(K::gutterHeight, gutterHeight_);
}

void Grid::Horizontal::visitFields(FieldVisitor& v) const {
  v.field("rowHeight", rowHeight_);
  v.field("gutterHeight", gutterHeight_);
}

Ref<Grid> Grid::make(double horizontalOffset, Ref<Vertical> vertical, Ref<Horizontal> horizontal) {
  return makeRef<Grid>(Passkey<Grid>{}, horizontalOffset, std::move(vertical),
                                std::move(horizontal));
}

Ref<Grid> Grid::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto horizontalOffset = c.decodeDouble(K::horizontalOffset);
  auto vertical = c.decodeIfPresent<Ref<Vertical>>(K::vertical);
  auto horizontal = c.decodeIfPresent<Ref<Horizontal>>(K::horizontal);
  return make(horizontalOffset, std::move(vertical), std::move(horizontal));
}

void Grid::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::horizontalOffset, horizontalOffset_);
  c.encodeIfPresent(K::vertical, vertical_);
  c.encodeIfPresent(K::horizontal, horizontal_);
}

void Grid::visitFields(FieldVisitor& v) const {
  v.field("horizontalOffset", horizontalOffset_);
  v.field("vertical", vertical_);
  v.field("horizontal", horizontal_);
  v.field("snapshot", snapshot_);
}

}  // namespace orvane
