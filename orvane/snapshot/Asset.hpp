// An exportable image cut from a snapshot's design.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

class Snapshot;

/// A named piece of the design delivered as one or more files. Owns its contents and wires
/// itself into each of them.
class Asset : public std::enable_shared_from_this<Asset> {
 public:
  /// One file of the asset.
  class Content;

  // Imported documents carry foreign identifiers and may come without files yet: the
  // identifier's read (`decodeIdentifier`) reads the contents too.
#define ORVANE_ASSET_FIELDS(F)                                                                 \
  F(identifier, Identifier, Identifier, "_id", custom, never, localId, plain)                  \
  F(displayName, DisplayName, std::string, "displayName", required, always, given, plain)      \
  F(layerName, LayerName, std::string, "layerName", required, always, given, plain)            \
  F(layerIdentifier, LayerIdentifier, std::optional<Identifier>, "layerId", optional,          \
    whenPresent, empty, plain)                                                                 \
  F(isBitmap, IsBitmap, bool, "isBitmap", orEmpty, never, given, plain)                        \
  F(contents, Contents, std::vector<Ref<Content>>, "contents", custom, always, given, observed) \
  F(snapshot, Snapshot, WeakRef<orvane::Snapshot>, none, none, never, none, backRef)
  ORVANE_FIELDS(Asset, ORVANE_ASSET_FIELDS)

 public:
  /// Stores the fields, then points each content back at the new asset.
  static Ref<Asset> make(Fields fields);
  /// Fails without "_id", "displayName", "layerName" or "contents". Under the import-source
  /// flag "_id" is not read and a missing "contents" is an empty list. Then points each content
  /// back at the new asset.
  static Ref<Asset> decode(const Decoder& decoder);
  /// Writes the names, "layerId" when present and "contents"; never "_id" nor "isBitmap".
  void encode(Encoder& encoder) const;

  /// Changes the list of contents in place, then wires it as `setContents` would.
  template <class Fn>
  void editContents(Fn&& fn) {
    std::forward<Fn>(fn)(contents_);
    wireContents();
  }

 private:
  void wireContents();
};

}  // namespace orvane

#include <orvane/snapshot/Asset+Content.hpp>
