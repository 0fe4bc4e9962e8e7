// An organization account of the service.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// An organization: identity, status, name, logo, what is left of its transition period, its
/// payment plan and the state of its subscription. A project refers to at most one; the client
/// fills that in, since project documents do not carry it.
class Organization {
 public:
#define ORVANE_ORGANIZATION_STATUS(C) \
  C(active, "active") C(suspended, "suspended") C(deleted, "deleted")
  /// The account's standing with the service.
  ORVANE_ENUM(Status, ORVANE_ORGANIZATION_STATUS)
#define ORVANE_ORGANIZATION_SUBSCRIPTION_STATUS(C) C(active, "active") C(pastDue, "past_due")
  /// Distinct from `User::SubscriptionStatus`, though it has the same raw strings.
  ORVANE_ENUM(SubscriptionStatus, ORVANE_ORGANIZATION_SUBSCRIPTION_STATUS)

  /// `transitionTimeInterval` is in seconds; documents carry milliseconds. The service expects
  /// the plan member even when there is none (then null).
#define ORVANE_ORGANIZATION_FIELDS(F)                                                            \
  F(identifier, Identifier, Identifier, "_id", required, never, localId, plain)                  \
  F(status, Status, std::optional<Status>, "status", tolerant, whenPresent, given, plain)        \
  F(name, Name, std::string, "name", required, always, given, plain)                             \
  F(logoURL, LogoURL, std::optional<Url>, "logo", optional, whenPresent, given, plain)           \
  F(transitionTimeInterval, TransitionTimeInterval, std::optional<double>, "transitionLeft",     \
    custom, custom, given, plain)                                                                \
  F(planIdentifier, PlanIdentifier, std::optional<std::string>, "paymentPlan", optional, custom, \
    given, plain)                                                                                \
  F(subscriptionStatus, SubscriptionStatus, std::optional<SubscriptionStatus>,                   \
    "subscriptionStatus", tolerant, whenPresent, given, plain)
  ORVANE_FIELDS(Organization, ORVANE_ORGANIZATION_FIELDS)

 public:
  class Partial;

  /// Stores the fields unchanged; the interval is in seconds.
  static Ref<Organization> make(Fields fields);
  /// Fails without "_id" or "name"; "transitionLeft" is read as milliseconds and kept as
  /// seconds, and an unknown "status" or "subscriptionStatus" gives none.
  static Ref<Organization> decode(const Decoder& decoder);
  /// Writes everything but the identifier, so the result does not decode back on its own.
  void encode(Encoder& encoder) const;
};

/// The decode-only subset of an organization that partial documents carry; it has no status.
class Organization::Partial {
#define ORVANE_ORGANIZATION_PARTIAL_FIELDS(P)                                                \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly)                   \
  P(name, Name, std::optional<std::string>, optional, readOnly)                              \
  P(logoURL, LogoURL, std::optional<Url>, optional, readOnly)                                \
  P(transitionTimeInterval, TransitionTimeInterval, std::optional<double>, custom, readOnly) \
  P(planIdentifier, PlanIdentifier, std::optional<std::string>, optional, readOnly)          \
  P(subscriptionStatus, SubscriptionStatus, std::optional<Organization::SubscriptionStatus>, \
    tolerant, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_ORGANIZATION_PARTIAL_FIELDS)
};

ORVANE_ENUM_TRAITS(Organization::Status, "Status", ORVANE_ORGANIZATION_STATUS, false)
ORVANE_ENUM_TRAITS(Organization::SubscriptionStatus, "SubscriptionStatus",
                   ORVANE_ORGANIZATION_SUBSCRIPTION_STATUS, false)

}  // namespace orvane
