#include <orvane/values/Color.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Color, ORVANE_COLOR_FIELDS)

}  // namespace orvane
