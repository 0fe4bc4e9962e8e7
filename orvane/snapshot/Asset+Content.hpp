// One file of an asset, at one density and in one format.
#pragma once

#include <optional>
#include <string>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// One file of an asset: where it is, at what density, in what format. Refers weakly to its
/// asset, which sets that when it takes the content.
class Asset::Content {
 public:
#define ORVANE_ASSET_CONTENT_FORMAT(C) C(png, "png") C(jpg, "jpg") C(svg, "svg") C(pdf, "pdf")
  /// The file's format.
  ORVANE_ENUM(Format, ORVANE_ASSET_CONTENT_FORMAT)

#define ORVANE_ASSET_CONTENT_FIELDS(F)                                                         \
  F(url, Url, std::optional<orvane::Url>, "url", optional, whenPresent, given, plain)          \
  F(density, Density, std::optional<orvane::Density>, "density", tolerant, whenPresent, given, \
    plain)                                                                                     \
  F(format, Format, std::optional<Format>, "format", tolerant, whenPresent, given, plain)      \
  F(asset, Asset, WeakRef<orvane::Asset>, none, none, never, none, backRef)                    \
  F(imagePath, ImagePath, std::optional<std::string>, none, none, never, none, plain)
  ORVANE_FIELDS(Content, ORVANE_ASSET_CONTENT_FIELDS)

 public:
  /// Takes the address, density and format, each of which may be empty; `asset` starts empty.
  static Ref<Content> make(Fields fields);
  /// Every member may be missing: an empty object is a content with nothing known. A "url"
  /// that is no valid address fails; an unknown "density" or "format" gives none.
  static Ref<Content> decode(const Decoder& decoder);
  /// Writes "url", "density" and "format", each when present.
  void encode(Encoder& encoder) const;
};

ORVANE_ENUM_TRAITS(Asset::Content::Format, "Format", ORVANE_ASSET_CONTENT_FORMAT, true)

}  // namespace orvane
