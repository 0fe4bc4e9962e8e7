#include <orvane/styles/Gradient.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Gradient, ORVANE_GRADIENT_FIELDS)

}  // namespace orvane
