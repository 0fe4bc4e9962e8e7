// A payment plan of the service.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>

namespace orvane {

/// One payment plan: name, status, billing period, price and its limits. Users and
/// organizations name their plan by `identifier`; nothing in the library resolves that name.
class Plan {
 public:
  enum class Status { active, deprecated };
  enum class Period { monthly, annual, eternal };

  Plan(Passkey<Plan>, std::string identifier, std::string name, std::optional<Status> status,
       std::optional<Period> period, double price, bool isMultiple, std::int64_t maxProjectCount,
       std::int64_t maxVersionCount, std::int64_t maxComponentCount);

  static Ref<Plan> make(std::string identifier, std::string name, std::optional<Status> status,
                        std::optional<Period> period, double price, bool isMultiple,
                        std::int64_t maxProjectCount, std::int64_t maxVersionCount,
                        std::int64_t maxComponentCount);
  static Ref<Plan> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  /// A plain string, not an `Identifier`: plans are named, and always write their name.
  const std::string& identifier() const { return identifier_; }
  void setIdentifier(std::string value) { identifier_ = std::move(value); }
  const std::string& name() const { return name_; }
  void setName(std::string value) { name_ = std::move(value); }
  std::optional<Status> status() const { return status_; }
  void setStatus(std::optional<Status> value) { status_ = value; }
  std::optional<Period> period() const { return period_; }
  void setPeriod(std::optional<Period> value) { period_ = value; }
  double price() const { return price_; }
  void setPrice(double value) { price_ = value; }
  bool isMultiple() const { return isMultiple_; }
  void setIsMultiple(bool value) { isMultiple_ = value; }
  std::int64_t maxProjectCount() const { return maxProjectCount_; }
  void setMaxProjectCount(std::int64_t value) { maxProjectCount_ = value; }
  std::int64_t maxVersionCount() const { return maxVersionCount_; }
  void setMaxVersionCount(std::int64_t value) { maxVersionCount_ = value; }
  std::int64_t maxComponentCount() const { return maxComponentCount_; }
  void setMaxComponentCount(std::int64_t value) { maxComponentCount_ = value; }

  /// True exactly for the plan named "free" (case-sensitive, whole string).
  bool isFree() const { return identifier_ == "free"; }

 private:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view name = "name";
    static constexpr std::string_view status = "status";
    static constexpr std::string_view period = "period";
    static constexpr std::string_view price = "price";
    static constexpr std::string_view isMultiple = "multi";
    static constexpr std::string_view maxProjectCount = "limit";
    static constexpr std::string_view maxVersionCount = "allowedVersionCount";
    static constexpr std::string_view maxComponentCount = "allowedComponentCount";
  };

  std::string identifier_;
  std::string name_;
  std::optional<Status> status_;
  std::optional<Period> period_;
  double price_;
  bool isMultiple_;
  std::int64_t maxProjectCount_;
  std::int64_t maxVersionCount_;
  std::int64_t maxComponentCount_;
};

template <>
struct EnumTraits<Plan::Status> {
  static constexpr std::string_view typeName = "Status";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Plan::Status>, 2> cases{{
      {Plan::Status::active, "active", "active"},
      {Plan::Status::deprecated, "deprecated", "deprecated"},
  }};
};

template <>
struct EnumTraits<Plan::Period> {
  static constexpr std::string_view typeName = "Period";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<Plan::Period>, 3> cases{{
      {Plan::Period::monthly, "monthly", "monthly"},
      {Plan::Period::annual, "annual", "annual"},
      {Plan::Period::eternal, "eternal", "eternal"},
  }};
};

}  // namespace orvane
