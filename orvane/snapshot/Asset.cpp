#include <orvane/snapshot/Asset.hpp>

#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Asset> Asset::make(std::string displayName, std::string layerName, bool isBitmap,
                       std::vector<Ref<Content>> contents, Identifier identifier,
                       std::optional<Identifier> layerIdentifier) {
  auto asset = makeRef<Asset>(Passkey<Asset>{}, std::move(identifier),
                                       std::move(displayName), std::move(layerName),
                                       std::move(layerIdentifier), isBitmap, std::move(contents));
  asset->wireContents();
  return asset;
}

Ref<Asset> Asset::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  Identifier identifier;
  std::vector<Ref<Content>> contents;
  // Imported documents carry foreign identifiers and may come without files yet.
  if (decoder.isFromImportSource()) {
    identifier = Identifier::local();
    if (auto read = c.decodeIfPresent<std::vector<Ref<Content>>>(K::contents))
      contents = std::move(*read);
  } else {
    identifier = c.decode<Identifier>(K::identifier);
    contents = c.decode<std::vector<Ref<Content>>>(K::contents);
  }
  auto displayName = c.decodeString(K::displayName);
  auto layerName = c.decodeString(K::layerName);
  auto layerIdentifier = c.decodeIfPresent<Identifier>(K::layerIdentifier);
  auto isBitmap = c.decodeBoolIfPresent(K::isBitmap).value_or(false);
  auto asset = makeRef<Asset>(Passkey<Asset>{}, std::move(identifier),
                                       std::move(displayName), std::move(layerName),
                                       std::move(layerIdentifier), isBitmap, std::move(contents));
  asset->wireContents();
  return asset;
}

void Asset::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::displayName, displayName_);
  c.encode(K::layerName, layerName_);
  c.encodeIfPresent(K::layerIdentifier, layerIdentifier_);
  c.encode(K::contents, contents_);
}

void Asset::setContents(std::vector<Ref<Content>> value) {
  contents_ = std::move(value);
  wireContents();
}

void Asset::wireContents() {
  auto self = shared_from_this();
  for (const auto& content : contents_) content->setAsset(self);
}

void Asset::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("displayName", displayName_);
  v.field("layerName", layerName_);
  v.field("layerIdentifier", layerIdentifier_);
  v.field("isBitmap", isBitmap_);
  v.field("contents", contents_);
  v.field("snapshot", snapshot_);
}

}  // namespace orvane
