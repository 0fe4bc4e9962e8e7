#include <orvane/snapshot/Asset+Content.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Asset::Content> Asset::Content::make(std::optional<Url> url, std::optional<Density> density,
                                         std::optional<Format> format) {
  return makeRef<Content>(Passkey<Content>{}, std::move(url), density, format);
}

Ref<Asset::Content> Asset::Content::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto url = c.decodeUrlIfPresent(K::url);
  auto density = c.decodeTolerant<Density>(K::density);
  auto format = c.decodeTolerant<Format>(K::format);
  return make(std::move(url), density, format);
}

void Asset::Content::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::url, url_);
  c.encodeIfPresent(K::density, density_);
  c.encodeIfPresent(K::format, format_);
}

void Asset::Content::visitFields(FieldVisitor& v) const {
  v.field("url", url_);
  v.field("density", density_);
  v.field("format", format_);
  v.field("asset", asset_);
  v.field("imagePath", imagePath_);
}

}  // namespace orvane
