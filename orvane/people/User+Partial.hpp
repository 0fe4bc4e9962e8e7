// The decode-only subset of a user that partial documents carry.
#pragma once

#include <orvane/people/User.hpp>

namespace orvane {

class User::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& email() const { return email_; }
  const std::optional<std::string>& username() const { return username_; }
  const std::optional<Emotar>& emotar() const { return emotar_; }
  const std::optional<Url>& avatarURL() const { return avatarURL_; }
  const std::optional<std::string>& token() const { return token_; }
  void setToken(std::optional<std::string> value) { token_ = std::move(value); }
  const std::optional<std::string>& planIdentifier() const { return planIdentifier_; }
  void setPlanIdentifier(std::optional<std::string> value) { planIdentifier_ = std::move(value); }
  const std::optional<Date>& notificationLastReadDate() const { return notificationLastReadDate_; }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<std::string> email_;
  std::optional<std::string> username_;
  std::optional<Emotar> emotar_;
  std::optional<Url> avatarURL_;
  std::optional<std::string> token_;
  std::optional<std::string> planIdentifier_;
  std::optional<Date> notificationLastReadDate_;
};

}  // namespace orvane
