// A project's chat integrations, and the emoji that the client hands to a project.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// The chat-channel integrations set up for one project.
class Integration {
 public:
  class Slack;
  class Emoji;

  struct CodingKeys {
    static constexpr std::string_view slacks = "slacks";
  };

  Integration(Passkey<Integration>, std::optional<std::vector<Ref<Slack>>> slacks)
      : slacks_(std::move(slacks)) {}

  static Ref<Integration> make(std::optional<std::vector<Ref<Slack>>> slacks);
  static Ref<Integration> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const std::optional<std::vector<Ref<Slack>>>& slacks() const { return slacks_; }
  void setSlacks(std::optional<std::vector<Ref<Slack>>> value) { slacks_ = std::move(value); }

 private:
  std::optional<std::vector<Ref<Slack>>> slacks_;
};

/// One channel of the Slack chat service that receives a project's news through an incoming
/// web hook.
class Integration::Slack {
 public:
  Slack(Passkey<Slack>, std::string identifier, std::string channel, Url configurationURL,
        std::optional<std::string> scope)
      : identifier_(std::move(identifier)),
        channel_(std::move(channel)),
        configurationURL_(std::move(configurationURL)),
        scope_(std::move(scope)) {}

  static Ref<Slack> make(std::string identifier, std::string channel, Url configurationURL,
                         std::optional<std::string> scope);
  static Ref<Slack> decode(const Decoder& decoder);
  /// Writes the web hook and the scope; the identifier stays with the service.
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  /// A plain string, not an `Identifier`.
  const std::string& identifier() const { return identifier_; }
  void setIdentifier(std::string value) { identifier_ = std::move(value); }
  const std::string& channel() const { return channel_; }
  void setChannel(std::string value) { channel_ = std::move(value); }
  const Url& configurationURL() const { return configurationURL_; }
  void setConfigurationURL(Url value) { configurationURL_ = std::move(value); }
  const std::optional<std::string>& scope() const { return scope_; }
  void setScope(std::optional<std::string> value) { scope_ = std::move(value); }

 private:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view incomingWebHook = "incomingWebHook";
    static constexpr std::string_view scope = "scope";
  };
  struct IncomingWebHookCodingKeys {
    static constexpr std::string_view channel = "channel";
    static constexpr std::string_view configurationURL = "configurationURL";
  };

  std::string identifier_;
  std::string channel_;
  Url configurationURL_;
  std::optional<std::string> scope_;
};

/// An emoji known by an alias. Never coded: the client builds emoji and hands them to a
/// project. Nothing here compares emoji or resolves a sibling's parent.
class Integration::Emoji {
 public:
  /// Either a picture of its own, or a further alias of another emoji.
  class Kind {
   public:
    enum class Key { parent, sibling };
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

}  // namespace orvane
