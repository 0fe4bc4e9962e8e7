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

  EXPECT_EQ(decodeError<Ref<Project>>(withIcon("null")).kind(), Kind::valueNotFound);
}

TEST(ProjectHeader, RequiredKeysFailInDecodingOrder) {
  // "name" is read before "icon", and "icon" before "created".
  EXPECT_EQ(decodeError<Ref<Project>>(R"({"_id":"P","created":"2024-01-01T00:00:00Z"})").key(),
            "name");
  EXPECT_EQ(decodeError<Ref<Project>>(R"({"_id":"P","name":"n","users":[]})").key(), "icon");
}
