#include <orvane/internal/JsonWriter.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

TEST(ProjectColor, IsWrittenWithoutItsIdentifierSoOnlyAPlainColorReadsItBack) {
  auto color =
      decodeJson<Ref<ProjectColor>>(R"({"_id":"c1","name":"Blue","r":0,"g":0,"b":1,"a":1})");
  // Held as a plain color, it still writes its own members.
  Ref<Color> held = color;
  auto written = encodeJson(held);
  EXPECT_EQ(written, R"({"name":"Blue","r":0,"g":0,"b":1,"a":1})");
  EXPECT_EQ(decodeJson<Ref<Color>>(written)->blue(), 1);

  auto made = ProjectColor::make({.name = "Red", .red = 1, .green = 0, .blue = 0, .alpha = 0.5});
  EXPECT_TRUE(made->identifier().isLocal());
  EXPECT_EQ(encodeJson(made), R"({"name":"Red","r":1,"g":0,"b":0,"a":0.5})");
}

TEST(ProjectColor, ListedThroughAPlainColorStillShowsItsOwnFields) {
  Ref<Color> color = ProjectColor::make(
      {.identifier = Identifier("c"), .name = "Red", .red = 1, .green = 0, .blue = 0, .alpha = 1});
  std::string out;
  JsonWriter writer(out, false);
  JsonFieldWriter fields(writer);
  describe(fields, color);
  EXPECT_EQ(out, R"({"red":1,"green":0,"blue":0,"alpha":1,"identifier":"c","name":"Red"})");
}

TEST(ProjectColor, ReadsItsOwnMembersBeforeTheColors) {
  // Both "_id" and "r" are missing: the identifier is asked for first.
  auto e = decodeError<Ref<ProjectColor>>(R"({"name":"x","g":0,"b":0,"a":1})");
  EXPECT_EQ(e.key(), "_id");
  e = decodeError<Ref<ProjectColor>>(R"({"_id":"c","name":"x","g":0,"b":0,"a":1})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "r");
  EXPECT_EQ(pathOf(e), "<root>");
}
