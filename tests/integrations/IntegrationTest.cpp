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

TEST(IntegrationSlack, TheWebHookIsRequired) {
  auto e = decodeError<Ref<Integration::Slack>>(R"({"_id":"s"})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "incomingWebHook");
}
