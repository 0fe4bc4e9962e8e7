#include <orvane/styles/Shadow.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Shadow, ORVANE_SHADOW_FIELDS)

}  // namespace orvane
