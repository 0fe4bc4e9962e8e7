// The description that may come with a version: who made the change, why, and a color label.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/values/Color.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User.hpp>

namespace orvane {

class Version;

/// A commit refers back weakly to the version that adopted it; it has no identity of its own.
class Commit {
 public:
  Commit(Passkey<Commit>, Ref<User> author, std::optional<std::string> message, Ref<Color> color)
      : author_(std::move(author)), message_(std::move(message)), color_(std::move(color)) {}

  static Ref<Commit> make(Ref<User> author, std::optional<std::string> message, Ref<Color> color);
  /// Every key is optional: an empty object is a commit without author, message or color.
  static Ref<Commit> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Ref<User>& author() const { return author_; }
  void setAuthor(Ref<User> value) { author_ = std::move(value); }
  const std::optional<std::string>& message() const { return message_; }
  void setMessage(std::optional<std::string> value) { message_ = std::move(value); }
  const Ref<Color>& color() const { return color_; }
  void setColor(Ref<Color> value) { color_ = std::move(value); }
  /// The version holding this commit; set by that version, empty once it is gone.
  Ref<Version> version() const { return version_.lock(); }
  void setVersion(const Ref<Version>& value) { version_ = value; }

 private:
  struct CodingKeys {
    static constexpr std::string_view author = "author";
    static constexpr std::string_view message = "message";
    static constexpr std::string_view color = "color";
  };

  Ref<User> author_;
  std::optional<std::string> message_;
  Ref<Color> color_;
  WeakRef<Version> version_;
};

}  // namespace orvane
