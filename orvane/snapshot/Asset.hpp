// An exportable image cut from a snapshot's design.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

class Snapshot;

/// A named piece of the design delivered as one or more files. Owns its contents and wires
/// itself into each of them.
class Asset : public std::enable_shared_from_this<Asset> {
 public:
  /// One file of the asset.
  class Content;

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view displayName = "displayName";
    static constexpr std::string_view layerName = "layerName";
    static constexpr std::string_view layerIdentifier = "layerId";
    static constexpr std::string_view isBitmap = "isBitmap";
    static constexpr std::string_view contents = "contents";
  };

  Asset(Passkey<Asset>, Identifier identifier, std::string displayName, std::string layerName,
        std::optional<Identifier> layerIdentifier, bool isBitmap,
        std::vector<Ref<Content>> contents)
      : identifier_(std::move(identifier)),
        displayName_(std::move(displayName)),
        layerName_(std::move(layerName)),
        layerIdentifier_(std::move(layerIdentifier)),
        isBitmap_(isBitmap),
        contents_(std::move(contents)) {}

  static Ref<Asset> make(std::string displayName, std::string layerName, bool isBitmap,
                         std::vector<Ref<Content>> contents,
                         Identifier identifier = Identifier::local(),
                         std::optional<Identifier> layerIdentifier = std::nullopt);
  static Ref<Asset> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& displayName() const { return displayName_; }
  void setDisplayName(std::string value) { displayName_ = std::move(value); }
  const std::string& layerName() const { return layerName_; }
  void setLayerName(std::string value) { layerName_ = std::move(value); }
  const std::optional<Identifier>& layerIdentifier() const { return layerIdentifier_; }
  void setLayerIdentifier(std::optional<Identifier> value) { layerIdentifier_ = std::move(value); }
  bool isBitmap() const { return isBitmap_; }
  void setIsBitmap(bool value) { isBitmap_ = value; }
  const std::vector<Ref<Content>>& contents() const { return contents_; }
  /// Stores the list and points each of its contents back at this asset.
  void setContents(std::vector<Ref<Content>> value);
  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editContents(Fn&& fn) {
    std::forward<Fn>(fn)(contents_);
    wireContents();
  }
  Ref<Snapshot> snapshot() const { return snapshot_.lock(); }
  void setSnapshot(const Ref<Snapshot>& value) { snapshot_ = value; }

 private:
  void wireContents();

  Identifier identifier_;
  std::string displayName_;
  std::string layerName_;
  std::optional<Identifier> layerIdentifier_;
  bool isBitmap_;
  std::vector<Ref<Content>> contents_;
  WeakRef<Snapshot> snapshot_;
};

}  // namespace orvane

#include <orvane/snapshot/Asset+Content.hpp>
