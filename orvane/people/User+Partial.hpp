// The decode-only subset of a user that partial documents carry.
#pragma once

#include <orvane/people/User.hpp>

namespace orvane {

/// Every member optional; an unknown emotar is no emotar. No status, no subscription status.
/// The token and the plan identifier can be set afterwards.
class User::Partial {
#define ORVANE_USER_PARTIAL_FIELDS(P)                                            \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly)       \
  P(email, Email, std::optional<std::string>, optional, readOnly)                \
  P(username, Username, std::optional<std::string>, optional, readOnly)          \
  P(emotar, Emotar, std::optional<User::Emotar>, tolerant, readOnly)             \
  P(avatarURL, AvatarURL, std::optional<Url>, optional, readOnly)                \
  P(token, Token, std::optional<std::string>, optional, plain)                   \
  P(planIdentifier, PlanIdentifier, std::optional<std::string>, optional, plain) \
  P(notificationLastReadDate, NotificationLastReadDate, std::optional<Date>, optional, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_USER_PARTIAL_FIELDS)
};

}  // namespace orvane
