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
}
