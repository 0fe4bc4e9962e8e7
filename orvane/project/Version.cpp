#include <orvane/project/Version.hpp>

#include <orvane/project/VersionCollection.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Version::Version(Passkey<Version>, Identifier identifier, Ref<Commit> commit, Ref<User> creator,
                 Ref<Snapshot> snapshot, Date createDate, std::optional<Url> snapshotURL)
    : identifier_(std::move(identifier)),
      commit_(std::move(commit)),
      creator_(std::move(creator)),
      snapshot_(std::move(snapshot)),
      createDate_(createDate),
      snapshotURL_(std::move(snapshotURL)) {}

Ref<Version> Version::make(Ref<Commit> commit, Ref<User> creator, Ref<Snapshot> snapshot,
                           std::optional<Url> snapshotURL, Identifier identifier, Date createDate) {
  auto version = makeRef<Version>(Passkey<Version>{}, std::move(identifier),
                                           std::move(commit), std::move(creator),
                                           std::move(snapshot), createDate, std::move(snapshotURL));
  version->wire();
  return version;
}

Ref<Version> Version::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  // Imported versions carry the source's identifiers, which mean nothing to the service.
  auto identifier =
      decoder.isFromImportSource() ? Identifier::local() : c.decode<Identifier>(K::identifier);
  auto commit = c.decodeIfPresent<Ref<Commit>>(K::commit);
  auto creator = c.decodeIfPresent<Ref<User>>(K::creator);
  auto snapshot = c.decode<Ref<Snapshot>>(K::snapshot);
  auto createDate = c.decodeDateIfPresent(K::createDate);
  auto snapshotURL = c.decodeUrlIfPresent(K::snapshotURL);
  auto version = makeRef<Version>(
      Passkey<Version>{}, std::move(identifier), std::move(commit), std::move(creator),
      std::move(snapshot), createDate ? *createDate : now(), std::move(snapshotURL));
  version->wire();
  return version;
}

void Version::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::commit, commit_);
  c.encode(K::snapshot, snapshot_);
}

void Version::wire() {
  auto self = shared_from_this();
  if (commit_) commit_->setVersion(self);
  if (snapshot_) snapshot_->setVersion(self);
}

void Version::setCommit(Ref<Commit> value) {
  commit_ = std::move(value);
  if (commit_) commit_->setVersion(shared_from_this());
}

void Version::setSnapshot(Ref<Snapshot> value) {
  snapshot_ = std::move(value);
  if (snapshot_) snapshot_->setVersion(shared_from_this());
}

void Version::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("commit", commit_);
  v.field("creator", creator_);
  v.field("snapshot", snapshot_);
  v.field("createDate", createDate_);
  v.field("snapshotURL", snapshotURL_);
  v.field("collection", collection_);
}

}  // namespace orvane
