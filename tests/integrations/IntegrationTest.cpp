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

  slack = decodeJson<Ref<Integration::Slack>>(
      R"({"_id":"s","incomingWebHook":{"channel":"c","configurationURL":"https://x"},"scope":null})");
  EXPECT_FALSE(slack->scope());
  EXPECT_EQ(encodeJson(slack),
            R"({"incomingWebHook":{"channel":"c","configurationURL":"https://x"}})");
}

TEST(IntegrationSlack, MissingPiecesFailWhereTheyAreMissing) {
  struct Case {
    const char* json;
    ErrorKind kind;
    const char* path;
    const char* key;
  };
  const Case cases[] = {
      {R"({"incomingWebHook":{"channel":"c","configurationURL":"https://x"}})",
       ErrorKind::keyNotFound, "", "_id"},
      {R"({"_id":"s"})", ErrorKind::keyNotFound, "", "incomingWebHook"},
      {R"({"_id":"s","incomingWebHook":{"configurationURL":"https://x"}})", ErrorKind::keyNotFound,
       "incomingWebHook", "channel"},
      {R"({"_id":"s","incomingWebHook":{"channel":"c"}})", ErrorKind::keyNotFound,
       "incomingWebHook", "configurationURL"},
      {R"({"_id":"s","incomingWebHook":"https://x"})", ErrorKind::typeMismatch, "incomingWebHook",
       ""},
      {R"({"_id":"s","incomingWebHook":{"channel":"c","configurationURL":""}})",
       ErrorKind::dataCorrupted, "incomingWebHook.configurationURL", ""},
      {R"({"_id":5,"incomingWebHook":{"channel":"c","configurationURL":"https://x"}})",
       ErrorKind::typeMismatch, "_id", ""},
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

TEST(Integration, NoSlacksAndAnEmptyListStayDistinct) {
  auto none = decodeJson<Ref<Integration>>(R"({"slacks":null})");
  EXPECT_FALSE(none->slacks());
  EXPECT_EQ(encodeJson(none), "{}");
  auto empty = decodeJson<Ref<Integration>>(R"({"slacks":[]})");
  ASSERT_TRUE(empty->slacks());
  EXPECT_TRUE(empty->slacks()->empty());
  EXPECT_EQ(encodeJson(empty), R"({"slacks":[]})");
}

TEST(Integration, OneBadSlackFailsTheWholeIntegrationWithItsIndex) {
  auto e = decodeError<Ref<Integration>>(std::string(R"({"slacks":[)") + kSlack +
                                         R"(,{"_id":"s2","incomingWebHook":{"channel":"c"}}]})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "configurationURL");
  EXPECT_EQ(pathOf(e), "slacks[1].incomingWebHook");

  auto integration = decodeJson<Ref<Integration>>(std::string(R"({"slacks":[)") + kSlack + "]}");
  ASSERT_EQ(integration->slacks()->size(), 1u);
  EXPECT_EQ(
      encodeJson(integration),
      R"({"slacks":[{"incomingWebHook":{"channel":"#design","configurationURL":"https://x/c"},)"
      R"("scope":"incoming-webhook"}]})");
}

TEST(IntegrationEmoji, KeepsItsKindAsGiven) {
  auto parent =
      Integration::Emoji::make("party", Integration::Emoji::Kind::parent(Url("https://e/p.png")));
  auto sibling = Integration::Emoji::make("tada", Integration::Emoji::Kind::sibling("nowhere"));
  EXPECT_EQ(parent->kind().key(), Integration::Emoji::Kind::Key::parent);
  EXPECT_EQ(parent->kind().asParent()->url, Url("https://e/p.png"));
  EXPECT_FALSE(parent->kind().asSibling());
  // A sibling names its parent by alias; nothing checks that such an emoji exists.
  EXPECT_EQ(sibling->kind().asSibling()->parentAlias, "nowhere");
  sibling->setKind(Integration::Emoji::Kind::sibling("party"));
  EXPECT_EQ(sibling->kind().asSibling()->parentAlias, "party");
}
