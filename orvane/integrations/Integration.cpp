#include <orvane/integrations/Integration.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Integration, ORVANE_INTEGRATION_FIELDS)

using Slack = Integration::Slack;
ORVANE_PLAIN_RECORD_DEFINE(Slack, ORVANE_INTEGRATION_SLACK_FIELDS)

void Slack::decodeChannel(const Decoder&, const KeyedDecodingContainer& c) {
  using H = IncomingWebHookCodingKeys;
  auto hook = c.nestedContainer(CodingKeys::channel);
  channel_ = hook.decodeString(H::channel);
  configurationURL_ = hook.decodeUrl(H::configurationURL);
}

void Slack::encodeChannel(KeyedEncodingContainer& c) const {
  using H = IncomingWebHookCodingKeys;
  auto hook = c.nestedContainer(CodingKeys::channel);
  hook.encode(H::channel, channel_);
  hook.encode(H::configurationURL, configurationURL_);
}

void Slack::documentChannel(KeyedEncodingContainer& c) const {
  encodeChannel(c);
}

void Slack::describeChannel(SchemaVisitor& v) {
  static constexpr Shape hook = Shape::object([](SchemaVisitor& h) {
    using H = IncomingWebHookCodingKeys;
    h.member({H::channel, SchemaRead::required, "channel"}, Schema<std::string>::shape);
    h.member({H::configurationURL, SchemaRead::required, "configurationURL"}, Schema<Url>::shape);
  });
  v.member({.key = CodingKeys::channel,
            .read = SchemaRead::required,
            .field = "channel",
            .remark = "An object with the channel and its configurationURL."},
           hook);
}

void Integration::Emoji::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* parent = asParent()) {
    v.field("url", parent->url);
  } else if (const auto* sibling = asSibling()) {
    v.field("parentAlias", sibling->parentAlias);
  }
}

Ref<Integration::Emoji> Integration::Emoji::make(std::string alias, Kind kind) {
  return makeRef<Emoji>(Passkey<Emoji>{}, std::move(alias), std::move(kind));
}

void Integration::Emoji::visitFields(FieldVisitor& v) const {
  v.field("alias", alias_);
  v.field("kind", kind_);
}

}  // namespace orvane
