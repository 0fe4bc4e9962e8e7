// The decode-only subset of a user that partial documents carry.
#pragma once

#include <orvane/people/User.hpp>

namespace orvane {

struct User::Partial {
  std::optional<Identifier> identifier;
  std::optional<std::string> email;
  std::optional<std::string> username;
  std::optional<Emotar> emotar;
  std::optional<Url> avatarURL;
  std::optional<std::string> token;
  std::optional<std::string> planIdentifier;
  std::optional<Date> notificationLastReadDate;

  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;
};

}  // namespace orvane
