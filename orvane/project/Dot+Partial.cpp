#include <orvane/project/Dot+Partial.hpp>

namespace orvane {

ORVANE_PARTIAL_DEFINE(Dot, ORVANE_DOT_PARTIAL_FIELDS)

}  // namespace orvane
