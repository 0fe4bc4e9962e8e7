// An organization account of the service.
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
#include <orvane/values/Url.hpp>

namespace orvane {

/// An organization: identity, status, name, logo, what is left of its transition period, its
/// payment plan and the state of its subscription. A project refers to at most one; the client
/// fills that in, since project documents do not carry it.
class Organization {
 public:
  enum class Status { active, suspended, deleted };
  /// Distinct from `User::SubscriptionStatus`, though it has the same raw strings.
  enum class SubscriptionStatus { active, pastDue };

  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view status = "status";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view logoURL = "logo";
    static constexpr std::string_view transitionTimeInterval = "transitionLeft";
    static constexpr std::string_view planIdentifier = "paymentPlan";
    static constexpr std::string_view subscriptionStatus = "subscriptionStatus";
  };

  class Partial;

  Organization(Passkey<Organization>, Identifier identifier, std::optional<Status> status,
               std::string name, std::optional<Url> logoURL,
               std::optional<double> transitionTimeInterval,
               std::optional<std::string> planIdentifier,
               std::optional<SubscriptionStatus> subscriptionStatus);

  /// Stores the arguments unchanged; the interval is in seconds.
  static Ref<Organization> make(std::optional<Status> status, std::string name,
                                std::optional<Url> logoURL,
                                std::optional<double> transitionTimeInterval,
                                std::optional<std::string> planIdentifier,
                                std::optional<SubscriptionStatus> subscriptionStatus,
                                Identifier identifier = Identifier::local());
  static Ref<Organization> decode(const Decoder& decoder);
  /// Writes everything but the identifier, so the result does not decode back on its own.
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  std::optional<Status> status() const { return status_; }
  void setStatus(std::optional<Status> value) { status_ = value; }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  const std::optional<Url>& logoURL() const { return logoURL_; }
  void setLogoURL(std::optional<Url> value) { logoURL_ = std::move(value); }
  /// Seconds; documents carry milliseconds.
  std::optional<double> transitionTimeInterval() const { return transitionTimeInterval_; }
  void setTransitionTimeInterval(std::optional<double> value) { transitionTimeInterval_ = value; }
  const std::optional<std::string>& planIdentifier() const { return planIdentifier_; }
  void setPlanIdentifier(std::optional<std::string> value) { planIdentifier_ = std::move(value); }
  std::optional<SubscriptionStatus> subscriptionStatus() const { return subscriptionStatus_; }
  void setSubscriptionStatus(std::optional<SubscriptionStatus> value) {
    subscriptionStatus_ = value;
  }

 private:
  Identifier identifier_;
  std::optional<Status> status_;
  std::string name_;
  std::optional<Url> logoURL_;
  std::optional<double> transitionTimeInterval_;
  std::optional<std::string> planIdentifier_;
  std::optional<SubscriptionStatus> subscriptionStatus_;
};

/// The decode-only subset of an organization that partial documents carry; it has no status.
class Organization::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<Url>& logoURL() const { return logoURL_; }
  const std::optional<double>& transitionTimeInterval() const {
    return transitionTimeInterval_;
  }  // seconds
  const std::optional<std::string>& planIdentifier() const { return planIdentifier_; }
  const std::optional<SubscriptionStatus>& subscriptionStatus() const {
    return subscriptionStatus_;
  }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<std::string> name_;
  std::optional<Url> logoURL_;
  std::optional<double> transitionTimeInterval_;
  std::optional<std::string> planIdentifier_;
  std::optional<SubscriptionStatus> subscriptionStatus_;
};

template <>
struct EnumTraits<Organization::Status> {
  static constexpr std::string_view typeName = "Status";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Organization::Status>, 3> cases{{
      {Organization::Status::active, "active", "active"},
      {Organization::Status::suspended, "suspended", "suspended"},
      {Organization::Status::deleted, "deleted", "deleted"},
  }};
};

template <>
struct EnumTraits<Organization::SubscriptionStatus> {
  static constexpr std::string_view typeName = "SubscriptionStatus";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Organization::SubscriptionStatus>, 2> cases{{
      {Organization::SubscriptionStatus::active, "active", "active"},
      {Organization::SubscriptionStatus::pastDue, "past_due", "pastDue"},
  }};
};

}  // namespace orvane
