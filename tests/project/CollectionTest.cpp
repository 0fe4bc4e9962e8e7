// Version collections, screens and components: coding, wiring, the import-source rule and the
// resource paths.
#include <gtest/gtest.h>

#include "Structure.hpp"

using namespace orvane;
using namespace orvane::test;
using Kind = DecodingError::Kind;

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

TEST(VersionCollection, DecodingWiresVersionsAndDots) {
  auto screen = decodeJson<Ref<Screen>>(screenJson());
  EXPECT_EQ(screen->identifier(), Identifier("S1"));
  EXPECT_EQ(screen->description(), "");
  EXPECT_EQ(screen->versionCount(), 1);
  EXPECT_FALSE(screen->requestProperties());
  EXPECT_EQ(screen->latestVersion()->collection(), screen);
  for (const auto& version : *screen->versions()) EXPECT_EQ(version->collection(), screen);
  EXPECT_EQ(screen->dots()->at(0)->screen(), screen);
  EXPECT_EQ(screen->project(), nullptr);

  // Components and plain collections wire their versions the same way.
  auto component = decodeJson<Ref<Component>>(screenJson("C1"));
  EXPECT_EQ(component->latestVersion()->collection(), component);
  EXPECT_EQ(component->versions()->at(1)->collection(), component);
  EXPECT_EQ(component->section(), nullptr);
  auto plain = decodeJson<Ref<VersionCollection>>(screenJson("X"));
  EXPECT_EQ(plain->versions()->at(0)->collection(), plain);

  // The owner gone, nothing dangles.
  auto latest = screen->latestVersion();
  auto dot = screen->dots()->at(0);
  screen.reset();
  EXPECT_EQ(latest->collection(), nullptr);
  EXPECT_EQ(dot->screen(), nullptr);
}

TEST(VersionCollection, ImportSourceReachesNestedVersions) {
  auto imported = decodeJson<Ref<Screen>>(screenJson(), importOptions());
  EXPECT_TRUE(imported->identifier().isLocal());
  EXPECT_TRUE(imported->latestVersion()->identifier().isLocal());
  EXPECT_TRUE(imported->latestVersion()->snapshot()->identifier().isLocal());
  for (const auto& version : *imported->versions()) {
    EXPECT_TRUE(version->identifier().isLocal());
    EXPECT_TRUE(version->snapshot()->identifier().isLocal());
  }
  EXPECT_NE(imported->versions()->at(0)->identifier(), imported->versions()->at(1)->identifier());
  EXPECT_EQ(imported->dots()->at(0)->identifier(), Identifier("d1"));  // dots keep theirs

  auto plain = decodeJson<Ref<Screen>>(screenJson());
  EXPECT_EQ(plain->versions()->at(1)->identifier(), Identifier("V2"));

  // Without "_id" a screen decodes only under the flag; the failure names the screen's path.
  const std::string anonymous =
      R"({"name":"n","latestVersion":{"snapshot":{"width":1,"height":1}}})";
  EXPECT_TRUE(decodeJson<Ref<Component>>(anonymous, importOptions())->identifier().isLocal());
  auto e = decodeError<std::vector<Ref<Screen>>>("[" + screenJson() + "," + anonymous + "]");
  EXPECT_EQ(e.kind(), Kind::keyNotFound);
  EXPECT_EQ(e.key(), "_id");
  EXPECT_EQ(pathOf(e), "[1]");
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

TEST(VersionCollection, AssignmentAndEditsPointBack) {
  auto first = makeVersion("a");
  auto screen = Screen::make({.name = "s",
                              .latestVersion = first,
                              .sourceIdentifier = std::nullopt,
                              .tags = std::nullopt,
                              .versions = std::nullopt,
                              .dots = std::nullopt});
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
  auto moved = Screen::make({.name = "t",
                             .latestVersion = makeVersion("d"),
                             .sourceIdentifier = std::nullopt,
                             .tags = std::nullopt,
                             .versions = std::nullopt,
                             .dots = std::vector<Ref<Dot>>{}});
  moved->editDots([&](auto& dots) { dots->push_back(dot); });
  EXPECT_EQ(dot->screen(), moved);
  screen->setDots(std::nullopt);
  EXPECT_EQ(dot->screen(), moved);
}

TEST(VersionCollectionPartial, WiresNothingAboveTheVersion) {
  auto component = decodeJson<Component::Partial>(collectionJson("C"));
  EXPECT_EQ(component.latestVersion()->collection(), nullptr);
  EXPECT_EQ(component.latestVersion()->snapshot()->version(), component.latestVersion());
}

TEST(VersionCollection, ScreenVersionsPath) {
  auto project = makeProject("P1");
  auto screen = decodeJson<Ref<Screen>>(screenJson("S1"));
  EXPECT_EQ(screen->pathComponent(), "screens");
  EXPECT_FALSE(screen->versionsPathIfAvailable());
  screen->setProject(project);
  EXPECT_EQ(screen->versionsPath(), "v2/projects/P1/screens/S1/versions");
  EXPECT_EQ(screen->versionsPathIfAvailable(), screen->versionsPath());
  project.reset();
  EXPECT_EQ(screen->project(), nullptr);
  EXPECT_FALSE(screen->versionsPathIfAvailable());
}

using VersionCollectionDeathTest = ::testing::Test;

TEST_F(VersionCollectionDeathTest, PathsWithoutOwnersStop) {
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
