#include <orvane/snapshot/Link.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Link, ORVANE_LINK_FIELDS)

}  // namespace orvane
