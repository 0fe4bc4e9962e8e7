#include <orvane/snapshot/Asset+Content.hpp>
#include <orvane/snapshot/Asset.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/snapshot/Snapshot.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Asset, ORVANE_ASSET_FIELDS, wireContents)

void Asset::decodeIdentifier(const Decoder& decoder, const KeyedDecodingContainer& c) {
  if (decoder.isFromImportSource()) {
    identifier_ = Identifier::local();
    if (auto read = c.decodeIfPresent<std::vector<Ref<Content>>>(CodingKeys::contents))
      contents_ = std::move(*read);
  } else {
    identifier_ = c.decode<Identifier>(CodingKeys::identifier);
    contents_ = c.decode<std::vector<Ref<Content>>>(CodingKeys::contents);
  }
}

// Read with the identifier, whose flag decides whether they are required.
void Asset::decodeContents(const Decoder&, const KeyedDecodingContainer&) {}

void Asset::setContents(std::vector<Ref<Content>> value) {
  contents_ = std::move(value);
  wireContents();
}

void Asset::wireContents() {
  auto self = shared_from_this();
  for (const auto& content : contents_) content->setAsset(self);
}

}  // namespace orvane
