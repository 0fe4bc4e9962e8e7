#include <orvane/people/User+Partial.hpp>

namespace orvane {

User::Partial User::Partial::decode(const Decoder& decoder) {
  using K = User::CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier = c.decodeIfPresent<Identifier>(K::identifier);
  p.email = c.decodeStringIfPresent(K::email);
  p.username = c.decodeStringIfPresent(K::username);
  p.emotar = c.decodeTolerant<Emotar>(K::emotar);
  p.avatarURL = c.decodeUrlIfPresent(K::avatarURL);
  p.token = c.decodeStringIfPresent(K::token);
  p.planIdentifier = c.decodeStringIfPresent(K::planIdentifier);
  p.notificationLastReadDate = c.decodeDateIfPresent(K::notificationLastReadDate);
  return p;
}

void User::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier);
  v.field("email", email);
  v.field("username", username);
  v.field("emotar", emotar);
  v.field("avatarURL", avatarURL);
  v.field("token", token);
  v.field("planIdentifier", planIdentifier);
  v.field("notificationLastReadDate", notificationLastReadDate);
}

}  // namespace orvane
