#include <orvane/people/Plan.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Plan::Plan(Passkey<Plan>, std::string identifier, std::string name, std::optional<Status> status,
           std::optional<Period> period, double price, bool isMultiple,
           std::int64_t maxProjectCount, std::int64_t maxVersionCount,
           std::int64_t maxComponentCount)
    : identifier_(std::move(identifier)),
      name_(std::move(name)),
      status_(status),
      period_(period),
      price_(price),
      isMultiple_(isMultiple),
      maxProjectCount_(maxProjectCount),
      maxVersionCount_(maxVersionCount),
      maxComponentCount_(maxComponentCount) {}

Ref<Plan> Plan::make(std::string identifier, std::string name, std::optional<Status> status,
                     std::optional<Period> period, double price, bool isMultiple,
                     std::int64_t maxProjectCount, std::int64_t maxVersionCount,
                     std::int64_t maxComponentCount) {
  return makeRef<Plan>(Passkey<Plan>{}, std::move(identifier), std::move(name), status,
                                period, price, isMultiple, maxProjectCount, maxVersionCount,
                                maxComponentCount);
}

Ref<Plan> Plan::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decodeString(K::identifier);
  auto name = c.decodeString(K::name);
  auto status = c.decodeTolerant<Status>(K::status);
  auto period = c.decodeTolerant<Period>(K::period);
  auto price = c.decodeDouble(K::price);
  auto isMultiple = c.decodeBool(K::isMultiple);
  auto maxProjectCount = c.decodeInt(K::maxProjectCount);
  auto maxVersionCount = c.decodeInt(K::maxVersionCount);
  auto maxComponentCount = c.decodeInt(K::maxComponentCount);
  return make(std::move(identifier), std::move(name), status, period, price, isMultiple,
              maxProjectCount, maxVersionCount, maxComponentCount);
}

void Plan::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::identifier, identifier_);
  c.encode(K::name, name_);
  c.encodeIfPresent(K::status, status_);
  c.encodeIfPresent(K::period, period_);
  c.encode(K::price, price_);
  c.encode(K::isMultiple, isMultiple_);
  c.encode(K::maxProjectCount, maxProjectCount_);
  c.encode(K::maxVersionCount, maxVersionCount_);
  c.encode(K::maxComponentCount, maxComponentCount_);
}

void Plan::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("name", name_);
  v.field("status", status_);
  v.field("period", period_);
  v.field("price", price_);
  v.field("isMultiple", isMultiple_);
  v.field("maxProjectCount", maxProjectCount_);
  v.field("maxVersionCount", maxVersionCount_);
  v.field("maxComponentCount", maxComponentCount_);
  v.field("isFree", isFree());
}

}  // namespace orvane
