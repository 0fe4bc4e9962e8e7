#include <orvane/snapshot/Asset+Content.hpp>

#include <orvane/snapshot/Asset.hpp>

namespace orvane {

Ref<AssetContent> AssetContent::make(std::optional<Url> url, std::optional<Density> density,
                                     std::optional<Format> format) {
  return std::make_shared<AssetContent>(Passkey<AssetContent>{}, std::move(url), density, format);
}

Ref<AssetContent> AssetContent::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto url = c.decodeUrlIfPresent(K::url);
  auto density = c.decodeTolerant<Density>(K::density);
  auto format = c.decodeTolerant<Format>(K::format);
  return make(std::move(url), density, format);
}

void AssetContent::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::url, url_);
  c.encodeIfPresent(K::density, density_);
  c.encodeIfPresent(K::format, format_);
}

void AssetContent::visitFields(FieldVisitor& v) const {
  v.field("url", url_);
  v.field("density", density_);
  v.field("format", format_);
  v.field("asset", asset_);
  v.field("imagePath", imagePath_);
}

}  // namespace orvane
