// How each kind of value is coded: one trait, `Coding<T>`, for both directions.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>

namespace orvane {

namespace detail {

/// Whether T writes itself in the document form (every record and decode-only value does).
template <class T>
concept HasDocumentForm = requires(const T& value, Encoder& e) { value.encodeDocument(e); };
/// Whether T has an encoding operation of its own (decode-only records have none).
template <class T>
concept HasEncodingOperation = requires(const T& value, Encoder& e) { value.encode(e); };

/// Raises EncodingError at the encoder's path: a decode-only value has only its document form.
[[noreturn]] void throwDecodeOnly(const Encoder& e);

/// A record or value with fields, in the form the encoder writes.
template <class T>
void encodeRecord(Encoder& e, const T& value) {
  if constexpr (HasDocumentForm<T>) {
    if (e.form() == EncodingForm::document) return value.encodeDocument(e);
  }
  if constexpr (HasEncodingOperation<T>)
    value.encode(e);
  else
    throwDecodeOnly(e);
}

}  // namespace detail

/// How a value of T is read and written:
///   static T decode(const Decoder&);
///   static void encode(Encoder&, const T&);
/// and, optionally,
///   static std::optional<T> tryDecode(const SingleValueDecodingContainer&) noexcept;
///       a read that gives no value instead of raising for its ordinary failures, which a
///       tolerant key then uses;
///   static text(const T&);
///       for a value that is always one string: a keyed container writes it as the member.
///
/// By default a type codes itself through `static T decode(const Decoder&)` and
/// `void encode(Encoder&) const` (`void encodeDocument(Encoder&) const` when the encoder
/// writes the document form); a record held by reference likewise through
/// `static Ref<R> decode(const Decoder&)`. Raw-value enumerations, single-value types, scalars,
/// lists and geometry specialise this.
template <class T>
struct Coding {
  /// `T::decode(d)`: fails as the type's own decoding does.
  static T decode(const Decoder& d) { return T::decode(d); }
  /// `value.encode(e)`, or in the document form `value.encodeDocument(e)`. A decode-only
  /// value raises EncodingError unless the encoder writes the document form.
  static void encode(Encoder& e, const T& value) { detail::encodeRecord(e, value); }
};

/// A record held by reference: decoded into a new `Ref`, written as the record or, when null,
/// as null.
template <class R>
struct Coding<std::shared_ptr<R>> {
  /// `R::decode(d)`, which wires the new record's children; never null.
  static std::shared_ptr<R> decode(const Decoder& d) { return R::decode(d); }
  /// The record's own `encode` (in the document form, `encodeDocument`); null writes null.
  static void encode(Encoder& e, const std::shared_ptr<R>& value) {
    if (value)
      detail::encodeRecord(e, *value);
    else
      e.singleValueContainer().encodeNil();
  }
};

/// A list is an array of its elements, each coded as a T, in order.
template <class T>
struct Coding<std::vector<T>> {
  /// Fails on null (valueNotFound) or another kind than an array (typeMismatch); an element's
  /// failure propagates with the element's index in its path.
  static std::vector<T> decode(const Decoder& d) {
    auto array = d.unkeyedContainer();
    std::vector<T> out;
    out.reserve(array.count());
    while (!array.isAtEnd()) out.push_back(array.template decode<T>());
    return out;
  }
  /// Writes the elements in order; an empty list is an empty array.
  static void encode(Encoder& e, const std::vector<T>& values) {
    auto array = e.unkeyedContainer();
    if constexpr (requires { typename T::element_type; }) {
      for (std::size_t i = 0; i < values.size(); ++i) {
        // Records of a large graph lie all over the heap: ask for the next one while this one
        // is written, rather than wait for it then; all of it, as its members are read in an
        // order of their own.
#if defined(__GNUC__)
        if (i + 1 < values.size()) {
          using R = typename T::element_type;
          const char* next = reinterpret_cast<const char*>(values[i + 1].get());
          constexpr std::size_t whole = (sizeof(R) + 63) / 64, lines = whole < 16 ? whole : 16;
          for (std::size_t line = 0; line < lines; ++line) __builtin_prefetch(next + 64 * line);
        }
#endif
        array.encode(values[i]);
      }
    } else {
      for (const auto& v : values) array.encode(v);
    }
  }
};

#define ORVANE_SCALAR_CODING(Type, method)                                                \
  template <>                                                                             \
  struct Coding<Type> {                                                                   \
    static Type decode(const Decoder& d) { return d.singleValueContainer().method(); }    \
    static void encode(Encoder& e, const Type& v) { e.singleValueContainer().encode(v); } \
  };
ORVANE_SCALAR_CODING(std::string, decodeString)
ORVANE_SCALAR_CODING(double, decodeDouble)
ORVANE_SCALAR_CODING(std::int64_t, decodeInt)
ORVANE_SCALAR_CODING(bool, decodeBool)
ORVANE_SCALAR_CODING(Date, decodeDate)
ORVANE_SCALAR_CODING(Url, decodeUrl)
#undef ORVANE_SCALAR_CODING

}  // namespace orvane
