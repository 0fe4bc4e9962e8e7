// A project's chat integrations, and the emoji that the client hands to a project.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// The chat-channel integrations set up for one project.
class Integration {
 public:
  class Slack;
  class Emoji;

#define ORVANE_INTEGRATION_FIELDS(F)                                                         \
  F(slacks, Slacks, std::optional<std::vector<Ref<Slack>>>, "slacks", optional, whenPresent, \
    given, plain)
  ORVANE_FIELDS(Integration, ORVANE_INTEGRATION_FIELDS)

 public:
  static Ref<Integration> make(Fields fields);
  static Ref<Integration> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
};

/// One channel of the Slack chat service that receives a project's news through an incoming
/// web hook.
class Integration::Slack {
 public:
  /// `identifier` is a plain string, not an `Identifier`, and stays with the service. The
  /// channel and its address sit together in the nested "incomingWebHook", coded with `channel`.
#define ORVANE_INTEGRATION_SLACK_FIELDS(F)                                          \
  F(identifier, Identifier, std::string, "_id", required, never, given, plain)      \
  F(channel, Channel, std::string, "incomingWebHook", custom, custom, given, plain) \
  F(configurationURL, ConfigurationURL, Url, none, none, never, given, plain)       \
  F(scope, Scope, std::optional<std::string>, "scope", optional, whenPresent, given, plain)
  ORVANE_FIELDS(Slack, ORVANE_INTEGRATION_SLACK_FIELDS)

 public:
  static Ref<Slack> make(Fields fields);
  static Ref<Slack> decode(const Decoder& decoder);
  /// Writes the web hook and the scope; the identifier stays with the service.
  void encode(Encoder& encoder) const;

 private:
  struct IncomingWebHookCodingKeys {
    static constexpr std::string_view channel = "channel";
    static constexpr std::string_view configurationURL = "configurationURL";
  };
};

/// An emoji known by an alias. Never coded: the client builds emoji and hands them to a
/// project. Nothing here compares emoji or resolves a sibling's parent.
class Integration::Emoji {
 public:
  /// Either a picture of its own, or a further alias of another emoji.
  class Kind {
   public:
#define ORVANE_INTEGRATION_EMOJI_KIND_KEY(C) C(parent, "parent") C(sibling, "sibling")
    ORVANE_ENUM(Key, ORVANE_INTEGRATION_EMOJI_KIND_KEY)
    struct Parent {
      Url url;
    };
    struct Sibling {
      std::string parentAlias;
    };

    static Kind parent(Url url) { return Kind(Parent{std::move(url)}); }
    static Kind sibling(std::string parentAlias) { return Kind(Sibling{std::move(parentAlias)}); }

    Key key() const { return std::holds_alternative<Parent>(value_) ? Key::parent : Key::sibling; }
    /// The payload of that case, or null for the other case.
    const Parent* asParent() const { return std::get_if<Parent>(&value_); }
    const Sibling* asSibling() const { return std::get_if<Sibling>(&value_); }
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Parent, Sibling> value) : value_(std::move(value)) {}
    std::variant<Parent, Sibling> value_;
  };

  Emoji(Passkey<Emoji>, std::string alias, Kind kind)
      : alias_(std::move(alias)), kind_(std::move(kind)) {}

  static Ref<Emoji> make(std::string alias, Kind kind);
  void visitFields(FieldVisitor& v) const;

  const std::string& alias() const { return alias_; }
  void setAlias(std::string value) { alias_ = std::move(value); }
  const Kind& kind() const { return kind_; }
  void setKind(Kind value) { kind_ = std::move(value); }

 private:
  std::string alias_;
  Kind kind_;
};

ORVANE_ENUM_TRAITS(Integration::Emoji::Kind::Key, "Key", ORVANE_INTEGRATION_EMOJI_KIND_KEY, false)

}  // namespace orvane
