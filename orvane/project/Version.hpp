// One state in the history of a screen or component.
#pragma once

#include <optional>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/people/User.hpp>
#include <orvane/project/Commit.hpp>
#include <orvane/snapshot/Snapshot.hpp>

namespace orvane {

class VersionCollection;

/// Owns its commit and snapshot and points both back at itself; refers weakly to the screen or
/// component that holds it.
class Version : public std::enable_shared_from_this<Version> {
 public:
  Version(Passkey<Version>, Identifier identifier, Ref<Commit> commit, Ref<User> creator,
          Ref<Snapshot> snapshot, Date createDate, std::optional<Url> snapshotURL);

  /// `snapshot` must not be null: every version carries one.
  static Ref<Version> make(Ref<Commit> commit, Ref<User> creator, Ref<Snapshot> snapshot,
                           std::optional<Url> snapshotURL,
                           Identifier identifier = Identifier::local(), Date createDate = now());
  /// Under the import-source flag the document's "_id" is ignored for a fresh local identifier.
  /// A missing "created" is the time of decoding.
  static Ref<Version> decode(const Decoder& decoder);
  /// Writes the commit (when present) and the snapshot, nothing else.
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const Ref<Commit>& commit() const { return commit_; }
  /// Stores the commit and points it back here; the previous commit keeps its back-reference.
  void setCommit(Ref<Commit> value);
  const Ref<User>& creator() const { return creator_; }
  void setCreator(Ref<User> value) { creator_ = std::move(value); }
  const Ref<Snapshot>& snapshot() const { return snapshot_; }
  /// Stores the snapshot and points it back here; the previous one keeps its back-reference.
  void setSnapshot(Ref<Snapshot> value);
  Date createDate() const { return createDate_; }
  void setCreateDate(Date value) { createDate_ = value; }
  const std::optional<Url>& snapshotURL() const { return snapshotURL_; }
  void setSnapshotURL(std::optional<Url> value) { snapshotURL_ = std::move(value); }
  /// The screen or component holding this version; set by it, empty once it is gone.
  Ref<VersionCollection> collection() const { return collection_.lock(); }
  void setCollection(const Ref<VersionCollection>& value) { collection_ = value; }

 private:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view commit = "commit";
    static constexpr std::string_view creator = "creator";
    static constexpr std::string_view snapshot = "snapshot";
    static constexpr std::string_view createDate = "created";
    static constexpr std::string_view snapshotURL = "fullSnapshotUrl";
  };

  void wire();

  Identifier identifier_;
  Ref<Commit> commit_;
  Ref<User> creator_;
  Ref<Snapshot> snapshot_;
  Date createDate_;
  std::optional<Url> snapshotURL_;
  WeakRef<VersionCollection> collection_;
};

}  // namespace orvane
