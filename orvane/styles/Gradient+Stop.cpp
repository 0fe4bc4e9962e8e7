#include <orvane/styles/Gradient+Stop.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Gradient::Stop, ORVANE_GRADIENT_STOP_FIELDS)

}  // namespace orvane
