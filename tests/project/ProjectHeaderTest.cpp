// The project's header: what it reads, what it tolerates, what it writes.
#include <gtest/gtest.h>

#include "support/Records.hpp"

using namespace orvane;
using test::decodeError;
using test::decodeJson;
using test::encodeJson;
using test::pathOf;
using Kind = DecodingError::Kind;

namespace {

// A minimal accepted document, with `extra` members spliced in before the closing brace.
std::string projectJson(std::string_view extra = "") {
  std::string json =
      R"({"_id":"P","name":"Shop","icon":{},"created":"2024-01-01T00:00:00Z","users":[])";
  if (!extra.empty()) json += "," + std::string(extra);
  return json + "}";
}

// The same document with one member dropped.
std::string projectWithout(std::string_view key) {
  std::string members[] = {R"("_id":"P")", R"("name":"Shop")", R"("icon":{})",
                           R"("created":"2024-01-01T00:00:00Z")", R"("users":[])"};
  std::string json = "{";
  for (const auto& m : members) {
    if (m.substr(1, key.size()) == key && m[key.size() + 1] == '"') continue;
    if (json.size() > 1) json += ",";
    json += m;
  }
  return json + "}";
}

}  // namespace

TEST(ProjectHeader, UpdateDateFallsBackToTheCreationDate) {
  auto minimal = decodeJson<Ref<Project>>(projectJson());
  EXPECT_EQ(minimal->updateDate(), minimal->createDate());
  auto updated = decodeJson<Ref<Project>>(projectJson(R"("updated":"2024-02-01T00:00:00Z")"));
  EXPECT_NE(updated->updateDate(), updated->createDate());
  auto nullUpdated = decodeJson<Ref<Project>>(projectJson(R"("updated":null)"));
  EXPECT_EQ(nullUpdated->updateDate(), nullUpdated->createDate());
}

TEST(ProjectHeader, IconIsARequiredObjectWithATolerantType) {
  auto withIcon = [](std::string_view icon) {
    return R"({"_id":"P","name":"n","icon":)" + std::string(icon) +
           R"(,"created":"2024-01-01T00:00:00Z","users":[]})";
  };
  EXPECT_EQ(decodeJson<Ref<Project>>(withIcon(R"({"type":"rocket"})"))->icon(),
            Project::Icon::rocket);
  EXPECT_FALSE(decodeJson<Ref<Project>>(withIcon(R"({"type":"spaceship"})"))->icon());
  EXPECT_FALSE(decodeJson<Ref<Project>>(withIcon(R"({"type":7})"))->icon());

  auto absent = decodeError<Ref<Project>>(projectWithout("icon"));
  EXPECT_EQ(absent.kind(), Kind::keyNotFound);
  EXPECT_EQ(absent.key(), "icon");
  EXPECT_EQ(decodeError<Ref<Project>>(withIcon(R"("rocket")")).kind(), Kind::typeMismatch);
  EXPECT_EQ(pathOf(decodeError<Ref<Project>>(withIcon(R"("rocket")"))), "icon");
  EXPECT_EQ(decodeError<Ref<Project>>(withIcon("null")).kind(), Kind::valueNotFound);
}

TEST(ProjectHeader, RequiredKeysFailInDecodingOrder) {
  // "name" is read before "icon", and "icon" before "created".
  EXPECT_EQ(decodeError<Ref<Project>>(R"({"_id":"P","created":"2024-01-01T00:00:00Z"})").key(),
            "name");
  EXPECT_EQ(decodeError<Ref<Project>>(R"({"_id":"P","name":"n","users":[]})").key(), "icon");
}

TEST(ProjectHeader, WritesOnlyTheFiveHeaderMembers) {
  auto p = decodeJson<Ref<Project>>(projectJson(
      R"("status":"active","description":"d","public":true,"type":"ios","density":"2x")"));
  EXPECT_EQ(encodeJson(p), R"({"name":"Shop","icon":{},"type":"ios","density":"2x"})");

  p->setIcon(Project::Icon::pear);
  p->setThumbnailURL(Url("https://cdn.example.com/t.png"));
  p->setKind(std::nullopt);
  p->setDensity(std::nullopt);
  const std::string written = encodeJson(p);
  EXPECT_EQ(
      written,
      R"({"name":"Shop","icon":{"type":"pear"},"thumbnail":"https://cdn.example.com/t.png"})");
  // What a project writes is not a document it reads.
  EXPECT_EQ(decodeError<Ref<Project>>(written).key(), "_id");
}
