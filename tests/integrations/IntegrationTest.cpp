#include <orvane/integrations/Integration.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

namespace {

constexpr const char* kSlack =
    R"({"_id":"s1","incomingWebHook":{"channel":"#design","configurationURL":"https://x/c",)"
    R"("url":"https://hooks/1"},"scope":"incoming-webhook"})";

}  // namespace

TEST(IntegrationSlack, WritesTheWebHookAndScopeButNeitherIdentifierNorExtraHookKeys) {
  auto slack = decodeJson<Ref<Integration::Slack>>(kSlack);
  EXPECT_EQ(slack->identifier(), "s1");
  EXPECT_EQ(slack->channel(), "#design");
  EXPECT_EQ(slack->configurationURL(), Url("https://x/c"));
  EXPECT_EQ(slack->scope(), "incoming-webhook");
  EXPECT_EQ(encodeJson(slack), R"({"incomingWebHook":{"channel":"#design",)"
                               R"("configurationURL":"https://x/c"},"scope":"incoming-webhook"})");
}

TEST(IntegrationSlack, MissingPiecesFailWhereTheyAreMissing) {
  struct Case {
    const char* json;
    ErrorKind kind;
    const char* path;
    const char* key;
  };
  const Case cases[] = {
      {R"({"_id":"s"})", ErrorKind::keyNotFound, "", "incomingWebHook"},
      {R"({"_id":"s","incomingWebHook":{"configurationURL":"https://x"}})", ErrorKind::keyNotFound,
       "incomingWebHook", "channel"},
      {R"({"_id":"s","incomingWebHook":{"channel":"c"}})", ErrorKind::keyNotFound,
       "incomingWebHook", "configurationURL"},
      {R"({"_id":"s","incomingWebHook":"https://x"})", ErrorKind::typeMismatch, "incomingWebHook",
       ""},
  };
  for (const auto& c : cases) {
    auto e = decodeError<Ref<Integration::Slack>>(c.json);
    EXPECT_EQ(e.kind(), c.kind) << c.json;
    EXPECT_EQ(pathOf(e), *c.path ? c.path : "<root>") << c.json;
    if (c.kind == ErrorKind::keyNotFound) {
      EXPECT_EQ(e.key(), c.key) << c.json;
    }
  }
}
