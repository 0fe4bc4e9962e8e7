// How a fill or a layer is composited onto what lies below it.
#pragma once

#include <orvane/coding/RawEnum.hpp>

namespace orvane {

// The service spells `substract` this way, in documents as in names.
#define ORVANE_BLEND_MODE(C)                                                                  \
  C(normal, "normal")                                                                         \
  C(darken, "darken")                                                                         \
  C(multiply, "multiply")                                                                     \
  C(colorBurn, "color-burn")                                                                  \
  C(lighten, "lighten")                                                                       \
  C(screen, "screen")                                                                         \
  C(colorDodge, "color-dodge")                                                                \
  C(overlay, "overlay")                                                                       \
  C(softLight, "soft-light")                                                                  \
  C(hardLight, "hard-light")                                                                  \
  C(difference, "difference")                                                                 \
  C(exclusion, "exclusion")                                                                   \
  C(hue, "hue")                                                                               \
  C(saturation, "saturation")                                                                 \
  C(color, "color")                                                                           \
  C(luminosity, "luminosity")                                                                 \
  C(sourceIn, "source-in")                                                                    \
  C(sourceOut, "source-out")                                                                  \
  C(sourceAtop, "source-atop")                                                                \
  C(destinationOver, "destination-over")                                                      \
  C(destinationIn, "destination-in")                                                          \
  C(destinationOut, "destination-out")                                                        \
  C(destinationAtop, "destination-atop")                                                      \
  C(dissolve, "dissolve")                                                                     \
  C(linearBurn, "linear-burn")                                                                \
  C(linearDodge, "linear-dodge")                                                              \
  C(darkerColor, "darker-color")                                                              \
  C(lighterColor, "lighter-color")                                                            \
  C(vividLight, "vivid-light")                                                                \
  C(linearLight, "linear-light")                                                              \
  C(pinLight, "pin-light")                                                                    \
  C(hardMix, "hard-mix")                                                                      \
  C(substract, "substract")                                                                   \
  C(divide, "divide")
/// How a fill or a layer is composited onto what lies below it.
ORVANE_ENUM(BlendMode, ORVANE_BLEND_MODE)

ORVANE_ENUM_TRAITS(BlendMode, "BlendMode", ORVANE_BLEND_MODE, false)

}  // namespace orvane
