// How a fill or a layer is composited onto what lies below it.
#pragma once

#include <orvane/coding/RawEnum.hpp>

namespace orvane {

enum class BlendMode {
  normal,
  darken,
  multiply,
  colorBurn,
  lighten,
  screen,
  colorDodge,
  overlay,
  softLight,
  hardLight,
  difference,
  exclusion,
  hue,
  saturation,
  color,
  luminosity,
  sourceIn,
  sourceOut,
  sourceAtop,
  destinationOver,
  destinationIn,
  destinationOut,
  destinationAtop,
  dissolve,
  linearBurn,
  linearDodge,
  darkerColor,
  lighterColor,
  vividLight,
  linearLight,
  pinLight,
  hardMix,
  substract,
  divide
};

template <>
struct EnumTraits<BlendMode> {
  static constexpr std::string_view typeName = "BlendMode";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<BlendMode>, 34> cases{{
      {BlendMode::normal, "normal", "normal"},
      {BlendMode::darken, "darken", "darken"},
      {BlendMode::multiply, "multiply", "multiply"},
      {BlendMode::colorBurn, "color-burn", "colorBurn"},
      {BlendMode::lighten, "lighten", "lighten"},
      {BlendMode::screen, "screen", "screen"},
      {BlendMode::colorDodge, "color-dodge", "colorDodge"},
      {BlendMode::overlay, "overlay", "overlay"},
      {BlendMode::softLight, "soft-light", "softLight"},
      {BlendMode::hardLight, "hard-light", "hardLight"},
      {BlendMode::difference, "difference", "difference"},
      {BlendMode::exclusion, "exclusion", "exclusion"},
      {BlendMode::hue, "hue", "hue"},
      {BlendMode::saturation, "saturation", "saturation"},
      {BlendMode::color, "color", "color"},
      {BlendMode::luminosity, "luminosity", "luminosity"},
      {BlendMode::sourceIn, "source-in", "sourceIn"},
      {BlendMode::sourceOut, "source-out", "sourceOut"},
      {BlendMode::sourceAtop, "source-atop", "sourceAtop"},
      {BlendMode::destinationOver, "destination-over", "destinationOver"},
      {BlendMode::destinationIn, "destination-in", "destinationIn"},
      {BlendMode::destinationOut, "destination-out", "destinationOut"},
      {BlendMode::destinationAtop, "destination-atop", "destinationAtop"},
      {BlendMode::dissolve, "dissolve", "dissolve"},
      {BlendMode::linearBurn, "linear-burn", "linearBurn"},
      {BlendMode::linearDodge, "linear-dodge", "linearDodge"},
      {BlendMode::darkerColor, "darker-color", "darkerColor"},
      {BlendMode::lighterColor, "lighter-color", "lighterColor"},
      {BlendMode::vividLight, "vivid-light", "vividLight"},
      {BlendMode::linearLight, "linear-light", "linearLight"},
      {BlendMode::pinLight, "pin-light", "pinLight"},
      {BlendMode::hardMix, "hard-mix", "hardMix"},
      // The service spells it this way, in documents as in names.
      {BlendMode::substract, "substract", "substract"},
      {BlendMode::divide, "divide", "divide"},
  }};
};

}  // namespace orvane
