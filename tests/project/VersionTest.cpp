// Versions and their commits: what they read and write, and how they point back.
#include <gtest/gtest.h>

#include "Structure.hpp"

using namespace orvane;
using namespace orvane::test;
using Kind = DecodingError::Kind;

TEST(Version, DecodingWiresCommitAndSnapshotButNoCollection) {
  auto version = decodeJson<Ref<Version>>(versionJson(
      "v1", R"("commit":{"message":"m"},"creator":{"_id":"u","email":"e"},)"
            R"("fullSnapshotUrl":"https://cdn.example/v1.png","created":"2024-03-01T10:00:00Z")"));
  EXPECT_EQ(version->identifier(), Identifier("v1"));
  EXPECT_EQ(version->commit()->version(), version);
  EXPECT_EQ(version->snapshot()->version(), version);
  EXPECT_EQ(version->creator()->email(), "e");
  EXPECT_EQ(version->snapshotURL()->text(), "https://cdn.example/v1.png");
  EXPECT_EQ(formatDateMillis(version->createDate()), "2024-03-01T10:00:00.000Z");
  EXPECT_EQ(version->collection(), nullptr);

  // Once the version is gone its commit and snapshot no longer point anywhere.
  auto commit = version->commit();
  auto snapshot = version->snapshot();
  version.reset();
  EXPECT_EQ(commit->version(), nullptr);
  EXPECT_EQ(snapshot->version(), nullptr);
}

TEST(Version, MissingCreationDateIsTheTimeOfDecoding) {
  auto before = now();
  auto version = decodeJson<Ref<Version>>(versionJson("v1", R"("created":null)"));
  auto after = now();
  EXPECT_LE(before, version->createDate());
  EXPECT_LE(version->createDate(), after);
  EXPECT_FALSE(version->commit());
}

TEST(Version, ImportSourceReplacesTheIdentifier) {
  auto imported = decodeJson<Ref<Version>>(versionJson("v1"), importOptions());
  EXPECT_TRUE(imported->identifier().isLocal());
  EXPECT_TRUE(imported->snapshot()->identifier().isLocal());  // the snapshot sees the flag too

  const std::string withoutId = R"({"snapshot":{"width":1,"height":1}})";
  EXPECT_TRUE(decodeJson<Ref<Version>>(withoutId, importOptions())->identifier().isLocal());
  auto e = decodeError<Ref<Version>>(withoutId, importOptions(false));
  EXPECT_EQ(e.kind(), Kind::keyNotFound);
  EXPECT_EQ(e.key(), "_id");
}

TEST(Version, AssignmentPointsTheNewCommitAndSnapshotBack) {
  auto commit = Commit::make({.author = nullptr, .message = "first", .color = nullptr});
  auto snapshot = decodeJson<Ref<Snapshot>>(R"({"_id":"s1","width":1,"height":1})");
  auto version = Version::make(
      {.commit = commit, .creator = nullptr, .snapshot = snapshot, .snapshotURL = std::nullopt});
  EXPECT_TRUE(version->identifier().isLocal());
  EXPECT_EQ(commit->version(), version);
  EXPECT_EQ(snapshot->version(), version);

  auto other = decodeJson<Ref<Version>>(versionJson("v2"));
  auto replacement = other->snapshot();
  version->setSnapshot(replacement);
  EXPECT_EQ(replacement->version(), version);
  EXPECT_EQ(snapshot->version(), version);  // the old one is not cleared

  auto second = Commit::make({.author = nullptr, .message = "second", .color = nullptr});
  version->setCommit(second);
  EXPECT_EQ(second->version(), version);
  version->setCommit(nullptr);  // no commit: nothing to wire, nothing cleared
  EXPECT_EQ(second->version(), version);
}
