#include <orvane/styles/RangedTextStyle.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(RangedTextStyle, ORVANE_RANGED_TEXT_STYLE_FIELDS)

}  // namespace orvane
