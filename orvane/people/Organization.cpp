#include <orvane/people/Organization.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

namespace {

// Documents carry the transition period in milliseconds; the record holds seconds.
constexpr double kMillisecondsPerSecond = 1000;

std::optional<double> secondsFromMilliseconds(std::optional<double> milliseconds) {
  if (!milliseconds) return std::nullopt;
  return *milliseconds / kMillisecondsPerSecond;
}

}  // namespace

Organization::Organization(Passkey<Organization>, Identifier identifier,
                           std::optional<Status> status, std::string name,
                           std::optional<Url> logoURL, std::optional<double> transitionTimeInterval,
                           std::optional<std::string> planIdentifier,
                           std::optional<SubscriptionStatus> subscriptionStatus)
    : identifier_(std::move(identifier)),
      status_(status),
      name_(std::move(name)),
      logoURL_(std::move(logoURL)),
      transitionTimeInterval_(transitionTimeInterval),
      planIdentifier_(std::move(planIdentifier)),
      subscriptionStatus_(subscriptionStatus) {}

Ref<Organization> Organization::make(std::optional<Status> status, std::string name,
                                     std::optional<Url> logoURL,
                                     std::optional<double> transitionTimeInterval,
                                     std::optional<std::string> planIdentifier,
                                     std::optional<SubscriptionStatus> subscriptionStatus,
                                     Identifier identifier) {
  return makeRef<Organization>(Passkey<Organization>{}, std::move(identifier), status,
                               std::move(name), std::move(logoURL), transitionTimeInterval,
                               std::move(planIdentifier), subscriptionStatus);
}

Ref<Organization> Organization::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto status = c.decodeTolerant<Status>(K::status);
  auto name = c.decodeString(K::name);
  auto logoURL = c.decodeUrlIfPresent(K::logoURL);
  auto interval = secondsFromMilliseconds(c.decodeDoubleIfPresent(K::transitionTimeInterval));
  auto planIdentifier = c.decodeStringIfPresent(K::planIdentifier);
  auto subscriptionStatus = c.decodeTolerant<SubscriptionStatus>(K::subscriptionStatus);
  return makeRef<Organization>(Passkey<Organization>{}, std::move(identifier), status,
                               std::move(name), std::move(logoURL), interval,
                               std::move(planIdentifier), subscriptionStatus);
}

void Organization::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::status, status_);
  c.encode(K::name, name_);
  c.encodeIfPresent(K::logoURL, logoURL_);
  if (transitionTimeInterval_)
    c.encode(K::transitionTimeInterval, *transitionTimeInterval_ * kMillisecondsPerSecond);
  // The service expects the plan member even when there is none.
  if (planIdentifier_)
    c.encode(K::planIdentifier, *planIdentifier_);
  else
    c.encodeNil(K::planIdentifier);
  c.encodeIfPresent(K::subscriptionStatus, subscriptionStatus_);
}

void Organization::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("status", status_);
  v.field("name", name_);
  v.field("logoURL", logoURL_);
  v.field("transitionTimeInterval", transitionTimeInterval_);
  v.field("planIdentifier", planIdentifier_);
  v.field("subscriptionStatus", subscriptionStatus_);
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
