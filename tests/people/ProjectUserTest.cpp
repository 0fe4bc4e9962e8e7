#include <orvane/internal/JsonWriter.hpp>
#include <orvane/people/ProjectUser.hpp>
#include <orvane/project/Project.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using Role = ProjectUser::Role;

namespace {

constexpr const char* kUser = R"({"_id":"u1","email":"a@b.c"})";

std::string member(std::string_view rest) {
  return std::string(R"({"user":)") + kUser + std::string(rest) + "}";
}

Ref<Project> minimalProject() {
  return decodeJson<Ref<Project>>(
      R"({"_id":"P","name":"p","icon":{},"created":"2024-01-01T00:00:00Z","users":[]})");
}

std::string dump(const ProjectUser& value) {
  std::string out;
  JsonWriter writer(out, false);
  JsonFieldWriter fields(writer);
  describe(fields, value);
  return out;
}

}  // namespace

TEST(ProjectUser, ProjectIsAWeakBackReferenceThatOnlyTheOwnerSets) {
  auto m = decodeJson<Ref<ProjectUser>>(member(""));
  EXPECT_FALSE(m->project());
  EXPECT_EQ(dump(*m), R"({"user":{"identifier":"u1","email":"a@b.c","username":null,)"
                      R"("emotar":null,"avatarURL":null,"token":null,"status":null,)"
                      R"("planIdentifier":null,"notificationLastReadDate":null,)"
                      R"("subscriptionStatus":null,"handle":"a@b.c"},"role":null,"tags":null,)"
                      R"("project":null})");

  auto project = minimalProject();
  m->setProject(project);
  EXPECT_EQ(m->project(), project);
  EXPECT_NE(dump(*m).find(R"("project":"P")"), std::string::npos);
  // Not coded: the member writes the same with or without its project.
  EXPECT_EQ(encodeJson(m), member(""));

  m->setProject(nullptr);
  EXPECT_FALSE(m->project());
  m->setProject(project);
  project.reset();
  EXPECT_FALSE(m->project());
}
