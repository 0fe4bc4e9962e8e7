// Sections and the component tree: coding, parents, the project passed down, and the paths
// built from it.
#include <gtest/gtest.h>

#include "Structure.hpp"

using namespace orvane;
using namespace orvane::test;

namespace {

// A > B > C, with the component K in C and the component J in A.
const std::string kTree = R"({"_id":"A","name":"a","components":[)" + collectionJson("J") +
                          R"(],"componentSections":[{"_id":"B","name":"b","componentSections":[)"
                          R"({"_id":"C","name":"c","description":"deep","components":[)" +
                          collectionJson("K") + "]}]}]}";

struct Tree {
  Ref<ComponentSection> a, b, c;
  Ref<Component> j, k;
};

Tree decodeTree() {
  Tree t;
  t.a = decodeJson<Ref<ComponentSection>>(kTree);
  t.b = t.a->sections()->at(0);
  t.c = t.b->sections()->at(0);
  t.j = t.a->components()->at(0);
  t.k = t.c->components()->at(0);
  return t;
}

// Fatal (to the test) on a mismatch, so that no path is read from a half-wired tree.
void expectProject(const Tree& t, const Ref<Project>& project) {
  for (const auto& p : {t.a->project(), t.b->project(), t.c->project(), t.j->project(),
                        t.k->project()})
    ASSERT_EQ(p, project);
}

}  // namespace

TEST(ComponentSection, ProjectPassedDownAndClearedAgain) {
  auto t = decodeTree();
  auto project = makeProject("P");
  t.a->setProject(project);
  ASSERT_NO_FATAL_FAILURE(expectProject(t, project));
  EXPECT_EQ(t.k->versionsPath(), "projects/P/componentSections/A/B/C/components/K/versions");
  EXPECT_EQ(t.j->versionsPath(), "projects/P/componentSections/A/components/J/versions");

  t.a->setProject(nullptr);
  expectProject(t, nullptr);
  EXPECT_FALSE(t.k->versionsPathIfAvailable());
  EXPECT_EQ(t.k->pathComponentIfAvailable(), "componentSections/A/B/C/components/K");

  // Setting it on a nested section reaches only that subtree.
  t.b->setProject(project);
  EXPECT_EQ(t.a->project(), nullptr);
  EXPECT_EQ(t.j->project(), nullptr);
  EXPECT_EQ(t.c->project(), project);
  EXPECT_EQ(t.k->project(), project);
}

TEST(ComponentSection, AssignmentsAndEditsWireWithTheSectionsProject) {
  auto t = decodeTree();
  auto project = makeProject("P");
  t.a->setProject(project);

  auto fresh = decodeJson<Ref<Component>>(collectionJson("N"));
  t.b->setComponents(std::vector{fresh});
  EXPECT_EQ(fresh->section(), t.b);
  EXPECT_EQ(fresh->project(), project);
  EXPECT_EQ(fresh->versionsPath(), "projects/P/componentSections/A/B/components/N/versions");

  auto d = decodeJson<Ref<ComponentSection>>(
      R"({"_id":"D","name":"d","componentSections":[{"_id":"E","name":"e","components":[)" +
      collectionJson("M") + "]}]}");
  auto m = d->sections()->at(0)->components()->at(0);
  t.c->editSections([&](auto& sections) { sections = std::vector{d}; });
  EXPECT_EQ(d->parent(), t.c);
  EXPECT_EQ(m->project(), project);
  EXPECT_EQ(m->versionsPath(), "projects/P/componentSections/A/B/C/D/E/components/M/versions");

  // Moved to another section, the component follows that section; the old list is not cleared.
  t.a->editComponents([&](auto& components) { components->push_back(fresh); });
  EXPECT_EQ(fresh->section(), t.a);
  t.b->setComponents(std::nullopt);
  EXPECT_EQ(fresh->section(), t.a);
}

TEST(ComponentSection, MakeAdoptsChildrenWithoutProject) {
  auto k = Component::make({.identifier = Identifier("K"),
                            .name = "k",
                            .description = "",
                            .latestVersion = makeVersion("v"),
                            .sourceIdentifier = std::nullopt,
                            .tags = std::nullopt,
                            .versions = std::nullopt});
  auto c = makeSection("C", std::nullopt, std::vector{k});
  auto b = makeSection("B", std::vector{c});
  auto a = makeSection("A", std::vector{b});
  EXPECT_EQ(k->section(), c);
  EXPECT_EQ(c->parent(), b);
  EXPECT_EQ(b->parent(), a);
  EXPECT_EQ(k->project(), nullptr);
  EXPECT_EQ(k->latestVersion()->collection(), k);
  EXPECT_EQ(k->pathComponent(), "componentSections/A/B/C/components/K");
  // Identifiers enter the path raw; empty ones leave no empty segment.
  b->setIdentifier(Identifier(""));
  c->setIdentifier(Identifier("x/y"));
  EXPECT_EQ(c->identifierPathComponent(), "A/x/y");
}

TEST(ComponentSectionDeathTest, ASectionInsideItsOwnSubtreeStops) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  auto leaf = [](const char* id) { return makeSection(id); };
  const char* inside =
      "Component section tree has a cycle: section \"A\" is inside its own subtree";
  EXPECT_DEATH(
      {
        auto a = leaf("A");
        a->editSections([&](auto& sections) { sections = std::vector{a}; });
      },
      inside);
  EXPECT_DEATH(
      {
        auto a = leaf("A");
        auto b = makeSection("B", std::vector{leaf("C")});
        a->setSections(std::vector{b});
        b->editSections([&](auto& sections) { sections->push_back(a); });
      },
      "Component section tree has a cycle: section \"[AB]\" is inside its own subtree");
  EXPECT_DEATH(
      {
        auto a = leaf("A");
        auto b = leaf("B");
        a->setParent(b);
        b->setParent(a);
        a->identifierPathComponent();
      },
      "Component section tree has a cycle: section \"[AB]\" is its own ancestor");
}
