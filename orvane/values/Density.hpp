// The pixel density of a snapshot, an asset content or a project.
#pragma once

#include <orvane/coding/RawEnum.hpp>

namespace orvane {

enum class Density { _1x, _2x, _3x, mdpi, hdpi, xhdpi, xxhdpi, xxxhdpi };

template <>
struct EnumTraits<Density> {
  static constexpr std::string_view typeName = "Density";
  static constexpr bool hasAllCases = true;
  static constexpr std::array<EnumCase<Density>, 8> cases{{
      {Density::_1x, "1x", "_1x"},
      {Density::_2x, "2x", "_2x"},
      {Density::_3x, "3x", "_3x"},
      {Density::mdpi, "mdpi", "mdpi"},
      {Density::hdpi, "hdpi", "hdpi"},
      {Density::xhdpi, "xhdpi", "xhdpi"},
      {Density::xxhdpi, "xxhdpi", "xxhdpi"},
      {Density::xxxhdpi, "xxxhdpi", "xxxhdpi"},
  }};
};

}  // namespace orvane
