// The TYPE names the tool knows, and what it does with each.
#pragma once

#include <any>
#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/SingleValueCodable.hpp>
#include <orvane/internal/JsonWriter.hpp>
#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/json/JsonSchema.hpp>

namespace orvane::tool {

/// A raw-value enumeration's case, without its C++ type.
struct EnumCaseText {
  std::string_view name;
  std::string_view rawValue;
};

/// A raw-value enumeration's cases in order, and which of them a value that `TypeEntry::value`
/// returned is.
struct EnumerationInfo {
  std::span<const EnumCaseText> cases;
  std::size_t (*caseIndex)(const std::any& value);
};

struct Settings {
  JsonDecoderOptions decoding;
  JsonEncoderOptions encoding;
};

/// One decode that writes text: the padded document, where the text goes, and what may go once
/// the value is decoded (the text, the parser's buffers), so that a large document and its
/// output are never in memory at once.
struct Conversion {
  JsonDecoder& decoder;
  std::string_view json;
  const Settings& settings;
  JsonSink& out;
  /// Called once the value is decoded, before any text is written; `json` is not read after.
  std::function<void()> decoded = {};
};

/// Gathers what a conversion writes.
struct StringSink final : JsonSink {
  std::string text;
  void write(std::string_view piece) override { text += piece; }
};

/// What `write` (an entry's decode or dump) writes, gathered into a string.
inline std::string gathered(void (*write)(const Conversion&), JsonDecoder& decoder,
                            std::string_view json, const Settings& settings) {
  StringSink out;
  write({decoder, json, settings, out});
  return std::move(out.text);
}

/// Each function decodes with the caller's `decoder`, made from `settings.decoding`: one per
/// run keeps the parser's buffers and the record chunks for the next document.
struct TypeEntry {
  std::string_view name;
  /// The C++ type that TYPE names (`Layer`, not `Ref<Layer>`).
  const std::type_info* type;
  /// Decodes the padded document and writes what the value writes back; null when the type
  /// is decode-only.
  void (*decode)(const Conversion& run);
  /// Decodes the padded document and writes its debug view.
  void (*dump)(const Conversion& run);
  /// Decodes the padded document and keeps nothing.
  void (*check)(JsonDecoder& decoder, std::string_view json, const Settings& settings);
  /// Decodes the padded document and writes its document form (dates as `settings` say);
  /// when `fields` is given, first shows it the decoded value, as `dump` does.
  void (*document)(const Conversion& run, FieldVisitor* fields);
  /// The JSON Schema of the documents that decode as TYPE, or of their document form.
  std::string (*schema)(const JsonSchemaOptions& options);
  /// Decodes the document (not padded) and returns the value itself, as `decode` in C++ gives
  /// it (`Ref<Layer>`, `Layer::Partial`, `Density`): for callers that hold values, not text.
  std::any (*value)(JsonDecoder& decoder, std::string_view json);
  /// For a raw-value enumeration, its cases; null for any other type.
  const EnumerationInfo* (*enumeration)();
};

/// The document form that `type` writes, gathered into a string.
inline std::string gatheredDocument(const TypeEntry& type, JsonDecoder& decoder,
                                    std::string_view json, const Settings& settings,
                                    FieldVisitor* fields) {
  StringSink out;
  type.document({decoder, json, settings, out}, fields);
  return std::move(out.text);
}

std::span<const TypeEntry> registeredTypes();
const TypeEntry* findType(std::string_view name);
/// The entry of the C++ type `type`, or null when the tool has no TYPE for it.
const TypeEntry* findType(const std::type_info& type);
/// Schema options whose records and enumerations are named by their TYPE names.
JsonSchemaOptions schemaOptions();

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
Decoded<T> decodeFor(const Conversion& run) {
  auto value = run.decoder.decodePadded<Decoded<T>>(run.json);
  if (run.decoded) run.decoded();
  return value;
}

template <class T>
void decodeAndEncode(const Conversion& run) {
  JsonEncoder(run.settings.encoding).encodeTo(run.out, decodeFor<T>(run));
}

template <class T>
void decodeOnly(JsonDecoder& decoder, std::string_view json, const Settings&) {
  (void)decoder.decodePadded<Decoded<T>>(json);
}

template <class T>
void decodeAndDocument(const Conversion& run, FieldVisitor* fields) {
  auto value = decodeFor<T>(run);
  if (fields) describe(*fields, value);
  JsonEncoderOptions options = run.settings.encoding;
  options.form = EncodingForm::document;
  JsonEncoder(options).encodeTo(run.out, value);
}

template <class T>
std::any decodeValue(JsonDecoder& decoder, std::string_view json) {
  return decoder.decode<Decoded<T>>(json);
}

template <class T>
std::size_t caseIndex(const std::any& value) {
  const T held = std::any_cast<T>(value);
  std::size_t i = 0;
  while (i < EnumTraits<T>::cases.size() && EnumTraits<T>::cases[i].value != held) ++i;
  return i;
}

template <class T>
const EnumerationInfo* enumerationOf() {
  if constexpr (RawEnum<T>) {
    static constexpr auto kCases = [] {
      std::array<EnumCaseText, EnumTraits<T>::cases.size()> cases{};
      for (std::size_t i = 0; i < cases.size(); ++i) {
        cases[i] = {EnumTraits<T>::cases[i].name, EnumTraits<T>::cases[i].rawValue};
      }
      return cases;
    }();
    static constexpr EnumerationInfo kInfo{kCases, &caseIndex<T>};
    return &kInfo;
  } else {
    return nullptr;
  }
}

template <class T>
std::string schemaOf(const JsonSchemaOptions& options) {
  return jsonSchema<T>(options);
}

/// Writes what a value shows to `out`, as it is made.
void dumpTo(JsonSink& out, bool pretty, const std::function<void(FieldVisitor&)>& show);

template <class T>
void decodeAndDump(const Conversion& run) {
  auto value = decodeFor<T>(run);
  dumpTo(run.out, run.settings.encoding.pretty,
         [&](FieldVisitor& fields) { describe(fields, value); });
}

}  // namespace detail

/// One line of the table of types: `entry<Layer>("Layer")`.
template <class T>
constexpr TypeEntry entry(std::string_view name) {
  void (*encode)(const Conversion&) = nullptr;
  if constexpr (detail::isEncodable<T>()) encode = &detail::decodeAndEncode<T>;
  return {name,
          &typeid(T),
          encode,
          &detail::decodeAndDump<T>,
          &detail::decodeOnly<T>,
          &detail::decodeAndDocument<T>,
          &detail::schemaOf<T>,
          &detail::decodeValue<T>,
          &detail::enumerationOf<T>};
}

}  // namespace orvane::tool
