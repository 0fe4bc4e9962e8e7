// The TYPE names the tool knows, and what it does with each.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/SingleValueCodable.hpp>
#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/internal/JsonWriter.hpp>

namespace orvane::tool {

struct Settings {
  JsonDecoderOptions decoding;
  JsonEncoderOptions encoding;
};

/// Each function decodes with the caller's `decoder`, made from `settings.decoding`: one per
/// run keeps the parser's buffers and the record chunks for the next document.
struct TypeEntry {
  std::string_view name;
  /// Decodes the padded document and returns what the value writes back; null when the type
  /// is decode-only.
  std::string (*decode)(JsonDecoder& decoder, std::string_view json, const Settings& settings);
  /// Decodes the padded document and returns its debug view.
  std::string (*dump)(JsonDecoder& decoder, std::string_view json, const Settings& settings);
  /// Decodes the padded document and keeps nothing.
  void (*check)(JsonDecoder& decoder, std::string_view json, const Settings& settings);
};

std::span<const TypeEntry> registeredTypes();
const TypeEntry* findType(std::string_view name);

namespace detail {

template <class T>
struct IsRef : std::false_type {};
template <class T>
struct IsRef<std::shared_ptr<T>> : std::true_type {};

// What decoding a TYPE yields: a `Ref` for records held by reference, the value otherwise.
template <class T>
auto decodedType() {
  if constexpr (requires(const Decoder& d) { T::decode(d); }) {
    return std::type_identity<decltype(T::decode(std::declval<const Decoder&>()))>{};
  } else {
    return std::type_identity<T>{};
  }
}
template <class T>
using Decoded = typename decltype(decodedType<T>())::type;

template <class T>
constexpr bool isEncodable() {
  if constexpr (RawEnum<T> || SingleValueCodable<T>)
    return true;
  else
    return requires(const T& value, Encoder& e) {
      value.encode(e);
    };
}

template <class T>
std::string decodeAndEncode(JsonDecoder& decoder, std::string_view json, const Settings& settings) {
  auto value = decoder.decodePadded<Decoded<T>>(json);
  return JsonEncoder(settings.encoding).encode(value);
}

template <class T>
void decodeOnly(JsonDecoder& decoder, std::string_view json, const Settings&) {
  (void)decoder.decodePadded<Decoded<T>>(json);
}

template <class T>
std::string decodeAndDump(JsonDecoder& decoder, std::string_view json, const Settings& settings) {
  auto value = decoder.decodePadded<Decoded<T>>(json);
  std::string out;
  JsonWriter writer(out, settings.encoding.pretty);
  JsonFieldWriter fields(writer);
  describe(fields, value);
  return out;
}

}  // namespace detail

/// One line of the table of types: `entry<Layer>("Layer")`.
template <class T>
constexpr TypeEntry entry(std::string_view name) {
  if constexpr (detail::isEncodable<T>()) {
    return {name, &detail::decodeAndEncode<T>, &detail::decodeAndDump<T>, &detail::decodeOnly<T>};
  } else {
    return {name, nullptr, &detail::decodeAndDump<T>, &detail::decodeOnly<T>};
  }
}

}  // namespace orvane::tool
