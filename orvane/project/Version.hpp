// One state in the history of a screen or component.
#pragma once

#include <optional>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User.hpp>
#include <orvane/project/Commit.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

class VersionCollection;

/// Owns its commit and snapshot and points both back at itself; refers weakly to the screen or
/// component that holds it.
class Version : public std::enable_shared_from_this<Version> {
 public:
  /// Under the import-source flag the document's "_id" is ignored for a fresh local identifier;
  /// a missing "created" is the time of decoding. `setCommit` and `setSnapshot` point the new
  /// value back here; the previous one keeps its back-reference. `collection` is set by the
  /// screen or component holding this version.
#define ORVANE_VERSION_FIELDS(F)                                                              \
  F(identifier, Identifier, Identifier, "_id", localOnImport, never, localId, plain)          \
  F(commit, Commit, Ref<orvane::Commit>, "commit", optional, whenPresent, given, observed)    \
  F(creator, Creator, Ref<User>, "creator", optional, never, given, plain)                    \
  F(snapshot, Snapshot, Ref<orvane::Snapshot>, "snapshot", required, always, given, observed) \
  F(createDate, CreateDate, Date, "created", custom, never, currentDate, plain)               \
  F(snapshotURL, SnapshotURL, std::optional<Url>, "fullSnapshotUrl", optional, never, given,  \
    plain)                                                                                    \
  F(collection, Collection, WeakRef<VersionCollection>, none, none, never, none, backRef)
  ORVANE_FIELDS(Version, ORVANE_VERSION_FIELDS)

 public:
  /// `snapshot` must not be null: every version carries one.
  static Ref<Version> make(Fields fields);
  /// Fails without "snapshot", or without "_id" unless the import-source flag is set; a
  /// missing "created" is the time of decoding. Then points the commit and the snapshot back
  /// here.
  static Ref<Version> decode(const Decoder& decoder);
  /// Writes the commit (when present) and the snapshot, nothing else.
  void encode(Encoder& encoder) const;

 private:
  void wire();
};

}  // namespace orvane
