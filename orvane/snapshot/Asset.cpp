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

void Asset::documentIdentifier(KeyedEncodingContainer& c) const {
  c.encode(CodingKeys::identifier, identifier_);
}

void Asset::documentContents(KeyedEncodingContainer& c) const {
  c.encode(CodingKeys::contents, contents_);
}

void Asset::describeIdentifier(SchemaVisitor& v) {
  v.member({.key = CodingKeys::identifier,
            .read = SchemaRead::required,
            .field = "identifier",
            .remark = kLocalOnImportRemark},
           Schema<Identifier>::shape);
}

void Asset::describeContents(SchemaVisitor& v) {
  v.member({.key = CodingKeys::contents,
            .read = SchemaRead::required,
            .field = "contents",
            .remark = "A document from an import source may leave it out (an empty list)."},
           Schema<std::vector<Ref<Content>>>::shape);
}

void Asset::setContents(std::vector<Ref<Content>> value) {
  contents_ = std::move(value);
  wireContents();
}

void Asset::wireContents() {
  auto self = shared_from_this();
  for (const auto& content : contents_) content->setAsset(self);
}

}  // namespace orvane
