#include <orvane/snapshot/Link.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;

TEST(Destination, KindRoundTripsInThreeShapes) {
  struct Case {
    const char* json;
    std::optional<Destination::Kind::Key> key;
    const char* written;
  };
  const Case cases[] = {
      {R"({"type":"screen","name":"Home"})", Destination::Kind::Key::screen,
       R"({"type":"screen","name":"Home"})"},
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
