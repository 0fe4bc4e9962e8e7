/// \file
/// Raw-value enumerations: cases coded as fixed strings. Each enumeration supplies one table;
/// every operation (raw value, lookup, coding, messages, allCases) is derived from it here.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/Coding.hpp>

namespace orvane {

/// One row of an enumeration's table.
template <class E>
struct EnumCase {
  E value;                    ///< the enumerator
  std::string_view rawValue;  ///< as coded
  std::string_view name;      ///< the enumerator, as debug views show it
};

/// Specialised once per enumeration, with:
///
///     static constexpr std::string_view typeName;            // short name, for messages
///     static constexpr std::array<EnumCase<E>, N> cases;     // in declaration order
///     static constexpr bool hasAllCases;                      // whether allCases() is offered
///
/// An enumeration states its cases once, as a list macro of `C(case, "raw value")`:
///
///     #define ORVANE_BLUR_KIND(C) C(gaussian, "gaussian") C(background, "background")
///
/// declared with `ORVANE_ENUM(Kind, ORVANE_BLUR_KIND)` and given its traits, after its owner,
/// with `ORVANE_ENUM_TRAITS(Blur::Kind, "Kind", ORVANE_BLUR_KIND, false)`. A case may carry
/// further columns, for its owner's own tables: both macros pass them over.
template <class E>
struct EnumTraits;

/// What `ORVANE_ENUM` makes of one case: its enumerator.
#define ORVANE_ENUM_CASE(name, raw, ...) name,
/// Declares `enum class Enum` with the cases of the list macro `CASES`, in its order.
#define ORVANE_ENUM(Enum, CASES) enum class Enum { CASES(ORVANE_ENUM_CASE) };
/// What `ORVANE_ENUM_TRAITS` makes of one case: its row of the table.
#define ORVANE_ENUM_TRAITS_CASE(name, raw, ...) {Enum::name, raw, #name},
/// Specialises `EnumTraits` for `EnumType`, named `shortName` in messages, from the same list
/// `CASES`; `allCasesListed` says whether `allCases()` is offered. At namespace scope, after
/// the enumeration's owner.
#define ORVANE_ENUM_TRAITS(EnumType, shortName, CASES, allCasesListed)     \
  template <>                                                             \
  struct EnumTraits<EnumType> {                                           \
    using Enum = EnumType;                                                \
    static constexpr std::string_view typeName = shortName;               \
    static constexpr bool hasAllCases = allCasesListed;                   \
    static constexpr auto cases = std::to_array<EnumCase<Enum>>({CASES(ORVANE_ENUM_TRAITS_CASE)}); \
  };

template <class E>
concept RawEnum = requires {
  EnumTraits<E>::cases;
};

/// The string the case is coded as; empty for a value that is no case.
template <RawEnum E>
constexpr std::string_view rawValue(E value) {
  for (const auto& c : EnumTraits<E>::cases) {
    if (c.value == value) return c.rawValue;
  }
  return {};
}

/// The enumerator's name (`photoshop`, `_2x`).
template <RawEnum E>
constexpr std::string_view caseName(E value) {
  for (const auto& c : EnumTraits<E>::cases) {
    if (c.value == value) return c.name;
  }
  return {};
}

/// Exact, case-sensitive match of the whole string.
template <RawEnum E>
constexpr std::optional<E> fromRawValue(std::string_view raw) {
  for (const auto& c : EnumTraits<E>::cases) {
    if (c.rawValue == raw) return c.value;
  }
  return std::nullopt;
}

/// Every case in declaration order, for the enumerations whose traits offer it.
template <RawEnum E>
requires(EnumTraits<E>::hasAllCases) std::vector<E> allCases() {
  std::vector<E> out;
  for (const auto& c : EnumTraits<E>::cases) out.push_back(c.value);
  return out;
}

/// "Cannot initialize <Type> from invalid String value <raw>".
std::string invalidRawValueMessage(std::string_view typeName, std::string_view raw);

/// A raw-value enumeration is coded as its case's string.
template <RawEnum E>
struct Coding<E> {
  /// An unknown string fails with dataCorrupted, worded by `invalidRawValueMessage`; a value
  /// that is no string fails as a string read does.
  static E decode(const Decoder& d) {
    auto c = d.singleValueContainer();
    std::string_view raw = c.decodeStringView();
    if (auto value = fromRawValue<E>(raw)) return *value;
    throw DecodingError::dataCorrupted(c.pathLink(),
                                       invalidRawValueMessage(EnumTraits<E>::typeName, raw));
  }
  /// For tolerant keys: no value for anything but a known string, without raising.
  static std::optional<E> tryDecode(const SingleValueDecodingContainer& c) noexcept {
    auto raw = c.tryStringView();
    return raw ? fromRawValue<E>(*raw) : std::nullopt;
  }
  /// Writes the case's string.
  static void encode(Encoder& e, E value) { e.singleValueContainer().encode(rawValue(value)); }
  /// The case's string, which a keyed container writes as the member in one call.
  static std::string_view text(E value) { return rawValue(value); }
};

}  // namespace orvane
