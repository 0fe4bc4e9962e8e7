// The pixel density of a snapshot, an asset content or a project.
#pragma once

#include <orvane/coding/RawEnum.hpp>

namespace orvane {

#define ORVANE_DENSITY(C)                                                                     \
  C(_1x, "1x") C(_2x, "2x") C(_3x, "3x") C(mdpi, "mdpi") C(hdpi, "hdpi") C(xhdpi, "xhdpi") \
      C(xxhdpi, "xxhdpi") C(xxxhdpi, "xxxhdpi")
/// The pixel density of a snapshot, an asset content or a project: the iOS and web scales
/// first, then the Android densities.
ORVANE_ENUM(Density, ORVANE_DENSITY)

ORVANE_ENUM_TRAITS(Density, "Density", ORVANE_DENSITY, true)

}  // namespace orvane
