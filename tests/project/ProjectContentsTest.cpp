// The project's contents: how assigning and making wire every child. What a project reads, in
// which order, files and wires on decoding are corpus cases.
#include <gtest/gtest.h>

#include "project/Structure.hpp"

using namespace orvane;
using test::collectionJson;
using test::decodeJson;
using test::encodeJson;

namespace {

std::string projectJson(std::string_view members) {
  std::string json = R"({"_id":"P","name":"Shop","icon":{},"created":"2024-01-01T00:00:00Z",)"
                     R"("users":[])";
  if (!members.empty()) json += "," + std::string(members);
  return json + "}";
}

std::string memberJson(std::string_view id) {
  return R"({"user":{"_id":")" + std::string(id) + R"(","email":")" + std::string(id) +
         R"(@example.com"},"role":"admin"})";
}

}  // namespace

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

// The client's own fields are never read (a corpus case) nor written.
TEST(ProjectContents, ClientFieldsAreNotWritten) {
  auto p = decodeJson<Ref<Project>>(projectJson(""));
  p->setCandidateTextStyles(std::vector<Project::CandidateTextStyle>{
      {"Body", std::nullopt, decodeJson<Ref<TextStyle>>(R"({"fontFace":"Inter","fontSize":14})")}});
  EXPECT_EQ(encodeJson(p), R"({"name":"Shop","icon":{}})");
}
