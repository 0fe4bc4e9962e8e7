// A person known to the service.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// An account: identity, e-mail address, avatar, status, plan and subscription. Held strongly by
/// the records that refer to it; it refers to nothing.
class User {
 public:
#define ORVANE_USER_STATUS(C) \
  C(invited, "invited") C(registered, "registered") C(verified, "verified")
  /// The account's state: invited, registered or verified.
  ORVANE_ENUM(Status, ORVANE_USER_STATUS)
#define ORVANE_USER_SUBSCRIPTION_STATUS(C) C(active, "active") C(pastDue, "past_due")
  /// Whether the account's payments are up to date.
  ORVANE_ENUM(SubscriptionStatus, ORVANE_USER_SUBSCRIPTION_STATUS)
  // One of sixty emoji avatars: its case, its raw value and the emoji it shows.
#define ORVANE_USER_EMOTAR(C)                                         \
  C(sunglasses, "sunglasses", "\U0001F60E")                           \
  C(thinkingFace, "thinking_face", "\U0001F914")                      \
  C(heartEyes, "heart_eyes", "\U0001F60D")                            \
  C(grin, "grin", "\U0001F601")                                       \
  C(sweatSmile, "sweat_smile", "\U0001F605")                          \
  C(whiteFrowningFace, "white_frowning_face", "\U00002639\U0000FE0F") \
  C(unamused, "unamused", "\U0001F612")                               \
  C(upsideDownFace, "upside_down_face", "\U0001F643")                 \
  C(relieved, "relieved", "\U0001F60C")                               \
  C(nerdFace, "nerd_face", "\U0001F913")                              \
  C(weary, "weary", "\U0001F629")                                     \
  C(anguished, "anguished", "\U0001F627")                             \
  C(faceWithRollingEyes, "face_with_rolling_eyes", "\U0001F644")      \
  C(scream, "scream", "\U0001F631")                                   \
  C(smile, "smile", "\U0001F604")                                     \
  C(smirk, "smirk", "\U0001F60F")                                     \
  C(faceWithThermometer, "face_with_thermometer", "\U0001F912")       \
  C(faceWithHeadBandage, "face_with_head_bandage", "\U0001F915")      \
  C(pandaFace, "panda_face", "\U0001F43C")                            \
  C(newMoonWithFace, "new_moon_with_face", "\U0001F31A")              \
  C(tomato, "tomato", "\U0001F345")                                   \
  C(fullMoonWithFace, "full_moon_with_face", "\U0001F31D")            \
  C(tennis, "tennis", "\U0001F3BE")                                   \
  C(spaceInvader, "space_invader", "\U0001F47E")                      \
  C(monkeyFace, "monkey_face", "\U0001F435")                          \
  C(tophat, "tophat", "\U0001F3A9")                                   \
  C(lionFace, "lion_face", "\U0001F981")                              \
  C(fourLeafClover, "four_leaf_clover", "\U0001F340")                 \
  C(shit, "shit", "\U0001F4A9")                                       \
  C(pigNose, "pig_nose", "\U0001F43D")                                \
  C(robotFace, "robot_face", "\U0001F916")                            \
  C(mouse, "mouse", "\U0001F42D")                                     \
  C(mushroom, "mushroom", "\U0001F344")                               \
  C(penguin, "penguin", "\U0001F427")                                 \
  C(chestnut, "chestnut", "\U0001F330")                               \
  C(koala, "koala", "\U0001F428")                                     \
  C(hamburger, "hamburger", "\U0001F354")                             \
  C(jackOLantern, "jack_o_lantern", "\U0001F383")                     \
  C(rabbit, "rabbit", "\U0001F430")                                   \
  C(lollipop, "lollipop", "\U0001F36D")                               \
  C(hamster, "hamster", "\U0001F439")                                 \
  C(lemon, "lemon", "\U0001F34B")                                     \
  C(TV, "TV", "\U0001F4FA")                                           \
  C(gift, "gift", "\U0001F381")                                       \
  C(ghost, "ghost", "\U0001F47B")                                     \
  C(frog, "frog", "\U0001F438")                                       \
  C(eyes, "eyes", "\U0001F440")                                       \
  C(dart, "dart", "\U0001F3AF")                                       \
  C(darkSunglasses, "dark_sunglasses", "\U0001F576")                  \
  C(chicken, "chicken", "\U0001F414")                                 \
  C(cookie, "cookie", "\U0001F36A")                                   \
  C(grapes, "grapes", "\U0001F347")                                   \
  C(bear, "bear", "\U0001F43B")                                       \
  C(eggplant, "eggplant", "\U0001F346")                               \
  C(alien, "alien", "\U0001F47D")                                     \
  C(octopus, "octopus", "\U0001F419")                                 \
  C(bread, "bread", "\U0001F35E")                                     \
  C(dog, "dog", "\U0001F436")                                         \
  C(meatOnBone, "meat_on_bone", "\U0001F356")                         \
  C(pizza, "pizza", "\U0001F355")
  /// One of sixty emoji avatars; `emoji()` gives the one it shows.
  ORVANE_ENUM(Emotar, ORVANE_USER_EMOTAR)

  /// `handle` shows in listings.
#define ORVANE_USER_FIELDS(F)                                                                 \
  F(identifier, Identifier, Identifier, "_id", required, unlessLocal, localId, plain)         \
  F(email, Email, std::string, "email", required, always, given, plain)                       \
  F(username, Username, std::optional<std::string>, "username", optional, whenPresent, given, \
    plain)                                                                                    \
  F(emotar, Emotar, std::optional<Emotar>, "emotar", tolerant, whenPresent, given, plain)     \
  F(avatarURL, AvatarURL, std::optional<Url>, "avatar", optional, whenPresent, given, plain)  \
  F(token, Token, std::optional<std::string>, "token", optional, whenPresent, given, plain)   \
  F(status, Status, std::optional<Status>, "status", tolerant, whenPresent, given, plain)     \
  F(planIdentifier, PlanIdentifier, std::optional<std::string>, "paymentPlan", optional,      \
    whenPresent, given, plain)                                                                \
  F(notificationLastReadDate, NotificationLastReadDate, std::optional<Date>,                  \
    "notificationLastReadTime", optional, whenPresent, given, plain)                          \
  F(subscriptionStatus, SubscriptionStatus, std::optional<SubscriptionStatus>,                \
    "subscriptionStatus", tolerant, whenPresent, given, plain)                                \
  F(handle, Handle, std::string, none, none, never, none, own)
  ORVANE_FIELDS(User, ORVANE_USER_FIELDS)

 public:
  class Partial;

  /// The identifier defaults to a fresh local one.
  static Ref<User> make(Fields fields);
  /// Fails without "_id" or "email"; an unknown "emotar", "status" or "subscriptionStatus"
  /// gives none.
  static Ref<User> decode(const Decoder& decoder);
  /// Writes "_id" only when it is not local, "email", and every other member when present.
  void encode(Encoder& encoder) const;

  /// The user name when there is one (even empty), otherwise the e-mail address.
  const std::string& handle() const {
    return username_ ? *username_ : email_;
  }
};

/// The emoji an emotar shows: two UTF-16 code units each.
std::string_view emoji(User::Emotar emotar);

ORVANE_ENUM_TRAITS(User::Status, "Status", ORVANE_USER_STATUS, true)
ORVANE_ENUM_TRAITS(User::SubscriptionStatus, "SubscriptionStatus", ORVANE_USER_SUBSCRIPTION_STATUS,
                   false)
ORVANE_ENUM_TRAITS(User::Emotar, "Emotar", ORVANE_USER_EMOTAR, true)

}  // namespace orvane
