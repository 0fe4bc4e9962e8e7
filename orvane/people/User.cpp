#include <orvane/people/User.hpp>

#include <array>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

std::string_view emoji(User::Emotar emotar) {
  static constexpr std::array<std::string_view, 60> table{
      "\U0001F60E",            // sunglasses
      "\U0001F914",            // thinkingFace
      "\U0001F60D",            // heartEyes
      "\U0001F601",            // grin
      "\U0001F605",            // sweatSmile
      "\U00002639\U0000FE0F",  // whiteFrowningFace
      "\U0001F612",            // unamused
      "\U0001F643",            // upsideDownFace
      "\U0001F60C",            // relieved
      "\U0001F913",            // nerdFace
      "\U0001F629",            // weary
      "\U0001F627",            // anguished
      "\U0001F644",            // faceWithRollingEyes
      "\U0001F631",            // scream
      "\U0001F604",            // smile
      "\U0001F60F",            // smirk
      "\U0001F912",            // faceWithThermometer
      "\U0001F915",            // faceWithHeadBandage
      "\U0001F43C",            // pandaFace
      "\U0001F31A",            // newMoonWithFace
      "\U0001F345",            // tomato
      "\U0001F31D",            // fullMoonWithFace
      "\U0001F3BE",            // tennis
      "\U0001F47E",            // spaceInvader
      "\U0001F435",            // monkeyFace
      "\U0001F3A9",            // tophat
      "\U0001F981",            // lionFace
      "\U0001F340",            // fourLeafClover
      "\U0001F4A9",            // shit
      "\U0001F43D",            // pigNose
      "\U0001F916",            // robotFace
      "\U0001F42D",            // mouse
      "\U0001F344",            // mushroom
      "\U0001F427",            // penguin
      "\U0001F330",            // chestnut
      "\U0001F428",            // koala
      "\U0001F354",            // hamburger
      "\U0001F383",            // jackOLantern
      "\U0001F430",            // rabbit
      "\U0001F36D",            // lollipop
      "\U0001F439",            // hamster
      "\U0001F34B",            // lemon
      "\U0001F4FA",            // TV
      "\U0001F381",            // gift
      "\U0001F47B",            // ghost
      "\U0001F438",            // frog
      "\U0001F440",            // eyes
      "\U0001F3AF",            // dart
      "\U0001F576",            // darkSunglasses
      "\U0001F414",            // chicken
      "\U0001F36A",            // cookie
      "\U0001F347",            // grapes
      "\U0001F43B",            // bear
      "\U0001F346",            // eggplant
      "\U0001F47D",            // alien
      "\U0001F419",            // octopus
      "\U0001F35E",            // bread
      "\U0001F436",            // dog
      "\U0001F356",            // meatOnBone
      "\U0001F355",            // pizza
  };
  return table[static_cast<std::size_t>(emotar)];
}

User::User(Passkey<User>, Identifier identifier, std::string email,
           std::optional<std::string> username, std::optional<Emotar> emotar,
           std::optional<Url> avatarURL, std::optional<std::string> token,
           std::optional<Status> status, std::optional<std::string> planIdentifier,
           std::optional<Date> notificationLastReadDate,
           std::optional<SubscriptionStatus> subscriptionStatus)
    : identifier_(std::move(identifier)),
      email_(std::move(email)),
      username_(std::move(username)),
      emotar_(emotar),
      avatarURL_(std::move(avatarURL)),
      token_(std::move(token)),
      status_(status),
      planIdentifier_(std::move(planIdentifier)),
      notificationLastReadDate_(notificationLastReadDate),
      subscriptionStatus_(subscriptionStatus) {}

Ref<User> User::make(std::string email, std::optional<std::string> username,
                     std::optional<Emotar> emotar, std::optional<Url> avatarURL,
                     std::optional<std::string> token, std::optional<Status> status,
                     std::optional<std::string> planIdentifier,
                     std::optional<Date> notificationLastReadDate,
                     std::optional<SubscriptionStatus> subscriptionStatus, Identifier identifier) {
  return makeRef<User>(Passkey<User>{}, std::move(identifier), std::move(email),
                                std::move(username), emotar, std::move(avatarURL), std::move(token),
                                status, std::move(planIdentifier), notificationLastReadDate,
                                subscriptionStatus);
}

Ref<User> User::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto email = c.decodeString(K::email);
  auto username = c.decodeStringIfPresent(K::username);
  auto emotar = c.decodeTolerant<Emotar>(K::emotar);
  auto avatarURL = c.decodeUrlIfPresent(K::avatarURL);
  auto token = c.decodeStringIfPresent(K::token);
  auto status = c.decodeTolerant<Status>(K::status);
  auto planIdentifier = c.decodeStringIfPresent(K::planIdentifier);
  auto notificationLastReadDate = c.decodeDateIfPresent(K::notificationLastReadDate);
  auto subscriptionStatus = c.decodeTolerant<SubscriptionStatus>(K::subscriptionStatus);
  return makeRef<User>(Passkey<User>{}, std::move(identifier), std::move(email),
                                std::move(username), emotar, std::move(avatarURL), std::move(token),
                                status, std::move(planIdentifier), notificationLastReadDate,
                                subscriptionStatus);
}

void User::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  if (!identifier_.isLocal()) c.encode(K::identifier, identifier_.rawValue());
  c.encode(K::email, email_);
  c.encodeIfPresent(K::username, username_);
  c.encodeIfPresent(K::emotar, emotar_);
  c.encodeIfPresent(K::avatarURL, avatarURL_);
  c.encodeIfPresent(K::token, token_);
  c.encodeIfPresent(K::status, status_);
  c.encodeIfPresent(K::planIdentifier, planIdentifier_);
  c.encodeIfPresent(K::notificationLastReadDate, notificationLastReadDate_);
  c.encodeIfPresent(K::subscriptionStatus, subscriptionStatus_);
}

void User::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("email", email_);
  v.field("username", username_);
  v.field("emotar", emotar_);
  v.field("avatarURL", avatarURL_);
  v.field("token", token_);
  v.field("status", status_);
  v.field("planIdentifier", planIdentifier_);
  v.field("notificationLastReadDate", notificationLastReadDate_);
  v.field("subscriptionStatus", subscriptionStatus_);
  v.field("handle", handle());
}

}  // namespace orvane
