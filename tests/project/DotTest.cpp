// Dots and their comments.
#include <gtest/gtest.h>

#include "Structure.hpp"

using namespace orvane;
using namespace orvane::test;
using Kind = DecodingError::Kind;

namespace {

std::string commentJson(std::string_view id, std::string_view note) {
  return R"({"_id":")" + std::string(id) + R"(","note":")" + std::string(note) +
         R"(","created":"2024-01-01T00:00:00Z","updated":"2024-01-02T00:00:00Z"})";
}

const std::string kColor = R"({"r":0.5,"g":0,"b":1,"a":1})";

std::string dotJson(std::string_view status, std::string_view comments) {
  return R"({"_id":"d1","status":)" + std::string(status) +
         R"(,"name":"Header","creator":{"_id":"u1","email":"e"},"x":10.5,"y":-3,"color":)" +
         kColor + R"(,"comments":[)" + std::string(comments) + "]}";
}

}  // namespace

TEST(Dot, DecodingWiresComments) {
  auto dot = decodeJson<Ref<Dot>>(
      dotJson(R"("resolved")", commentJson("c1", "a") + "," + commentJson("c2", "b")));
  EXPECT_EQ(dot->status(), Dot::Status::resolved);
  EXPECT_EQ(dot->creator()->identifier(), Identifier("u1"));
  EXPECT_EQ(dot->x(), 10.5);
  EXPECT_EQ(dot->y(), -3);
  ASSERT_EQ(dot->comments().size(), 2u);
  for (const auto& comment : dot->comments()) EXPECT_EQ(comment->dot(), dot);
  EXPECT_EQ(dot->screen(), nullptr);
  EXPECT_EQ(formatDateMillis(dot->comments()[1]->updateDate()), "2024-01-02T00:00:00.000Z");

  auto comment = dot->comments()[0];
  dot.reset();
  EXPECT_EQ(comment->dot(), nullptr);
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

// What a partial dot reads is a corpus case; a present value must still have the right kind.
TEST(DotPartial, PresentValuesAreStillTyped) {
  auto e = decodeError<Dot::Partial>(R"({"comments":[{"updated":"never"}]})");
  EXPECT_EQ(pathOf(e), "comments[0].updated");
}
