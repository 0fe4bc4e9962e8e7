#include <orvane/internal/MakeRef.hpp>
#include <orvane/people/Plan.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Plan, ORVANE_PLAN_FIELDS)

}  // namespace orvane
