#include <orvane/styles/Blur.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Blur, ORVANE_BLUR_FIELDS)

}  // namespace orvane
