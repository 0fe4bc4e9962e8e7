// Types represented by one raw value and coded as that single value.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Coding.hpp>

namespace orvane {

/// A type adopts single-value coding by providing
///   static constexpr std::string_view typeName;             // short name, for messages
///   static std::optional<T> fromRawValue(std::string_view);  // no value when it refuses the text
///   std::string_view rawValue() const;                      // or what converts to it
template <class T>
concept SingleValueCodable = requires(const T& t, std::string_view raw) {
  { T::typeName } -> std::convertible_to<std::string_view>;
  { T::fromRawValue(raw) } -> std::same_as<std::optional<T>>;
  { t.rawValue() } -> std::convertible_to<std::string_view>;
};

/// "Decoding <Type> from “<raw>” failed."
std::string refusedSingleValueMessage(std::string_view typeName, std::string_view raw);

/// A single-value type is coded as its raw string.
template <SingleValueCodable T>
struct Coding<T> {
  /// Text that `T::fromRawValue` refuses fails with dataCorrupted, worded by
  /// `refusedSingleValueMessage`; a value that is no string fails as a string read does.
  static T decode(const Decoder& d) {
    auto c = d.singleValueContainer();
    // A view into the document: a type that keeps its value inline copies it once, directly.
    std::string_view raw = c.decodeStringView();
    if (auto value = T::fromRawValue(raw)) return std::move(*value);
    throw DecodingError::dataCorrupted(c.pathLink(), refusedSingleValueMessage(T::typeName, raw));
  }
  /// Writes the raw value.
  static void encode(Encoder& e, const T& value) {
    e.singleValueContainer().encode(std::string_view(value.rawValue()));
  }
  /// The raw value, which a keyed container writes as the member in one call.
  static decltype(auto) text(const T& value) { return value.rawValue(); }
};

}  // namespace orvane
