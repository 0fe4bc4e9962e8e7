#include <orvane/project/Version.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/VersionCollection.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Version, ORVANE_VERSION_FIELDS, wire)

void Version::decodeCreateDate(const Decoder&, const KeyedDecodingContainer& c) {
  auto createDate = c.decodeDateIfPresent(CodingKeys::createDate);
  createDate_ = createDate ? *createDate : now();
}

void Version::documentCreateDate(KeyedEncodingContainer& c) const {
  c.encode(CodingKeys::createDate, createDate_);
}

void Version::describeCreateDate(SchemaVisitor& v) {
  v.member({.key = CodingKeys::createDate,
            .read = SchemaRead::orEmpty,
            .field = "createDate",
            .whenAbsent = "the time of decoding"},
           Schema<Date>::shape);
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

}  // namespace orvane
