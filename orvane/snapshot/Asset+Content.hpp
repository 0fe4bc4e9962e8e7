// One file of an asset, at one density and in one format.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/snapshot/Asset.hpp>

namespace orvane {

class Asset::Content {
 public:
  enum class Format { png, jpg, svg, pdf };

  struct CodingKeys {
    static constexpr std::string_view url = "url";
    static constexpr std::string_view density = "density";
    static constexpr std::string_view format = "format";
  };

  Content(Passkey<Content>, std::optional<Url> url, std::optional<Density> density,
          std::optional<Format> format)
      : url_(std::move(url)), density_(density), format_(format) {}

  static Ref<Content> make(std::optional<Url> url, std::optional<Density> density,
                           std::optional<Format> format);
  static Ref<Content> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const std::optional<Url>& url() const { return url_; }
  void setUrl(std::optional<Url> value) { url_ = std::move(value); }
  std::optional<Density> density() const { return density_; }
  void setDensity(std::optional<Density> value) { density_ = value; }
  std::optional<Format> format() const { return format_; }
  void setFormat(std::optional<Format> value) { format_ = value; }
  Ref<Asset> asset() const { return asset_.lock(); }
  void setAsset(const Ref<Asset>& value) { asset_ = value; }
  const std::optional<std::string>& imagePath() const { return imagePath_; }
  void setImagePath(std::optional<std::string> value) { imagePath_ = std::move(value); }

 private:
  std::optional<Url> url_;
  std::optional<Density> density_;
  std::optional<Format> format_;
  WeakRef<Asset> asset_;
  std::optional<std::string> imagePath_;
};

template <>
struct EnumTraits<Asset::Content::Format> {
  static constexpr std::string_view typeName = "Format";
  static constexpr bool hasAllCases = true;
  static constexpr std::array<EnumCase<Asset::Content::Format>, 4> cases{{
      {Asset::Content::Format::png, "png", "png"},
      {Asset::Content::Format::jpg, "jpg", "jpg"},
      {Asset::Content::Format::svg, "svg", "svg"},
      {Asset::Content::Format::pdf, "pdf", "pdf"},
  }};
};

}  // namespace orvane
