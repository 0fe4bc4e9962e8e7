#include <orvane/snapshot/Link.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

TEST(Destination, KindRoundTripsInThreeShapes) {
  struct Case {
    const char* json;
    std::optional<Destination::Kind::Key> key;
    const char* written;
  };
  const Case cases[] = {
      {R"({"type":"screen","name":"Home"})", Destination::Kind::Key::screen,
       R"({"type":"screen","name":"Home"})"},
      // "name" belongs to screens only.
      {R"({"type":"previous","name":"Home"})", Destination::Kind::Key::previous,
       R"({"type":"previous"})"},
      {R"({})", std::nullopt, "{}"},
      {R"({"type":3})", std::nullopt, "{}"},
      {R"({"type":null,"name":"x"})", std::nullopt, "{}"},
      {R"({"type":"Screen","name":"x"})", std::nullopt, "{}"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    auto d = decodeJson<Ref<Destination>>(c.json);
    ASSERT_EQ(d->kind().has_value(), c.key.has_value());
    if (c.key) {
      EXPECT_EQ(d->kind()->key(), *c.key);
    }
    EXPECT_EQ(encodeJson(d), c.written);
  }
}

TEST(Destination, ScreenNeedsAName) {
  auto e = decodeError<Ref<Destination>>(R"({"type":"screen"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "name");
  e = decodeError<Ref<Link>>(R"({"rect":{"x":0,"y":0,"width":1,"height":1},
                                 "destination":{"type":"screen","name":null}})");
  EXPECT_EQ(e.kind(), ErrorKind::valueNotFound);
  EXPECT_EQ(pathOf(e), "destination.name");
}

TEST(Link, OptionalMembersAreLeftOutWhenAbsent) {
  auto link = decodeJson<Ref<Link>>(R"({"rect":{"x":10,"y":20,"width":-4,"height":5}})");
  EXPECT_FALSE(link->sourceIdentifier());
  EXPECT_FALSE(link->destination());
  EXPECT_EQ(link->frame(), Rect(10, 20, -4, 5));
  EXPECT_EQ(encodeJson(link), R"({"rect":{"x":6,"y":20,"width":4,"height":5}})");

  link = Link::make({.sourceIdentifier = Identifier("s1"),
                     .frame = Rect(1, 2, 3, 4),
                     .destination = Destination::make({.kind = Destination::Kind::previous()})});
  EXPECT_EQ(encodeJson(link), R"({"sourceId":"s1","rect":{"x":1,"y":2,"width":3,"height":4},)"
                              R"("destination":{"type":"previous"}})");
}

TEST(Link, RectIsRequired) {
  auto e = decodeError<Ref<Link>>(R"({"sourceId":"s"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "rect");
  e = decodeError<Ref<Link>>(R"({"rect":{"x":0,"y":0,"width":1}})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(pathOf(e), "rect");
}
