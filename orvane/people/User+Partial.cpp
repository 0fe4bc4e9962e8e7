#include <orvane/people/User+Partial.hpp>

namespace orvane {

User::Partial User::Partial::decode(const Decoder& decoder) {
  using K = User::CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.email_ = c.decodeStringIfPresent(K::email);
  p.username_ = c.decodeStringIfPresent(K::username);
  p.emotar_ = c.decodeTolerant<Emotar>(K::emotar);
  p.avatarURL_ = c.decodeUrlIfPresent(K::avatarURL);
  p.token_ = c.decodeStringIfPresent(K::token);
  p.planIdentifier_ = c.decodeStringIfPresent(K::planIdentifier);
  p.notificationLastReadDate_ = c.decodeDateIfPresent(K::notificationLastReadDate);
  return p;
}

void User::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("email", email_);
  v.field("username", username_);
  v.field("emotar", emotar_);
  v.field("avatarURL", avatarURL_);
  v.field("token", token_);
  v.field("planIdentifier", planIdentifier_);
  v.field("notificationLastReadDate", notificationLastReadDate_);
}

}  // namespace orvane
