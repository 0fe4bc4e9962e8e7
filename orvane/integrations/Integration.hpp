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
  /// Takes the Slack channels, or `std::nullopt` for none.
  static Ref<Integration> make(Fields fields);
  /// "slacks" may be missing; when present, every channel in it must decode.
  static Ref<Integration> decode(const Decoder& decoder);
  /// Writes "slacks" when present.
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
  /// Takes every field; only the scope may be empty.
  static Ref<Slack> make(Fields fields);
  /// Fails without "_id", or without "incomingWebHook" holding a string "channel" and an
  /// address "configurationURL"; "scope" may be missing.
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
    /// Which case this is.
    ORVANE_ENUM(Key, ORVANE_INTEGRATION_EMOJI_KIND_KEY)
    /// An emoji with a picture of its own.
    struct Parent {
      Url url;  ///< where the picture is
    };
    /// Another name for an emoji that has a picture.
    struct Sibling {
      std::string parentAlias;  ///< the alias of that emoji; nothing checks that it exists
    };

    ///@{

    /// The kind of that case, with its payload.
    static Kind parent(Url url) { return Kind(Parent{std::move(url)}); }
    static Kind sibling(std::string parentAlias) { return Kind(Sibling{std::move(parentAlias)}); }
    ///@}

    /// Which case this is.
    Key key() const { return std::holds_alternative<Parent>(value_) ? Key::parent : Key::sibling; }
    ///@{

    /// The payload of that case, or null for the other case.
    const Parent* asParent() const { return std::get_if<Parent>(&value_); }
    const Sibling* asSibling() const { return std::get_if<Sibling>(&value_); }
    ///@}

    /// Lists "case", then the payload's member.
    void visitFields(FieldVisitor& v) const;

   private:
    explicit Kind(std::variant<Parent, Sibling> value) : value_(std::move(value)) {}
    std::variant<Parent, Sibling> value_;
  };

  /// Public for `makeRef` only: nobody else can make the passkey.
  Emoji(Passkey<Emoji>, std::string alias, Kind kind)
      : alias_(std::move(alias)), kind_(std::move(kind)) {}

  /// An emoji known as `alias`; the alias is not checked.
  static Ref<Emoji> make(std::string alias, Kind kind);
  /// Lists "alias" and "kind".
  void visitFields(FieldVisitor& v) const;

  ///@{

  /// The name the emoji is known by.
  const std::string& alias() const { return alias_; }
  void setAlias(std::string value) { alias_ = std::move(value); }
  ///@}

  ///@{

  /// Its picture, or the emoji it is another name for.
  const Kind& kind() const { return kind_; }
  void setKind(Kind value) { kind_ = std::move(value); }
  ///@}

 private:
  std::string alias_;
  Kind kind_;
};

ORVANE_ENUM_TRAITS(Integration::Emoji::Kind::Key, "Key", ORVANE_INTEGRATION_EMOJI_KIND_KEY, false)

}  // namespace orvane
