// The project's contents: the decoding order, filing of screens, and the wiring of every child.
#include <gtest/gtest.h>

#include "project/Structure.hpp"

using namespace orvane;
using test::collectionJson;
using test::decodeError;
using test::decodeJson;
using test::encodeJson;
using test::pathOf;
using Kind = DecodingError::Kind;

namespace {

constexpr std::string_view kHeader =
    R"("_id":"P","name":"Shop","icon":{},"created":"2024-01-01T00:00:00Z")";

std::string projectJson(std::string_view members, bool withUsers = true) {
  std::string json = "{" + std::string(kHeader);
  if (withUsers) json += R"(,"users":[])";
  if (!members.empty()) json += "," + std::string(members);
  return json + "}";
}

std::string memberJson(std::string_view id) {
  return R"({"user":{"_id":")" + std::string(id) + R"(","email":")" + std::string(id) +
         R"(@example.com"},"role":"admin"})";
}

// A > B > C, each holding one component (KA, KB, KC).
std::string componentTreeJson() {
  return R"("componentSections":[{"_id":"A","name":"a","components":[)" + collectionJson("KA") +
         R"(],"componentSections":[{"_id":"B","name":"b","components":[)" + collectionJson("KB") +
         R"(],"componentSections":[{"_id":"C","name":"c","components":[)" + collectionJson("KC") +
         "]}]}]}]";
}

// Every component section and component below `sections`, depth first.
void collectTree(const std::vector<Ref<ComponentSection>>& sections,
                 std::vector<Ref<ComponentSection>>& allSections,
                 std::vector<Ref<Component>>& allComponents) {
  for (const auto& section : sections) {
    allSections.push_back(section);
    if (section->components())
      for (const auto& c : *section->components()) allComponents.push_back(c);
    if (section->sections()) collectTree(*section->sections(), allSections, allComponents);
  }
}

}  // namespace

TEST(ProjectContents, LaterScreenWithTheSameIdentifierWins) {
  auto p = decodeJson<Ref<Project>>(projectJson(
      R"("screens":[)" + collectionJson("A", R"("description":"first")") + "," +
      collectionJson("B") + "," + collectionJson("A", R"("description":"third")") + "]"));
  ASSERT_TRUE(p->screensByIdentifier());
  const auto& screens = *p->screensByIdentifier();
  ASSERT_EQ(screens.size(), 2u);
  EXPECT_EQ(screens.at(Identifier("A"))->description(), "third");
  for (const auto& [id, screen] : screens) {
    EXPECT_EQ(screen->identifier(), id);
    EXPECT_EQ(screen->project(), p);
  }

  EXPECT_FALSE(decodeJson<Ref<Project>>(projectJson(""))->screensByIdentifier());
  auto empty = decodeJson<Ref<Project>>(projectJson(R"("screens":[])"));
  ASSERT_TRUE(empty->screensByIdentifier());
  EXPECT_TRUE(empty->screensByIdentifier()->empty());
}

TEST(ProjectContents, DecodingWiresEveryChildAtEveryDepth) {
  auto p = decodeJson<Ref<Project>>(
      projectJson(R"("sections":[{"_id":"S1","name":"s","screens":["A"]}],"screens":[)" +
                  collectionJson("A") + "]," + componentTreeJson() + R"(,"users":[)" +
                  memberJson("u1") + "," + memberJson("u2") + "]"));
  EXPECT_EQ(p->sections()->at(0)->project(), p);
  EXPECT_EQ(p->screensByIdentifier()->at(Identifier("A"))->project(), p);
  std::vector<Ref<ComponentSection>> sections;
  std::vector<Ref<Component>> components;
  collectTree(*p->componentSections(), sections, components);
  ASSERT_EQ(sections.size(), 3u);
  ASSERT_EQ(components.size(), 3u);
  for (const auto& s : sections) EXPECT_EQ(s->project(), p) << s->identifier().rawValue();
  for (const auto& c : components) EXPECT_EQ(c->project(), p) << c->identifier().rawValue();
  EXPECT_EQ(components.back()->versionsPath(),
            "projects/P/componentSections/A/B/C/components/KC/versions");
  ASSERT_EQ(p->users().size(), 2u);
  for (const auto& u : p->users()) EXPECT_EQ(u->project(), p);

  // Back-references never keep the project alive, and read empty once it is gone.
  auto screen = p->screensByIdentifier()->at(Identifier("A"));
  auto leaf = components.back();
  auto member = p->users().front();
  p.reset();
  EXPECT_FALSE(screen->project());
  EXPECT_FALSE(leaf->project());
  EXPECT_FALSE(member->project());
}

TEST(ProjectContents, WritingAWiredFieldWiresItsElements) {
  auto p =
      decodeJson<Ref<Project>>(projectJson(R"("sections":[{"_id":"S1","name":"s","screens":[]}])"));
  auto old = p->sections()->at(0);

  auto fresh = Section::make(
      {.name = "new", .description = std::nullopt, .screenIdentifiers = std::vector<Identifier>{}});
  p->setSections(std::vector<Ref<Section>>{fresh});
  EXPECT_EQ(fresh->project(), p);
  EXPECT_EQ(old->project(), p) << "a child taken out keeps its back-reference";

  auto screen = decodeJson<Ref<Screen>>(collectionJson("S"));
  p->editScreensByIdentifier([&](auto& screens) {
    screens.emplace();
    screens->emplace(screen->identifier(), screen);
  });
  EXPECT_EQ(screen->project(), p);

  auto tree = decodeJson<Ref<ComponentSection>>(
      R"({"_id":"A","name":"a","componentSections":[{"_id":"B","name":"b","components":[)" +
      collectionJson("K") + "]}]}");
  p->editComponentSections([&](auto& sections) { sections = std::vector{tree}; });
  const auto& b = tree->sections()->at(0);
  EXPECT_EQ(b->project(), p);
  EXPECT_EQ(b->components()->at(0)->versionsPath(),
            "projects/P/componentSections/A/B/components/K/versions");

  auto member = decodeJson<Ref<ProjectUser>>(memberJson("u9"));
  p->editUsers([&](auto& users) { users.push_back(member); });
  EXPECT_EQ(member->project(), p);
}

TEST(ProjectContents, MakeWiresItsArgumentsAndDefaultsThree) {
  auto section = Section::make(
      {.name = "s", .description = std::nullopt, .screenIdentifiers = std::vector<Identifier>{}});
  auto tree = test::makeSection("a");
  auto member = decodeJson<Ref<ProjectUser>>(memberJson("u1"));
  const Date before = now();
  auto make = [&] {
    return Project::make({.status = std::nullopt,
                          .name = "n",
                          .icon = std::nullopt,
                          .updateDate = before,
                          .kind = std::nullopt,
                          .density = std::nullopt,
                          .isPublic = std::nullopt,
                          .sections = std::vector{section},
                          .screensByIdentifier = std::nullopt,
                          .colors = std::nullopt,
                          .textStyles = std::nullopt,
                          .componentSections = std::vector{tree},
                          .users = std::vector{member},
                          .thumbnailURL = std::nullopt,
                          .integration = nullptr});
  };
  auto p = make();
  EXPECT_EQ(section->project(), p);
  EXPECT_EQ(tree->project(), p);
  EXPECT_EQ(member->project(), p);
  EXPECT_TRUE(p->identifier().isLocal());
  EXPECT_EQ(p->description(), "");
  EXPECT_GE(p->createDate(), before);
  EXPECT_FALSE(p->extensions());
  EXPECT_FALSE(p->organization());
  EXPECT_NE(make()->identifier(), p->identifier());
}

TEST(ProjectContents, KeysAreReadInOrderAndTheFirstFailureWins) {
  struct Case {
    std::string json;
    Kind kind;
    std::string path;
    std::string key;
  };
  const Case cases[] = {
      // "sections" comes before the missing "users".
      {projectJson(R"("sections":{})", false), Kind::typeMismatch, "sections", ""},
      // "users" comes before "thumbnail" and "integration".
      {projectJson(R"("thumbnail":"","integration":[])", false), Kind::keyNotFound, "", "users"},
      {projectJson(R"("thumbnail":"","integration":[])"), Kind::dataCorrupted, "thumbnail", ""},
  };
  for (const auto& c : cases) {
    auto e = decodeError<Ref<Project>>(c.json);
    EXPECT_EQ(e.kind(), c.kind) << c.json;
    EXPECT_EQ(pathOf(e), c.path.empty() ? "<root>" : c.path) << c.json;
    if (!c.key.empty()) {
      EXPECT_EQ(e.key(), c.key);
    }
  }
}

TEST(ProjectContents, ClientFieldsAreNeitherReadNorWritten) {
  auto p = decodeJson<Ref<Project>>(projectJson(
      R"("extensions":[{"name":"x"}],"organization":{"name":"o"},"emojis":[],)"
      R"("candidateColors":[],"colors":[{"_id":"c","name":"red","r":1,"g":0,"b":0,"a":1}],)"
      R"("integration":{"slacks":[]})"));
  EXPECT_FALSE(p->extensions());
  EXPECT_FALSE(p->organization());
  EXPECT_FALSE(p->emojis());
  EXPECT_FALSE(p->candidateColors());
  ASSERT_TRUE(p->colors());
  EXPECT_EQ(p->colors()->at(0)->name(), "red");
  ASSERT_TRUE(p->integration());

  p->setCandidateTextStyles(std::vector<Project::CandidateTextStyle>{
      {"Body", std::nullopt, decodeJson<Ref<TextStyle>>(R"({"fontFace":"Inter","fontSize":14})")}});
  EXPECT_EQ(encodeJson(p), R"({"name":"Shop","icon":{}})");
}
