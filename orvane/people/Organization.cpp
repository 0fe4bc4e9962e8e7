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

void describeMilliseconds(SchemaVisitor& v) {
  v.member({.key = Organization::CodingKeys::transitionTimeInterval,
            .read = SchemaRead::optional,
            .field = "transitionTimeInterval",
            .remark = "In milliseconds; the field holds seconds."},
           Schema<double>::shape);
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

// Seconds read from a document (milliseconds divided by a thousand) multiply back to the same
// milliseconds, so the document form writes what the encoding writes.
void Organization::documentTransitionTimeInterval(KeyedEncodingContainer& c) const {
  encodeTransitionTimeInterval(c);
}

void Organization::describeTransitionTimeInterval(SchemaVisitor& v) {
  describeMilliseconds(v);
}

void Organization::encodePlanIdentifier(KeyedEncodingContainer& c) const {
  if (planIdentifier_)
    c.encode(CodingKeys::planIdentifier, *planIdentifier_);
  else
    c.encodeNil(CodingKeys::planIdentifier);
}

ORVANE_PARTIAL_DEFINE(Organization, ORVANE_ORGANIZATION_PARTIAL_FIELDS)

void Organization::Partial::decodeTransitionTimeInterval(const Decoder&,
                                                         const KeyedDecodingContainer& c) {
  transitionTimeInterval_ =
      secondsFromMilliseconds(c.decodeDoubleIfPresent(CodingKeys::transitionTimeInterval));
}

void Organization::Partial::documentTransitionTimeInterval(KeyedEncodingContainer& c) const {
  if (transitionTimeInterval_)
    c.encode(CodingKeys::transitionTimeInterval, *transitionTimeInterval_ * kMillisecondsPerSecond);
}

void Organization::Partial::describeTransitionTimeInterval(SchemaVisitor& v) {
  describeMilliseconds(v);
}

}  // namespace orvane
