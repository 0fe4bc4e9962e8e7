/// \file
/// What a document of each type holds, told by the same field statements that decode it: each
/// record lists its members (key, how the key is read, the field it fills, the shape of its
/// value) to a SchemaVisitor. A JSON Schema (orvane/json/JsonSchema.hpp) and bindings for other
/// languages are written from that listing, never from code per record.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/SingleValueCodable.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

class SchemaVisitor;

/// The shape of one value in a document. Shapes are constants (`Schema<T>::shape`), linked to
/// one another; a record's members are listed on demand by `describe`, so recursive records
/// (a group's layers) need no cycle of constants.
struct Shape {
  /// What the value is.
  enum class Kind : std::uint8_t {
    string,       ///< a string
    integer,      ///< an integral number within 64 bits
    number,       ///< any number
    boolean,      ///< true or false
    date,         ///< a date, as the coder's date strategy writes it
    url,          ///< a non-empty URI reference
    identifier,   ///< an `Identifier`: any string
    enumeration,  ///< one of `rawValues`: a raw-value enumeration named by `type`
    array,        ///< an array of `element`
    object,       ///< an object whose members `describe` lists; no type of its own (a rectangle)
    record,       ///< the object of the type `type`, whose members `describe` lists
  };
  Kind kind;                                    ///< what the value is
  const std::type_info* type = nullptr;         ///< for `enumeration` and `record`: which type
  const Shape* element = nullptr;               ///< for `array`: the elements' shape
  void (*describe)(SchemaVisitor&) = nullptr;   ///< for `object` and `record`: lists the members
  std::span<const std::string_view> rawValues;  ///< for `enumeration`: the strings, in order

  /// An object whose members `describe` lists, without a type of its own.
  static constexpr Shape object(void (*describe)(SchemaVisitor&)) {
    return {Kind::object, nullptr, nullptr, describe, {}};
  }
};

/// How decoding reads a member: the coding terms of the field statements.
enum class SchemaRead : std::uint8_t {
  required,  ///< absent fails (keyNotFound), null fails (valueNotFound), another kind fails
  optional,  ///< absent or null give no value; another kind fails
  tolerant,  ///< any value: one that does not read gives no value, and decoding goes on
  orEmpty,   ///< absent or null give a default (the empty value); another kind fails
};

/// One member of a document object, as a record's statements describe it.
struct SchemaMember {
  std::string_view key;    ///< the member's name in the document
  SchemaRead read;         ///< how decoding reads it
  std::string_view field;  ///< the field it fills, named as `dump` names it
  /// For `orEmpty`: what an absent value gives, when it is not the type's empty value.
  std::string_view whenAbsent = {};
  /// Anything more that a reader of the document must know, or empty.
  std::string_view remark = {};
};

/// The remark on an identifier that is not read from an import source (`localOnImport`).
inline constexpr std::string_view kLocalOnImportRemark =
    "Not read when decoding from an import source: the record then gets a fresh local "
    "identifier.";

/// Told the members of one document object. A record's `describeSchema` lists its members in
/// the order it reads them; members of a payload stand between `beginCase` and `endCase`.
class SchemaVisitor {
 public:
  virtual ~SchemaVisitor();
  /// A member whose value has `shape` (for an optional field, the shape of its value).
  virtual void member(const SchemaMember& member, const Shape& shape) = 0;
  /// The members of `record` stand in this same object (a subclass's base, a border's fill).
  virtual void membersOf(const Shape& record) = 0;
  /// The members listed until `endCase` are read only when the member `key` holds the string
  /// `raw`: the payload of one case of an enumeration with payloads.
  virtual void beginCase(std::string_view key, std::string_view raw) = 0;
  /// The payload begun last ends.
  virtual void endCase() = 0;
};

/// How a value of T looks in a document: `static constexpr Shape shape`. Records and values
/// with a static `describeSchema(SchemaVisitor&)` are `record`s; scalars, lists, raw-value
/// enumerations, identifiers and geometry specialise this.
template <class T>
struct Schema {
  /// The record's object, its members listed by `T::describeSchema`.
  static constexpr Shape shape{Shape::Kind::record, &typeid(T), nullptr, &T::describeSchema, {}};
};

/// A record held by reference looks like the record.
template <class R>
struct Schema<std::shared_ptr<R>> : Schema<R> {};
/// An optional value, where present, looks like the value.
template <class T>
struct Schema<std::optional<T>> : Schema<T> {};

/// A list is an array of its elements.
template <class T>
struct Schema<std::vector<T>> {
  /// An array of T.
  static constexpr Shape shape{Shape::Kind::array, nullptr, &Schema<T>::shape, nullptr, {}};
};

/// A raw-value enumeration is one of its cases' strings.
template <RawEnum E>
struct Schema<E> {
  /// The cases' strings, in declaration order.
  static constexpr auto rawValues = [] {
    std::array<std::string_view, EnumTraits<E>::cases.size()> out{};
    for (std::size_t i = 0; i < out.size(); ++i) out[i] = EnumTraits<E>::cases[i].rawValue;
    return out;
  }();
  /// An enumeration named by E.
  static constexpr Shape shape{Shape::Kind::enumeration, &typeid(E), nullptr, nullptr, rawValues};
};

/// A single-value type (`Identifier`) is a string.
template <SingleValueCodable T>
struct Schema<T> {
  /// Any string.
  static constexpr Shape shape{Shape::Kind::identifier, &typeid(T), nullptr, nullptr, {}};
};

/// A scalar's shape: one kind, nothing more.
#define ORVANE_SCALAR_SCHEMA(Type, kind)                                            \
  template <>                                                                       \
  struct Schema<Type> {                                                             \
    static constexpr Shape shape{Shape::Kind::kind, nullptr, nullptr, nullptr, {}}; \
  };
ORVANE_SCALAR_SCHEMA(std::string, string)
ORVANE_SCALAR_SCHEMA(double, number)
ORVANE_SCALAR_SCHEMA(std::int64_t, integer)
ORVANE_SCALAR_SCHEMA(bool, boolean)
ORVANE_SCALAR_SCHEMA(Date, date)
ORVANE_SCALAR_SCHEMA(Url, url)
#undef ORVANE_SCALAR_SCHEMA

}  // namespace orvane
