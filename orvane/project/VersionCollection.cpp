#include <orvane/project/VersionCollection.hpp>

#include <orvane/internal/FatalError.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Project.hpp>

namespace orvane {

namespace {
constexpr std::string_view kSourceFile = "Sources/VersionCollection";
}  // namespace

VersionCollection::~VersionCollection() = default;

ORVANE_FIELDS_CODING_DEFINE(VersionCollection, ORVANE_VERSION_COLLECTION_FIELDS)
ORVANE_RECORD_CODING_DEFINE(VersionCollection, wireVersions)

void VersionCollection::encodeDescription(KeyedEncodingContainer& c) const {
  if (!description_.empty()) c.encode(CodingKeys::description, description_);
}

void VersionCollection::encodeRequestProperties(KeyedEncodingContainer& c) const {
  if (requestProperties_) c.encode(CodingKeys::requestIndex, requestProperties_->index);
}

std::string VersionCollection::pathComponent() const {
  fatalError("Subclasses must implement `pathComponent`", kSourceFile, 52);
}

std::string VersionCollection::versionsPath() const {
  fatalError("Subclasses must implement `versionsPath`", kSourceFile, 56);
}

std::optional<std::string> VersionCollection::pathComponentIfAvailable() const {
  return std::nullopt;
}

std::optional<std::string> VersionCollection::versionsPathIfAvailable() const {
  return std::nullopt;
}

void VersionCollection::setLatestVersion(Ref<Version> value) {
  latestVersion_ = std::move(value);
  if (latestVersion_) latestVersion_->setCollection(shared_from_this());
}

void VersionCollection::setVersions(std::optional<std::vector<Ref<Version>>> value) {
  versions_ = std::move(value);
  wireVersionList();
}

void VersionCollection::wireVersions() {
  if (latestVersion_) latestVersion_->setCollection(shared_from_this());
  wireVersionList();
}

void VersionCollection::wireVersionList() {
  if (!versions_) return;
  auto self = shared_from_this();
  for (const auto& version : *versions_) {
    if (version) version->setCollection(self);
  }
}

void VersionCollection::visitFields(FieldVisitor& v) const {
  visitCollectionFields(v);
  visitPaths(v);
}

void VersionCollection::visitCollectionFields(FieldVisitor& visitor) const {
  ORVANE_VERSION_COLLECTION_FIELDS(ORVANE_FIELD_VISIT)
}

void VersionCollection::visitPaths(FieldVisitor& v) const {
  if (auto path = pathComponentIfAvailable()) v.field("pathComponent", *path);
  if (auto path = versionsPathIfAvailable()) v.field("versionsPath", *path);
}

void VersionCollection::RequestProperties::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier);
  v.field("index", index);
}

}  // namespace orvane
