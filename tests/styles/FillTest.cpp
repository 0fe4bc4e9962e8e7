#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;
using Key = Fill::Kind::Key;

namespace {

constexpr const char* kGradient =
    R"({"type":"radial","from":{"x":0,"y":0},"to":{"x":1,"y":1},"colorStops":[]})";

}  // namespace

TEST(Fill, PayloadIsReadOnlyForTheCaseNamed) {
  struct Case {
    std::string json;
    std::optional<Key> key;
    std::string written;
  };
  const std::string red = R"("color":{"r":1,"g":0,"b":0,"a":1})";
  const std::string gradient = std::string(R"("gradient":)") + kGradient;
  const Case cases[] = {
      {"{\"fillType\":\"color\"," + red + "}", Key::color, "{\"fillType\":\"color\"," + red + "}"},
      // The other case's member is never looked at, even when it would not decode.
      {"{\"fillType\":\"color\"," + red + ",\"gradient\":7}", Key::color,
       "{\"fillType\":\"color\"," + red + "}"},
      {"{\"fillType\":\"gradient\"," + gradient + ",\"color\":\"red\"}", Key::gradient,
       "{\"fillType\":\"gradient\"," + gradient + "}"},
      // Without a known case neither payload is read.
      {"{\"fillType\":\"Color\"," + red + "}", std::nullopt, "{}"},
      {"{\"fillType\":null,\"color\":{}}", std::nullopt, "{}"},
      {"{" + red + "}", std::nullopt, "{}"},
      {R"({"opacity":0.5})", std::nullopt, R"({"opacity":0.5})"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    auto fill = decodeJson<Ref<Fill>>(c.json);
    ASSERT_EQ(fill->kind().has_value(), c.key.has_value());
    if (c.key) {
      EXPECT_EQ(fill->kind()->key(), *c.key);
      EXPECT_EQ(fill->kind()->asColor() != nullptr, *c.key == Key::color);
      EXPECT_EQ(fill->kind()->asGradient() != nullptr, *c.key == Key::gradient);
    }
    EXPECT_EQ(encodeJson(fill), c.written);
  }
}

TEST(Fill, NamedPayloadIsRequired) {
  auto e = decodeError<Ref<Fill>>(R"({"fillType":"gradient","gradient":null})");
  EXPECT_EQ(e.kind(), ErrorKind::valueNotFound);
  // A stop lacking its color fails the gradient and so the fill.
  e = decodeError<Ref<Fill>>(
      R"({"fillType":"gradient","gradient":{"from":{"x":0,"y":0},"to":{"x":1,"y":1},)"
      R"("colorStops":[{"position":0,"color":{"r":0,"g":0,"b":0,"a":1}},{"position":1}]}})");
  EXPECT_EQ(e.key(), "color");
  EXPECT_EQ(pathOf(e), "gradient.colorStops[1]");
}

TEST(Gradient, StopsAreKeptInOrderWithTheirPositions) {
  const char* stops =
      R"({"type":"linear","from":{"x":0,"y":0},"to":{"x":0,"y":1},"scale":2,"colorStops":[)"
      R"({"position":0,"color":{"r":1,"g":1,"b":1,"a":1}},)"
      R"({"position":1,"color":{"r":0,"g":0,"b":0,"a":1}}]})";
  auto gradient = decodeJson<Ref<Gradient>>(stops);
  ASSERT_EQ(gradient->stops().size(), 2u);
  EXPECT_EQ(gradient->stops()[1]->position(), 1);
  EXPECT_EQ(encodeJson(gradient), stops);
}
