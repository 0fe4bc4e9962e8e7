#include <orvane/integrations/Integration.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Integration> Integration::make(std::optional<std::vector<Ref<Slack>>> slacks) {
  return makeRef<Integration>(Passkey<Integration>{}, std::move(slacks));
}

Ref<Integration> Integration::decode(const Decoder& decoder) {
  auto c = decoder.container();
  return make(c.decodeIfPresent<std::vector<Ref<Slack>>>(CodingKeys::slacks));
}

void Integration::encode(Encoder& encoder) const {
  auto c = encoder.container();
  c.encodeIfPresent(CodingKeys::slacks, slacks_);
}

void Integration::visitFields(FieldVisitor& v) const {
  v.field("slacks", slacks_);
}

Ref<Integration::Slack> Integration::Slack::make(std::string identifier, std::string channel,
                                                 Url configurationURL,
                                                 std::optional<std::string> scope) {
  return makeRef<Slack>(Passkey<Slack>{}, std::move(identifier), std::move(channel),
                                 std::move(configurationURL), std::move(scope));
}

Ref<Integration::Slack> Integration::Slack::decode(const Decoder& decoder) {
  using K = CodingKeys;
  using H = IncomingWebHookCodingKeys;
  auto c = decoder.container();
  auto identifier = c.decodeString(K::identifier);
  auto hook = c.nestedContainer(K::incomingWebHook);
  auto channel = hook.decodeString(H::channel);
  auto configurationURL = hook.decodeUrl(H::configurationURL);
  auto scope = c.decodeStringIfPresent(K::scope);
  return make(std::move(identifier), std::move(channel), std::move(configurationURL),
              std::move(scope));
}

void Integration::Slack::encode(Encoder& encoder) const {
  using K = CodingKeys;
  using H = IncomingWebHookCodingKeys;
  auto c = encoder.container();
  auto hook = c.nestedContainer(K::incomingWebHook);
  hook.encode(H::channel, channel_);
  hook.encode(H::configurationURL, configurationURL_);
  c.encodeIfPresent(K::scope, scope_);
}

void Integration::Slack::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("channel", channel_);
  v.field("configurationURL", configurationURL_);
  v.field("scope", scope_);
}

void Integration::Emoji::Kind::visitFields(FieldVisitor& v) const {
  v.key("case");
  if (const auto* parent = asParent()) {
    v.string("parent");
    v.field("url", parent->url);
  } else if (const auto* sibling = asSibling()) {
    v.string("sibling");
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
