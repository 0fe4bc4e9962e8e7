#include <orvane/people/User+Partial.hpp>

namespace orvane {

ORVANE_PARTIAL_DEFINE(User, ORVANE_USER_PARTIAL_FIELDS)

}  // namespace orvane
