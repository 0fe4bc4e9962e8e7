#include <orvane/project/VersionCollection.hpp>

#include <orvane/project/Project.hpp>
#include <orvane/internal/MakeRef.hpp>
#include <orvane/internal/FatalError.hpp>

namespace orvane {

namespace {
constexpr std::string_view kSourceFile = "Sources/VersionCollection";
}  // namespace

VersionCollection::VersionCollection(Fields fields)
    : identifier_(std::move(fields.identifier)),
      name_(std::move(fields.name)),
      description_(std::move(fields.description)),
      latestVersion_(std::move(fields.latestVersion)),
      sourceIdentifier_(std::move(fields.sourceIdentifier)),
      tags_(std::move(fields.tags)),
      versions_(std::move(fields.versions)) {}

VersionCollection::~VersionCollection() = default;

Ref<VersionCollection> VersionCollection::make(std::string name, Ref<Version> latestVersion,
                                               std::optional<Identifier> sourceIdentifier,
                                               std::optional<std::vector<std::string>> tags,
                                               std::optional<std::vector<Ref<Version>>> versions,
                                               Identifier identifier, std::string description) {
  auto collection = makeRef<VersionCollection>(
      Passkey<VersionCollection>{},
      Fields{std::move(identifier), std::move(name), std::move(description),
             std::move(latestVersion), std::move(sourceIdentifier), std::move(tags),
             std::move(versions)});
  collection->wireVersions();
  return collection;
}

Ref<VersionCollection> VersionCollection::decode(const Decoder& decoder) {
  auto collection = makeRef<VersionCollection>(Passkey<VersionCollection>{}, decodeFields(decoder));
  collection->wireVersions();
  return collection;
}

VersionCollection::Fields VersionCollection::decodeFields(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  Fields f;
  // Imported collections carry the source's identifiers, which mean nothing to the service.
  f.identifier =
      decoder.isFromImportSource() ? Identifier::local() : c.decode<Identifier>(K::identifier);
  f.name = c.decodeString(K::name);
  f.description = c.decodeStringIfPresent(K::description).value_or(std::string());
  f.latestVersion = c.decode<Ref<Version>>(K::latestVersion);
  f.sourceIdentifier = c.decodeIfPresent<Identifier>(K::sourceIdentifier);
  f.tags = c.decodeIfPresent<std::vector<std::string>>(K::tags);
  f.versions = c.decodeIfPresent<std::vector<Ref<Version>>>(K::versions);
  return f;
}

void VersionCollection::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::name, name_);
  if (!description_.empty()) c.encode(K::description, description_);
  c.encode(K::latestVersion, latestVersion_);
  c.encodeIfPresent(K::sourceIdentifier, sourceIdentifier_);
  c.encodeIfPresent(K::tags, tags_);
  c.encodeIfPresent(K::versions, versions_);
  if (requestProperties_) c.encode(K::requestIndex, requestProperties_->index);
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

void VersionCollection::visitCollectionFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("description", description_);
  v.field("latestVersion", latestVersion_);
  v.field("sourceIdentifier", sourceIdentifier_);
  v.field("tags", tags_);
  v.field("versions", versions_);
  v.field("project", project_);
  v.field("versionCount", versionCount_);
  v.field("requestProperties", requestProperties_);
}

void VersionCollection::visitPaths(FieldVisitor& v) const {
  if (auto path = pathComponentIfAvailable()) v.field("pathComponent", *path);
  if (auto path = versionsPathIfAvailable()) v.field("versionsPath", *path);
}

void VersionCollection::RequestProperties::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier);
  v.field("index", index);
}

void VersionCollectionPartial::read(const Decoder& decoder) {
  using K = VersionCollection::CodingKeys;
  auto c = decoder.container();
  identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  name_ = c.decodeStringIfPresent(K::name);
  description_ = c.decodeStringIfPresent(K::description);
  latestVersion_ = c.decodeIfPresent<Ref<Version>>(K::latestVersion);
}

void VersionCollectionPartial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("description", description_);
  v.field("latestVersion", latestVersion_);
}

}  // namespace orvane
