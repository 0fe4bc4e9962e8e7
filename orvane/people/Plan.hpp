// A payment plan of the service.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

/// One payment plan: name, status, billing period, price and its limits. Users and
/// organizations name their plan by `identifier`; nothing in the library resolves that name.
class Plan {
 public:
#define ORVANE_PLAN_STATUS(C) C(active, "active") C(deprecated, "deprecated")
  /// Whether the plan is still offered.
  ORVANE_ENUM(Status, ORVANE_PLAN_STATUS)
#define ORVANE_PLAN_PERIOD(C) C(monthly, "monthly") C(annual, "annual") C(eternal, "eternal")
  /// How often the plan is billed; `eternal` is paid once.
  ORVANE_ENUM(Period, ORVANE_PLAN_PERIOD)

  /// `identifier` is a plain string, not an `Identifier`: plans are named, and always write their
  /// name. `isFree` shows in listings.
#define ORVANE_PLAN_FIELDS(F)                                                                      \
  F(identifier, Identifier, std::string, "_id", required, always, given, plain)                    \
  F(name, Name, std::string, "name", required, always, given, plain)                               \
  F(status, Status, std::optional<Status>, "status", tolerant, whenPresent, given, plain)          \
  F(period, Period, std::optional<Period>, "period", tolerant, whenPresent, given, plain)          \
  F(price, Price, double, "price", required, always, given, plain)                                 \
  F(isMultiple, IsMultiple, bool, "multi", required, always, given, plain)                         \
  F(maxProjectCount, MaxProjectCount, std::int64_t, "limit", required, always, given, plain)       \
  F(maxVersionCount, MaxVersionCount, std::int64_t, "allowedVersionCount", required, always,       \
    given, plain)                                                                                  \
  F(maxComponentCount, MaxComponentCount, std::int64_t, "allowedComponentCount", required, always, \
    given, plain)                                                                                  \
  F(isFree, IsFree, bool, none, none, never, none, own)
  ORVANE_FIELDS(Plan, ORVANE_PLAN_FIELDS)

 public:
  /// Takes every coded field; `isFree` follows from the identifier.
  static Ref<Plan> make(Fields fields);
  /// Fails unless "_id", "name", "price", "multi", "limit", "allowedVersionCount" and
  /// "allowedComponentCount" are all there; an unknown "status" or "period" gives none.
  static Ref<Plan> decode(const Decoder& decoder);
  /// Writes every member, "_id" included; "status" and "period" when present.
  void encode(Encoder& encoder) const;

  /// True exactly for the plan named "free" (case-sensitive, whole string).
  bool isFree() const {
    return identifier_ == "free";
  }
};

ORVANE_ENUM_TRAITS(Plan::Status, "Status", ORVANE_PLAN_STATUS, false)
ORVANE_ENUM_TRAITS(Plan::Period, "Period", ORVANE_PLAN_PERIOD, false)

}  // namespace orvane
