#include <orvane/styles/TextStyle.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(TextStyle, ORVANE_TEXT_STYLE_FIELDS)

}  // namespace orvane
