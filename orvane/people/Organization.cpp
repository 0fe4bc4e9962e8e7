#include <orvane/internal/MakeRef.hpp>
#include <orvane/people/Organization.hpp>

namespace orvane {

namespace {

// Documents carry the transition period in milliseconds; the record holds seconds.
constexpr double kMillisecondsPerSecond = 1000;

std::optional<double> secondsFromMilliseconds(std::optional<double> milliseconds) {
  if (!milliseconds) return std::nullopt;
  return *milliseconds / kMillisecondsPerSecond;
}

}  // namespace

ORVANE_PLAIN_RECORD_DEFINE(Organization, ORVANE_ORGANIZATION_FIELDS)

void Organization::decodeTransitionTimeInterval(const Decoder&, const KeyedDecodingContainer& c) {
  transitionTimeInterval_ =
      secondsFromMilliseconds(c.decodeDoubleIfPresent(CodingKeys::transitionTimeInterval));
}

void Organization::encodeTransitionTimeInterval(KeyedEncodingContainer& c) const {
  if (transitionTimeInterval_)
    c.encode(CodingKeys::transitionTimeInterval, *transitionTimeInterval_ * kMillisecondsPerSecond);
}

void Organization::encodePlanIdentifier(KeyedEncodingContainer& c) const {
  if (planIdentifier_)
    c.encode(CodingKeys::planIdentifier, *planIdentifier_);
  else
    c.encodeNil(CodingKeys::planIdentifier);
}

Organization::Partial Organization::Partial::decode(const Decoder& decoder) {
  using K = Organization::CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.name_ = c.decodeStringIfPresent(K::name);
  p.logoURL_ = c.decodeUrlIfPresent(K::logoURL);
  p.transitionTimeInterval_ =
      secondsFromMilliseconds(c.decodeDoubleIfPresent(K::transitionTimeInterval));
  p.planIdentifier_ = c.decodeStringIfPresent(K::planIdentifier);
  p.subscriptionStatus_ = c.decodeTolerant<SubscriptionStatus>(K::subscriptionStatus);
  return p;
}

void Organization::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("logoURL", logoURL_);
  v.field("transitionTimeInterval", transitionTimeInterval_);
  v.field("planIdentifier", planIdentifier_);
  v.field("subscriptionStatus", subscriptionStatus_);
}

}  // namespace orvane
