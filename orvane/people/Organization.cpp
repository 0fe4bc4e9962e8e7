#include <cmath>

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

// The number of milliseconds that reads back as exactly `seconds`. The product alone may round
// to a neighbour of it whose quotient is another double; one of the product's neighbours then
// divides back exactly (when any does: a value made in code may have none).
double millisecondsReadingBack(double seconds) {
  double milliseconds = seconds * kMillisecondsPerSecond;
  for (int step = 0; step < 4 && std::isfinite(milliseconds); ++step) {
    double back = milliseconds / kMillisecondsPerSecond;
    if (back == seconds) break;
    milliseconds = std::nextafter(milliseconds, back < seconds ? HUGE_VAL : -HUGE_VAL);
  }
  return milliseconds;
}

void documentMilliseconds(KeyedEncodingContainer& c, std::optional<double> seconds) {
  if (seconds)
    c.encode(Organization::CodingKeys::transitionTimeInterval, millisecondsReadingBack(*seconds));
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

void Organization::documentTransitionTimeInterval(KeyedEncodingContainer& c) const {
  documentMilliseconds(c, transitionTimeInterval_);
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
  documentMilliseconds(c, transitionTimeInterval_);
}

void Organization::Partial::describeTransitionTimeInterval(SchemaVisitor& v) {
  describeMilliseconds(v);
}

}  // namespace orvane
