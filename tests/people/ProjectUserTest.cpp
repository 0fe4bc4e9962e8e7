#include <orvane/internal/JsonWriter.hpp>
#include <orvane/people/ProjectUser.hpp>
#include <orvane/project/Project.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;
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

TEST(ProjectUser, RoleIsTolerantAndCaseSensitive) {
  EXPECT_EQ(decodeJson<Ref<ProjectUser>>(member(R"(,"role":"queen")"))->role(), Role::queen);
  for (const char* role : {R"("Queen")", "3", "null", R"(["queen"])"}) {
    EXPECT_FALSE(decodeJson<Ref<ProjectUser>>(member(std::string(",\"role\":") + role))->role())
        << role;
  }
  EXPECT_EQ(allCases<Role>(), (std::vector{Role::user, Role::admin, Role::owner, Role::pawn,
                                           Role::knight, Role::rook, Role::queen, Role::king}));
}

TEST(ProjectUser, UserIsRequiredAndItsErrorsPassThrough) {
  auto e = decodeError<Ref<ProjectUser>>(R"({"role":"admin"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "user");
  EXPECT_EQ(decodeError<Ref<ProjectUser>>(R"({"user":null})").kind(), ErrorKind::valueNotFound);
  e = decodeError<Ref<ProjectUser>>(R"({"user":{"_id":"u1"}})");
  EXPECT_EQ(e.key(), "email");
  EXPECT_EQ(pathOf(e), "user");
  e = decodeError<Ref<ProjectUser>>(member(R"(,"tags":["a",2])"));
  EXPECT_EQ(e.kind(), ErrorKind::typeMismatch);
  EXPECT_EQ(pathOf(e), "tags[1]");
  EXPECT_EQ(decodeError<Ref<ProjectUser>>(member(R"(,"tags":"a")")).kind(),
            ErrorKind::typeMismatch);
}

TEST(ProjectUser, WritesWhatItHoldsAndKeepsEmptyTagsApartFromNone) {
  EXPECT_EQ(roundTrip<Ref<ProjectUser>>(member(R"(,"role":"Owner","tags":null)")), member(""));
  const auto full = member(R"(,"role":"king","tags":[])");
  EXPECT_EQ(roundTrip<Ref<ProjectUser>>(full), full);
  EXPECT_EQ(roundTrip<Ref<ProjectUser>>(member(R"(,"tags":["x","y"])")),
            member(R"(,"tags":["x","y"])"));
}

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

TEST(ProjectUser, MadeMembersHaveNoProject) {
  auto user = User::make({.identifier = Identifier("u"),
                          .email = "e",
                          .username = std::nullopt,
                          .emotar = std::nullopt,
                          .avatarURL = std::nullopt,
                          .token = std::nullopt,
                          .status = std::nullopt,
                          .planIdentifier = std::nullopt,
                          .notificationLastReadDate = std::nullopt,
                          .subscriptionStatus = std::nullopt});
  auto m = ProjectUser::make(
      {.user = user, .role = Role::rook, .tags = std::vector<std::string>{"lead"}});
  EXPECT_FALSE(m->project());
  EXPECT_EQ(encodeJson(m), R"({"user":{"_id":"u","email":"e"},"role":"rook","tags":["lead"]})");
}

TEST(ProjectUserPartial, ReadsAPartialUserAndATolerantRoleOnly) {
  auto empty = decodeJson<ProjectUser::Partial>("{}");
  EXPECT_FALSE(empty.user() || empty.role());
  auto p = decodeJson<ProjectUser::Partial>(R"({"user":{"email":"a"},"role":"pawn","tags":5})");
  ASSERT_TRUE(p.user());
  EXPECT_EQ(p.user()->email(), "a");
  EXPECT_FALSE(p.user()->identifier());
  EXPECT_EQ(p.role(), Role::pawn);
  EXPECT_FALSE(decodeJson<ProjectUser::Partial>(R"({"user":null,"role":"Pawn"})").role());
  auto e = decodeError<ProjectUser::Partial>(R"({"user":{"email":1}})");
  EXPECT_EQ(pathOf(e), "user.email");
}
