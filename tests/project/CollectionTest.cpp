// Version collections, screens and components, their versions and dots: wiring, the import-source
// rule and the resource paths. What they read, write and wire on decoding are corpus cases.
#include <gtest/gtest.h>

#include "Structure.hpp"

using namespace orvane;
using namespace orvane::test;

namespace {

// A screen is made only with its dots, a component only with its identifier and description:
// the collection's own fields alone are refused at compile time.
template <class T>
concept MakesLikeACollection = requires(std::string name, Ref<Version> latest,
                                        std::optional<Identifier> source,
                                        std::optional<std::vector<std::string>> tags,
                                        std::optional<std::vector<Ref<Version>>> versions) {
  T::make({.name = name,
           .latestVersion = latest,
           .sourceIdentifier = source,
           .tags = tags,
           .versions = versions});
};
static_assert(MakesLikeACollection<VersionCollection>);
static_assert(!MakesLikeACollection<Screen>);
static_assert(!MakesLikeACollection<Component>);

const std::string kDot =
    R"({"_id":"d1","name":"d","x":1,"y":2,"color":{"r":0,"g":0,"b":0,"a":1},"comments":[]})";

std::string screenJson(std::string_view id = "S1") {
  return collectionJson(id, R"("versions":[)" + versionJson("V1") + "," + versionJson("V2") +
                                R"(],"dots":[)" + kDot + "]");
}

}  // namespace

// The import flag reaches every version of the list, not only the latest (OwnCoderTest); dots
// keep their own identifiers.
TEST(VersionCollection, ImportSourceReachesEveryVersion) {
  auto imported = decodeJson<Ref<Screen>>(screenJson(), importOptions());
  for (const auto& version : *imported->versions()) {
    EXPECT_TRUE(version->identifier().isLocal());
    EXPECT_TRUE(version->snapshot()->identifier().isLocal());
  }
  EXPECT_NE(imported->versions()->at(0)->identifier(), imported->versions()->at(1)->identifier());
  EXPECT_EQ(imported->dots()->at(0)->identifier(), Identifier("d1"));
}

// What else a collection writes is in the corpus; "index" is written only from request properties.
TEST(VersionCollection, IndexIsWrittenFromTheRequestProperties) {
  auto collection = decodeJson<Ref<VersionCollection>>(
      collectionJson("S", R"("description":"About","sourceId":"src","tags":["a"],"versions":[])"));
  collection->setRequestProperties(VersionCollection::RequestProperties{"req", 3});
  EXPECT_EQ(encodeJson(collection),
            R"({"name":"n-S","description":"About",)"
            R"("latestVersion":{"snapshot":{"width":375,"height":812,"componentNames":[]}},)"
            R"("sourceId":"src","tags":["a"],"versions":[],"index":3})");
}

TEST(VersionCollectionPartial, WiresNothingAboveTheVersion) {
  auto component = decodeJson<Component::Partial>(collectionJson("C"));
  EXPECT_EQ(component.latestVersion()->collection(), nullptr);
  EXPECT_EQ(component.latestVersion()->snapshot()->version(), component.latestVersion());
}

TEST(VersionCollection, AssignmentAndEditsPointBack) {
  auto first = makeVersion("a");
  auto makeScreen = [](Ref<Version> latest, std::optional<std::vector<Ref<Dot>>> dots) {
    return Screen::make({.name = "s",
                         .latestVersion = std::move(latest),
                         .sourceIdentifier = std::nullopt,
                         .tags = std::nullopt,
                         .versions = std::nullopt,
                         .dots = std::move(dots)});
  };
  auto screen = makeScreen(first, std::nullopt);
  EXPECT_TRUE(screen->identifier().isLocal());
  EXPECT_EQ(screen->versionCount(), 1);
  EXPECT_EQ(first->collection(), screen);

  auto second = makeVersion("b");
  screen->setLatestVersion(second);
  EXPECT_EQ(second->collection(), screen);
  EXPECT_EQ(first->collection(), screen);  // the old one keeps its back-reference

  auto other = VersionCollection::make({.identifier = Identifier("O"),
                                        .name = "o",
                                        .description = "desc",
                                        .latestVersion = makeVersion("c"),
                                        .sourceIdentifier = std::nullopt,
                                        .tags = std::nullopt,
                                        .versions = std::vector{first}});
  EXPECT_EQ(first->collection(), other);
  screen->setVersions(std::vector{first});
  EXPECT_EQ(first->collection(), screen);
  other->editVersions([&](auto& versions) { versions->push_back(second); });
  EXPECT_EQ(second->collection(), other);
  EXPECT_EQ(first->collection(), other);  // an edit re-wires the whole list
  screen->setVersions(std::nullopt);
  EXPECT_EQ(first->collection(), other);

  auto dot = decodeJson<Ref<Dot>>(kDot);
  screen->setDots(std::vector{dot});
  EXPECT_EQ(dot->screen(), screen);
  auto moved = makeScreen(makeVersion("d"), std::vector<Ref<Dot>>{});
  moved->editDots([&](auto& dots) { dots->push_back(dot); });
  EXPECT_EQ(dot->screen(), moved);
  screen->setDots(std::nullopt);
  EXPECT_EQ(dot->screen(), moved);
}

TEST(Version, MissingCreationDateIsTheTimeOfDecoding) {
  auto before = now();
  auto version = decodeJson<Ref<Version>>(versionJson("v1", R"("created":null)"));
  auto after = now();
  EXPECT_LE(before, version->createDate());
  EXPECT_LE(version->createDate(), after);
  EXPECT_FALSE(version->commit());
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

TEST(Dot, AssignedAndEditedCommentsPointBack) {
  auto kept = Comment::make({.note = "kept", .author = nullptr, .updateDate = now()});
  EXPECT_TRUE(kept->identifier().isLocal());
  EXPECT_EQ(kept->dot(), nullptr);
  auto makeDot = [](std::vector<Ref<Comment>> comments) {
    return Dot::make({.status = std::nullopt,
                      .name = "d",
                      .creator = nullptr,
                      .x = 0,
                      .y = 0,
                      .color = Color::make({.red = 0, .green = 0, .blue = 0, .alpha = 1}),
                      .comments = std::move(comments)});
  };
  auto dot = makeDot({kept});
  EXPECT_EQ(kept->dot(), dot);

  auto added = Comment::make({.note = "added", .author = nullptr, .updateDate = now()});
  dot->setComments({added});
  EXPECT_EQ(added->dot(), dot);
  EXPECT_EQ(kept->dot(), dot);  // removed, but not cleared

  auto other = makeDot({});
  other->editComments([&](auto& comments) { comments.push_back(added); });
  EXPECT_EQ(added->dot(), other);
}

TEST(VersionCollectionDeathTest, PathsWithoutOwnersStop) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  auto plain = decodeJson<Ref<VersionCollection>>(collectionJson("X"));
  EXPECT_DEATH(
      plain->pathComponent(),
      "Sources/VersionCollection:52: Fatal error: Subclasses must implement `pathComponent`");
  EXPECT_DEATH(
      plain->versionsPath(),
      "Sources/VersionCollection:56: Fatal error: Subclasses must implement `versionsPath`");
  // Wired to a project, a plain collection still has no paths.
  auto project = makeProject();
  plain->setProject(project);
  EXPECT_DEATH(plain->versionsPath(), "Sources/VersionCollection:56: ");

  auto screen = decodeJson<Ref<Screen>>(screenJson());
  EXPECT_DEATH(screen->versionsPath(),
               "Sources/Screen:32: Fatal error: Locating project for screen failed\\.");

  auto component = decodeJson<Ref<Component>>(collectionJson("K"));
  EXPECT_DEATH(component->pathComponent(),
               "Sources/Component:20: Fatal error: Component should have section\\.");
  EXPECT_DEATH(component->versionsPath(),
               "Sources/Component:26: Fatal error: VersionCollection should have project\\.");
  // The project is checked first; with one but no section the section is missed.
  component->setProject(project);
  EXPECT_DEATH(component->versionsPath(),
               "Sources/Component:20: Fatal error: Component should have section\\.");
}
