// Small records that exist only to exercise the coding rules.
#pragma once

#include <optional>
#include <string>

#include <orvane/orvane.hpp>

namespace orvane::fixtures {

enum class Tone { light, dark };

}  // namespace orvane::fixtures

template <>
struct orvane::EnumTraits<orvane::fixtures::Tone> {
  static constexpr std::string_view typeName = "Tone";
  static constexpr bool hasAllCases = false;
  static constexpr std::array<EnumCase<fixtures::Tone>, 2> cases{{
      {fixtures::Tone::light, "light", "light"},
      {fixtures::Tone::dark, "dark", "dark"},
  }};
};

namespace orvane::fixtures {

/// One field per coding term.
struct Probe {
  std::string name;                   // required
  std::optional<double> weight;       // optional
  std::optional<Tone> tone;           // tolerant
  std::optional<std::int64_t> count;  // tolerant scalar

  static Probe decode(const Decoder& d) {
    auto c = d.container();
    Probe p;
    p.name = c.decode<std::string>("name");
    p.weight = c.decodeIfPresent<double>("weight");
    p.tone = c.decodeTolerant<Tone>("tone");
    p.count = c.decodeTolerant<std::int64_t>("count");
    return p;
  }
};

}  // namespace orvane::fixtures
