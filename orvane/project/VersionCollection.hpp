// What screens and components share: an identity and a history of versions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/project/Version.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

class Project;

/// The base of `Screen` and `Component`. Owns its versions and points each back at itself; refers
/// weakly to its project. Where the versions live on the service is for the concrete kinds to
/// say: on a plain collection both paths are fatal stops.
class VersionCollection : public std::enable_shared_from_this<VersionCollection> {
 public:
  /// Set by the caller when the collection takes part in a request; only `index` is written.
  struct RequestProperties {
    std::string identifier;  ///< the caller's own name for the request; never coded
    std::int64_t index = 0;  ///< written as "index" beside the collection's members
    /// Lists both members.
    void visitFields(FieldVisitor& v) const;
  };

  /// Under the import-source flag "_id" is not read and the identifier is a fresh local one.
  /// `description` is empty when unknown, and then not written. `setLatestVersion` and
  /// `setVersions` point the new versions back here; replaced ones keep their back-reference.
  /// `project` is set by the project for screens, passed down by the component section for
  /// components. `versionCount` starts at 1, kept for the caller, never coded.
#define ORVANE_VERSION_COLLECTION_FIELDS(F)                                                     \
  F(identifier, Identifier, Identifier, "_id", localOnImport, never, localId, plain)            \
  F(name, Name, std::string, "name", required, always, given, plain)                            \
  F(description, Description, std::string, "description", orEmpty, custom, empty, plain)        \
  F(latestVersion, LatestVersion, Ref<Version>, "latestVersion", required, always, given,       \
    observed)                                                                                   \
  F(sourceIdentifier, SourceIdentifier, std::optional<Identifier>, "sourceId", optional,        \
    whenPresent, given, plain)                                                                  \
  F(tags, Tags, std::optional<std::vector<std::string>>, "tags", optional, whenPresent, given,  \
    plain)                                                                                      \
  F(versions, Versions, std::optional<std::vector<Ref<Version>>>, "versions", optional,         \
    whenPresent, given, observed)                                                               \
  F(project, Project, WeakRef<orvane::Project>, none, none, never, none, backRef)               \
  F(versionCount, VersionCount, std::int64_t, none, none, never, none, own)                     \
  F(requestProperties, RequestProperties, std::optional<RequestProperties>, none, none, custom, \
    none, plain)

// What the decode-only forms of a screen and a component read: no import-source rule, no
// wiring, and no description (not the empty one) when it is absent.
#define ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS(P)                           \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly)    \
  P(name, Name, std::optional<std::string>, optional, readOnly)               \
  P(description, Description, std::optional<std::string>, optional, readOnly) \
  P(latestVersion, LatestVersion, Ref<Version>, optional, readOnly)

  // Spelled out from the field statements rather than ORVANE_FIELDS, since the listing is
  // virtual (a subclass adds its own fields and the paths) and subclasses make and decode
  // through the same steps.
  /// The document keys of the listed fields (see the Fields table), under their names.
  struct CodingKeys {
    ORVANE_VERSION_COLLECTION_FIELDS(ORVANE_FIELD_KEY)
    /// Where `RequestProperties::index` is written; never read.
    static constexpr std::string_view requestIndex = "index";
  };
  /// What `make` takes, in this order, with its defaults.
  struct Fields {
    ORVANE_VERSION_COLLECTION_FIELDS(ORVANE_FIELD_PARAM)
  };

  /// Public for `makeRef` only: nobody else can make the passkey, so collections are made by
  /// `make` and `decode` alone, inside a `Ref`.
  explicit VersionCollection(Passkey<VersionCollection>) {}
  virtual ~VersionCollection();

  /// `latestVersion` must not be null.
  static Ref<VersionCollection> make(Fields fields);
  /// Fails without "name" or "latestVersion", or without "_id" unless the import-source flag
  /// is set (then the identifier is a fresh local one); a missing "description" is empty.
  /// Then points the latest version and every listed version back here.
  static Ref<VersionCollection> decode(const Decoder& decoder);
  /// Writes "name", "description" unless empty, "latestVersion", "sourceId", "tags" and
  /// "versions" when present, and "index" when there are request properties; never "_id".
  virtual void encode(Encoder& encoder) const;
  /// Lists every field, then the paths that can be read.
  virtual void visitFields(FieldVisitor& v) const;
  /// Writes the document form: every member that decoding reads ("_id" and "description"
  /// included, never "index").
  virtual void encodeDocument(Encoder& encoder) const;
  /// Lists the members that decoding reads, with their shapes, to `visitor`.
  static void describeSchema(SchemaVisitor& visitor);

  /// Where the collection sits below its owner, for the service's resource paths. Computed on
  /// each read; a fatal stop while an owner it needs is missing (always, on a plain collection).
  virtual std::string pathComponent() const;
  /// The relative resource path of the collection's versions. Computed on each read; a fatal
  /// stop while an owner it needs is missing (always, on a plain collection).
  virtual std::string versionsPath() const;
  ///@{

  /// The same paths, or no value where reading them would stop the process.
  virtual std::optional<std::string> pathComponentIfAvailable() const;
  virtual std::optional<std::string> versionsPathIfAvailable() const;
  ///@}

  ORVANE_VERSION_COLLECTION_FIELDS(ORVANE_FIELD_ACCESSORS)
  ///@{

  /// How many versions the caller counts; starts at 1 and is never coded nor updated here.
  std::int64_t versionCount() const {
    return versionCount_;
  }
  void setVersionCount(std::int64_t value) {
    versionCount_ = value;
  }
  ///@}

  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editVersions(Fn&& fn) {
    std::forward<Fn>(fn)(versions_);
    wireVersionList();
  }

 protected:
  VersionCollection() = default;

  /// Reads the collection's fields from `c`, the decoder's object; a subclass hands its own
  /// decoder here, so that they stand beside its members.
  void decodeFields(const Decoder& decoder, const KeyedDecodingContainer& c);
  /// Writes the collection's members into `c`, the encoder's object, beside a subclass's own.
  void encodeFields(KeyedEncodingContainer& c) const;
  /// Writes what `decodeFields` reads into `c`, beside a subclass's own members.
  void documentFields(KeyedEncodingContainer& c) const;
  /// Describes what `decodeFields` reads.
  static void describeFields(SchemaVisitor& v);
  /// Stores what `make` was given, without wiring.
  void storeFields(Fields&& fields);
  /// Points the latest version and every listed version back at this collection.
  void wireVersions();
  /// The stored fields, for a subclass's listing.
  void visitCollectionFields(FieldVisitor& v) const;
  /// The two paths, each only where it can be read.
  void visitPaths(FieldVisitor& v) const;

  ORVANE_VERSION_COLLECTION_FIELDS(ORVANE_FIELD_HOOKS)
  ORVANE_VERSION_COLLECTION_FIELDS(ORVANE_FIELD_MEMBER)
  /// See `versionCount`.
  std::int64_t versionCount_ = 1;

 private:
  void wireVersionList();
};

}  // namespace orvane
