// What screens and components share: an identity and a history of versions.
#pragma once

#include <cstdint>
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
#include <orvane/project/Version.hpp>

namespace orvane {

class Project;

/// The base of `Screen` and `Component`. Owns its versions and points each back at itself; refers
/// weakly to its project. Where the versions live on the service is for the concrete kinds to
/// say: on a plain collection both paths are fatal stops.
class VersionCollection : public std::enable_shared_from_this<VersionCollection> {
 public:
  /// Set by the caller when the collection takes part in a request; only `index` is written.
  struct RequestProperties {
    std::string identifier;
    std::int64_t index = 0;
    void visitFields(FieldVisitor& v) const;
  };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view description = "description";
    static constexpr std::string_view latestVersion = "latestVersion";
    static constexpr std::string_view sourceIdentifier = "sourceId";
    static constexpr std::string_view tags = "tags";
    static constexpr std::string_view versions = "versions";
    static constexpr std::string_view requestIndex = "index";
  };

 protected:
  /// The members every collection stores and codes.
  struct Fields {
    Identifier identifier;
    std::string name;
    std::string description;
    Ref<Version> latestVersion;
    std::optional<Identifier> sourceIdentifier;
    std::optional<std::vector<std::string>> tags;
    std::optional<std::vector<Ref<Version>>> versions;
  };

 public:
  VersionCollection(Passkey<VersionCollection>, Fields fields)
      : VersionCollection(std::move(fields)) {}
  virtual ~VersionCollection();

  /// `latestVersion` must not be null.
  static Ref<VersionCollection> make(std::string name, Ref<Version> latestVersion,
                                     std::optional<Identifier> sourceIdentifier,
                                     std::optional<std::vector<std::string>> tags,
                                     std::optional<std::vector<Ref<Version>>> versions,
                                     Identifier identifier = Identifier::local(),
                                     std::string description = {});
  /// Under the import-source flag "_id" is not read and the identifier is a fresh local one.
  static Ref<VersionCollection> decode(const Decoder& decoder);
  virtual void encode(Encoder& encoder) const;
  virtual void visitFields(FieldVisitor& v) const;

  /// Where the collection sits below its owner, for the service's resource paths. Computed on
  /// each read; a fatal stop while an owner it needs is missing (always, on a plain collection).
  virtual std::string pathComponent() const;
  /// The relative resource path of the collection's versions. Computed on each read; a fatal
  /// stop while an owner it needs is missing (always, on a plain collection).
  virtual std::string versionsPath() const;
  /// The same paths, or no value where reading them would stop the process.
  virtual std::optional<std::string> pathComponentIfAvailable() const;
  virtual std::optional<std::string> versionsPathIfAvailable() const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  /// Empty when unknown.
  const std::string& description() const { return description_; }
  void setDescription(std::string value) { description_ = std::move(value); }
  const Ref<Version>& latestVersion() const { return latestVersion_; }
  /// Stores the version and points it back here; the previous one keeps its back-reference.
  void setLatestVersion(Ref<Version> value);
  const std::optional<Identifier>& sourceIdentifier() const { return sourceIdentifier_; }
  void setSourceIdentifier(std::optional<Identifier> value) {
    sourceIdentifier_ = std::move(value);
  }
  const std::optional<std::vector<std::string>>& tags() const { return tags_; }
  void setTags(std::optional<std::vector<std::string>> value) { tags_ = std::move(value); }
  const std::optional<std::vector<Ref<Version>>>& versions() const { return versions_; }
  /// Stores the list and points every version back here; removed versions keep theirs.
  void setVersions(std::optional<std::vector<Ref<Version>>> value);
  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editVersions(Fn&& fn) {
    std::forward<Fn>(fn)(versions_);
    wireVersions();
  }
  /// The owning project: set by the project for screens, passed down by the component section
  /// for components. Empty once the project is gone.
  Ref<Project> project() const { return project_.lock(); }
  void setProject(const Ref<Project>& value) { project_ = value; }
  /// Starts at 1; kept for the caller, never coded.
  std::int64_t versionCount() const { return versionCount_; }
  void setVersionCount(std::int64_t value) { versionCount_ = value; }
  const std::optional<RequestProperties>& requestProperties() const { return requestProperties_; }
  void setRequestProperties(std::optional<RequestProperties> value) {
    requestProperties_ = std::move(value);
  }

 protected:
  explicit VersionCollection(Fields fields);

  /// Reads the collection's members from the decoder's object; a subclass hands its own decoder
  /// here, so that they stand beside its members.
  static Fields decodeFields(const Decoder& decoder);
  /// Points the latest version and every listed version back at this collection.
  void wireVersions();
  /// The stored members, for a subclass's listing.
  void visitCollectionFields(FieldVisitor& v) const;
  /// The two paths, each only where it can be read.
  void visitPaths(FieldVisitor& v) const;

 private:
  void wireVersionList();

  Identifier identifier_;
  std::string name_;
  std::string description_;
  Ref<Version> latestVersion_;
  std::optional<Identifier> sourceIdentifier_;
  std::optional<std::vector<std::string>> tags_;
  std::optional<std::vector<Ref<Version>>> versions_;
  WeakRef<Project> project_;
  std::int64_t versionCount_ = 1;
  std::optional<RequestProperties> requestProperties_;
};

/// What the decode-only forms of a screen and a component hold: four optional members, read
/// without the import-source rule and wired to nothing.
class VersionCollectionPartial {
 public:
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<std::string>& description() const { return description_; }
  const Ref<Version>& latestVersion() const { return latestVersion_; }

 protected:
  VersionCollectionPartial() = default;
  void read(const Decoder& decoder);

 private:
  std::optional<Identifier> identifier_;
  std::optional<std::string> name_;
  std::optional<std::string> description_;
  Ref<Version> latestVersion_;
};

}  // namespace orvane
