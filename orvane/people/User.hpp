// A person known to the service.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// An account: identity, e-mail address, avatar, status, plan and subscription. Held strongly by
/// the records that refer to it; it refers to nothing.
class User {
 public:
  enum class Status { invited, registered, verified };
  enum class SubscriptionStatus { active, pastDue };
  /// One of sixty emoji avatars.
  enum class Emotar {
    sunglasses,
    thinkingFace,
    heartEyes,
    grin,
    sweatSmile,
    whiteFrowningFace,
    unamused,
    upsideDownFace,
    relieved,
    nerdFace,
    weary,
    anguished,
    faceWithRollingEyes,
    scream,
    smile,
    smirk,
    faceWithThermometer,
    faceWithHeadBandage,
    pandaFace,
    newMoonWithFace,
    tomato,
    fullMoonWithFace,
    tennis,
    spaceInvader,
    monkeyFace,
    tophat,
    lionFace,
    fourLeafClover,
    shit,
    pigNose,
    robotFace,
    mouse,
    mushroom,
    penguin,
    chestnut,
    koala,
    hamburger,
    jackOLantern,
    rabbit,
    lollipop,
    hamster,
    lemon,
    TV,
    gift,
    ghost,
    frog,
    eyes,
    dart,
    darkSunglasses,
    chicken,
    cookie,
    grapes,
    bear,
    eggplant,
    alien,
    octopus,
    bread,
    dog,
    meatOnBone,
    pizza
  };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view email = "email";
    static constexpr std::string_view username = "username";
    static constexpr std::string_view emotar = "emotar";
    static constexpr std::string_view avatarURL = "avatar";
    static constexpr std::string_view token = "token";
    static constexpr std::string_view status = "status";
    static constexpr std::string_view planIdentifier = "paymentPlan";
    static constexpr std::string_view notificationLastReadDate = "notificationLastReadTime";
    static constexpr std::string_view subscriptionStatus = "subscriptionStatus";
  };

  class Partial;

  User(Passkey<User>, Identifier identifier, std::string email, std::optional<std::string> username,
       std::optional<Emotar> emotar, std::optional<Url> avatarURL, std::optional<std::string> token,
       std::optional<Status> status, std::optional<std::string> planIdentifier,
       std::optional<Date> notificationLastReadDate,
       std::optional<SubscriptionStatus> subscriptionStatus);

  static Ref<User> make(std::string email, std::optional<std::string> username,
                        std::optional<Emotar> emotar, std::optional<Url> avatarURL,
                        std::optional<std::string> token, std::optional<Status> status,
                        std::optional<std::string> planIdentifier,
                        std::optional<Date> notificationLastReadDate,
                        std::optional<SubscriptionStatus> subscriptionStatus,
                        Identifier identifier = Identifier::local());
  static Ref<User> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& email() const { return email_; }
  void setEmail(std::string value) { email_ = std::move(value); }
  const std::optional<std::string>& username() const { return username_; }
  void setUsername(std::optional<std::string> value) { username_ = std::move(value); }
  std::optional<Emotar> emotar() const { return emotar_; }
  void setEmotar(std::optional<Emotar> value) { emotar_ = value; }
  const std::optional<Url>& avatarURL() const { return avatarURL_; }
  void setAvatarURL(std::optional<Url> value) { avatarURL_ = std::move(value); }
  const std::optional<std::string>& token() const { return token_; }
  void setToken(std::optional<std::string> value) { token_ = std::move(value); }
  std::optional<Status> status() const { return status_; }
  void setStatus(std::optional<Status> value) { status_ = value; }
  const std::optional<std::string>& planIdentifier() const { return planIdentifier_; }
  void setPlanIdentifier(std::optional<std::string> value) { planIdentifier_ = std::move(value); }
  std::optional<Date> notificationLastReadDate() const { return notificationLastReadDate_; }
  void setNotificationLastReadDate(std::optional<Date> value) { notificationLastReadDate_ = value; }
  std::optional<SubscriptionStatus> subscriptionStatus() const { return subscriptionStatus_; }
  void setSubscriptionStatus(std::optional<SubscriptionStatus> value) {
    subscriptionStatus_ = value;
  }

  /// The user name when there is one (even empty), otherwise the e-mail address.
  const std::string& handle() const { return username_ ? *username_ : email_; }

 private:
  Identifier identifier_;
  std::string email_;
  std::optional<std::string> username_;
  std::optional<Emotar> emotar_;
  std::optional<Url> avatarURL_;
  std::optional<std::string> token_;
  std::optional<Status> status_;
  std::optional<std::string> planIdentifier_;
  std::optional<Date> notificationLastReadDate_;
  std::optional<SubscriptionStatus> subscriptionStatus_;
};

/// The emoji an emotar shows: two UTF-16 code units each.
std::string_view emoji(User::Emotar emotar);

template <>
struct EnumTraits<User::Status> {
  static constexpr std::string_view typeName = "Status";
  static constexpr bool hasAllCases = true;
  static constexpr std::array<EnumCase<User::Status>, 3> cases{{
      {User::Status::invited, "invited", "invited"},
      {User::Status::registered, "registered", "registered"},
      {User::Status::verified, "verified", "verified"},
  }};
};

template <>
struct EnumTraits<User::SubscriptionStatus> {
  static constexpr std::string_view typeName = "SubscriptionStatus";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<User::SubscriptionStatus>, 2> cases{{
      {User::SubscriptionStatus::active, "active", "active"},
      {User::SubscriptionStatus::pastDue, "past_due", "pastDue"},
  }};
};

template <>
struct EnumTraits<User::Emotar> {
  static constexpr std::string_view typeName = "Emotar";
  static constexpr bool hasAllCases = true;
  static constexpr std::array<EnumCase<User::Emotar>, 60> cases{{
      {User::Emotar::sunglasses, "sunglasses", "sunglasses"},
      {User::Emotar::thinkingFace, "thinking_face", "thinkingFace"},
      {User::Emotar::heartEyes, "heart_eyes", "heartEyes"},
      {User::Emotar::grin, "grin", "grin"},
      {User::Emotar::sweatSmile, "sweat_smile", "sweatSmile"},
      {User::Emotar::whiteFrowningFace, "white_frowning_face", "whiteFrowningFace"},
      {User::Emotar::unamused, "unamused", "unamused"},
      {User::Emotar::upsideDownFace, "upside_down_face", "upsideDownFace"},
      {User::Emotar::relieved, "relieved", "relieved"},
      {User::Emotar::nerdFace, "nerd_face", "nerdFace"},
      {User::Emotar::weary, "weary", "weary"},
      {User::Emotar::anguished, "anguished", "anguished"},
      {User::Emotar::faceWithRollingEyes, "face_with_rolling_eyes", "faceWithRollingEyes"},
      {User::Emotar::scream, "scream", "scream"},
      {User::Emotar::smile, "smile", "smile"},
      {User::Emotar::smirk, "smirk", "smirk"},
      {User::Emotar::faceWithThermometer, "face_with_thermometer", "faceWithThermometer"},
      {User::Emotar::faceWithHeadBandage, "face_with_head_bandage", "faceWithHeadBandage"},
      {User::Emotar::pandaFace, "panda_face", "pandaFace"},
      {User::Emotar::newMoonWithFace, "new_moon_with_face", "newMoonWithFace"},
      {User::Emotar::tomato, "tomato", "tomato"},
      {User::Emotar::fullMoonWithFace, "full_moon_with_face", "fullMoonWithFace"},
      {User::Emotar::tennis, "tennis", "tennis"},
      {User::Emotar::spaceInvader, "space_invader", "spaceInvader"},
      {User::Emotar::monkeyFace, "monkey_face", "monkeyFace"},
      {User::Emotar::tophat, "tophat", "tophat"},
      {User::Emotar::lionFace, "lion_face", "lionFace"},
      {User::Emotar::fourLeafClover, "four_leaf_clover", "fourLeafClover"},
      {User::Emotar::shit, "shit", "shit"},
      {User::Emotar::pigNose, "pig_nose", "pigNose"},
      {User::Emotar::robotFace, "robot_face", "robotFace"},
      {User::Emotar::mouse, "mouse", "mouse"},
      {User::Emotar::mushroom, "mushroom", "mushroom"},
      {User::Emotar::penguin, "penguin", "penguin"},
      {User::Emotar::chestnut, "chestnut", "chestnut"},
      {User::Emotar::koala, "koala", "koala"},
      {User::Emotar::hamburger, "hamburger", "hamburger"},
      {User::Emotar::jackOLantern, "jack_o_lantern", "jackOLantern"},
      {User::Emotar::rabbit, "rabbit", "rabbit"},
      {User::Emotar::lollipop, "lollipop", "lollipop"},
      {User::Emotar::hamster, "hamster", "hamster"},
      {User::Emotar::lemon, "lemon", "lemon"},
      {User::Emotar::TV, "TV", "TV"},
      {User::Emotar::gift, "gift", "gift"},
      {User::Emotar::ghost, "ghost", "ghost"},
      {User::Emotar::frog, "frog", "frog"},
      {User::Emotar::eyes, "eyes", "eyes"},
      {User::Emotar::dart, "dart", "dart"},
      {User::Emotar::darkSunglasses, "dark_sunglasses", "darkSunglasses"},
      {User::Emotar::chicken, "chicken", "chicken"},
      {User::Emotar::cookie, "cookie", "cookie"},
      {User::Emotar::grapes, "grapes", "grapes"},
      {User::Emotar::bear, "bear", "bear"},
      {User::Emotar::eggplant, "eggplant", "eggplant"},
      {User::Emotar::alien, "alien", "alien"},
      {User::Emotar::octopus, "octopus", "octopus"},
      {User::Emotar::bread, "bread", "bread"},
      {User::Emotar::dog, "dog", "dog"},
      {User::Emotar::meatOnBone, "meat_on_bone", "meatOnBone"},
      {User::Emotar::pizza, "pizza", "pizza"},
  }};
};

}  // namespace orvane
