/// \file
/// The field statements: one per field. A record lists its fields once, in a list macro:
///
///     #define ORVANE_BLUR_FIELDS(F)
///       F(kind, Kind, std::optional<Kind>, "type", tolerant, whenPresent, given, plain)
///       F(radius, Radius, double, "radius", required, always, given, plain)
///
/// (each line but the last continued with a backslash)
///
/// and `ORVANE_FIELDS(Blur, ORVANE_BLUR_FIELDS)` in its class turns that list into its key set,
/// stored members, accessors, the `Fields` that `make` takes, and the coding of every field;
/// `ORVANE_FIELDS_DEFINE` in its source file defines what the class only declares. The list is
/// in the order in which the record reads and writes its members and in which `make` takes them.
/// The reference shows each record's list as the "Fields" table of its class.
///
/// The columns of a field statement:
/// - `name`, `Name`: the field, and its name as setters spell it (`setName`).
/// - `Type`: as stored (a type with a comma in it needs an alias first).
/// - `"key"`: its document key (`CodingKeys::name`); `none` for a field never coded.
/// - How it is read:
///   - `required`: a required key; absent fails with keyNotFound, null with valueNotFound.
///   - `optional`: an optional key; absent or null give no value.
///   - `tolerant`: a tolerant key; every failure of the read gives no value.
///   - `orEmpty`: an optional key whose missing value is the type's empty value (0, false, "",
///     the empty list).
///   - `localOnImport`: a required key, but a fresh local value (`Type::local()`) without
///     reading it when the decoder reads from an import source.
///   - `custom`: by the record's own `decodeName(decoder, container)`.
///   - `payload`: the same, for a field with no key of its own (key `none`): it is read from
///     keys that belong to no field.
///   - `none`: never read.
/// - How it is written: `always`, `whenPresent` (left out when it holds no value),
///   `unlessLocal` (an identifier, left out when it is local), `never`, or `custom` (the
///   record's own `encodeName(container)`).
/// - What `make` does with it:
///   - `given`: a member of `Fields` that must be given.
///   - `localId`: defaults to a fresh local identifier.
///   - `currentDate`: defaults to the current time.
///   - `empty`: defaults to the empty value.
///   - `none`: not taken by `make`; the field starts empty.
/// - How it is accessed:
///   - `plain`: a stored member with a getter `name()` and a setter `setName`.
///   - `observed`: a stored member and its getter; the record defines `setName`, which runs the
///     field's wiring.
///   - `own`: the record stores or computes it and writes its accessors itself; decoding and
///     `make` store it through `setName`.
///   - `backRef`: a weak reference (Type `WeakRef<T>`) to an owner: the getter gives a `Ref<T>`
///     (empty once the owner is gone), the setter takes one; listings show the owner's
///     identifier, not the owner.
///   - `observedBackRef`: a `backRef` whose setter the record defines, to run its wiring.
///
/// Decoding and `make` store fields directly (the observers of `observed` fields do not run);
/// the record runs its own wiring afterwards.
///
/// The "how it is read" column also drives the document form and the schema: `encodeDocument`
/// writes every field that decoding reads (a `required`, `orEmpty` or `localOnImport` field
/// always, an `optional` or `tolerant` one when it has a value) under its key, and
/// `describeSchema` lists the same members with their shapes to a SchemaVisitor. A `custom` or
/// `payload` read comes with two more hooks of the record's own: `documentName(container)`,
/// which writes what `decodeName` reads, and `describeName(visitor)`, which describes it.
#pragma once

#include <concepts>
#include <initializer_list>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

#include <orvane/coding/Coding.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/coding/Schema.hpp>

namespace orvane {

/// A member of a `Fields` aggregate that `make` needs: leaving it out of the designated
/// initializers is a compile error (its default constructor is deleted). An empty list is given
/// as an empty list of its type (`std::vector<Ref<Layer>>{}`), since `{}` alone means "left out".
template <class T>
struct Required {
  Required() = delete;
  ///@{

  /// Implicit, so that a designated initializer gives the value as if the member were a T.
  template <class U>
    requires std::constructible_from<T, U&&>
  Required(U&& given) : value(std::forward<U>(given)) {}
  template <class E>
    requires std::constructible_from<T, std::initializer_list<E>>
  Required(std::initializer_list<E> given) : value(given) {}
  ///@}

  /// What was given; `make` moves it into the record.
  T value;
};

namespace detail {

/// The value type that an optional or tolerant read asks for: `std::optional<T>` reads a T, and
/// a record's `Ref` stands for its own absence.
template <class T>
struct Unwrapped {
  using type = T;
};
template <class T>
struct Unwrapped<std::optional<T>> {
  using type = T;
};

template <class T>
T&& take(T& field) {
  return std::move(field);
}
template <class T>
T&& take(Required<T>& field) {
  return std::move(field.value);
}

template <class T>
T orEmpty(std::optional<T>&& value) {
  return value ? std::move(*value) : T{};
}

template <class T>
bool isLocal(const T& identifier) {
  return identifier.isLocal();
}

}  // namespace detail

}  // namespace orvane

// --- What ORVANE_FIELDS generates, column by column ----------------------------------------

#define ORVANE_FIELD_KEY_required(name, key) static constexpr std::string_view name = key;
#define ORVANE_FIELD_KEY_optional(name, key) static constexpr std::string_view name = key;
#define ORVANE_FIELD_KEY_tolerant(name, key) static constexpr std::string_view name = key;
#define ORVANE_FIELD_KEY_orEmpty(name, key) static constexpr std::string_view name = key;
#define ORVANE_FIELD_KEY_localOnImport(name, key) static constexpr std::string_view name = key;
#define ORVANE_FIELD_KEY_custom(name, key) static constexpr std::string_view name = key;
#define ORVANE_FIELD_KEY_payload(name, key)
#define ORVANE_FIELD_KEY_none(name, key)
#define ORVANE_FIELD_KEY(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_KEY_##read(name, key)

#define ORVANE_FIELD_PARAM_given(name, Type) ::orvane::Required<Type> name;
#define ORVANE_FIELD_PARAM_localId(name, Type) Type name = Type::local();
#define ORVANE_FIELD_PARAM_currentDate(name, Type) Type name = ::orvane::now();
#define ORVANE_FIELD_PARAM_empty(name, Type) Type name{};
#define ORVANE_FIELD_PARAM_none(name, Type)
#define ORVANE_FIELD_PARAM(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_PARAM_##param(name, Type)
// For a `make` without defaults: every field it takes must be given.
#define ORVANE_FIELD_PARAM_GIVEN_given(name, Type) ORVANE_FIELD_PARAM_given(name, Type)
#define ORVANE_FIELD_PARAM_GIVEN_localId(name, Type) ORVANE_FIELD_PARAM_given(name, Type)
#define ORVANE_FIELD_PARAM_GIVEN_currentDate(name, Type) ORVANE_FIELD_PARAM_given(name, Type)
#define ORVANE_FIELD_PARAM_GIVEN_empty(name, Type) ORVANE_FIELD_PARAM_given(name, Type)
#define ORVANE_FIELD_PARAM_GIVEN_none(name, Type)
#define ORVANE_FIELD_PARAM_GIVEN(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_PARAM_GIVEN_##param(name, Type)

#define ORVANE_FIELD_ACCESSORS_plain(name, Name, Type)  \
  const Type& name() const { return name##_; }          \
  void set##Name(Type value) { name##_ = std::move(value); }
#define ORVANE_FIELD_ACCESSORS_observed(name, Name, Type) \
  const Type& name() const { return name##_; }            \
  void set##Name(Type value);
#define ORVANE_FIELD_ACCESSORS_own(name, Name, Type)
#define ORVANE_FIELD_ACCESSORS_backRef(name, Name, Type)                          \
  ::orvane::Ref<Type::element_type> name() const { return name##_.lock(); }       \
  void set##Name(const ::orvane::Ref<Type::element_type>& value) { name##_ = value; }
#define ORVANE_FIELD_ACCESSORS_observedBackRef(name, Name, Type)                  \
  ::orvane::Ref<Type::element_type> name() const { return name##_.lock(); }       \
  void set##Name(const ::orvane::Ref<Type::element_type>& value);
#define ORVANE_FIELD_ACCESSORS(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_ACCESSORS_##access(name, Name, Type)

#define ORVANE_FIELD_MEMBER_plain(name, Type) Type name##_{};
#define ORVANE_FIELD_MEMBER_observed(name, Type) Type name##_{};
#define ORVANE_FIELD_MEMBER_own(name, Type)
#define ORVANE_FIELD_MEMBER_backRef(name, Type) Type name##_{};
#define ORVANE_FIELD_MEMBER_observedBackRef(name, Type) Type name##_{};
#define ORVANE_FIELD_MEMBER(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_MEMBER_##access(name, Type)

#define ORVANE_FIELD_HOOKS_READ_custom(Name)                                                \
  void decode##Name(const ::orvane::Decoder& decoder, const ::orvane::KeyedDecodingContainer& c); \
  void document##Name(::orvane::KeyedEncodingContainer& c) const;                               \
  static void describe##Name(::orvane::SchemaVisitor& v);
#define ORVANE_FIELD_HOOKS_READ_payload(Name) ORVANE_FIELD_HOOKS_READ_custom(Name)
#define ORVANE_FIELD_HOOKS_READ_required(Name)
#define ORVANE_FIELD_HOOKS_READ_localOnImport(Name)
#define ORVANE_FIELD_HOOKS_READ_optional(Name)
#define ORVANE_FIELD_HOOKS_READ_tolerant(Name)
#define ORVANE_FIELD_HOOKS_READ_orEmpty(Name)
#define ORVANE_FIELD_HOOKS_READ_none(Name)
#define ORVANE_FIELD_HOOKS_WRITE_custom(Name) \
  void encode##Name(::orvane::KeyedEncodingContainer& c) const;
#define ORVANE_FIELD_HOOKS_WRITE_always(Name)
#define ORVANE_FIELD_HOOKS_WRITE_whenPresent(Name)
#define ORVANE_FIELD_HOOKS_WRITE_unlessLocal(Name)
#define ORVANE_FIELD_HOOKS_WRITE_never(Name)
#define ORVANE_FIELD_HOOKS(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_HOOKS_READ_##read(Name) ORVANE_FIELD_HOOKS_WRITE_##write(Name)

/// In the record's class, after its nested types: the key set `CodingKeys`, the `Fields` that
/// `make` takes, the accessors (public), then the stored members and the coding steps
/// (protected, so that a subclass codes its base's fields on the same object). Leaves the
/// class in its protected part.
#define ORVANE_FIELDS(Record, LIST)                                                      \
 public:                                                                                 \
  /** The document keys of the listed fields, under their names. */                      \
  struct CodingKeys {                                                                     \
    LIST(ORVANE_FIELD_KEY)                                                               \
  };                                                                                     \
  /** What `make` takes, in this order, with its defaults. */                            \
  struct Fields {                                                                        \
    LIST(ORVANE_FIELD_PARAM)                                                             \
  };                                                                                     \
  LIST(ORVANE_FIELD_ACCESSORS)                                                           \
  /** Lists every field, by name, to `visitor`. */                                       \
  void visitFields(::orvane::FieldVisitor& visitor) const;                               \
  /** Writes the document form: every member that decoding reads. */                     \
  void encodeDocument(::orvane::Encoder& encoder) const;                                 \
  /** Lists the members that decoding reads, with their shapes, to `visitor`. */          \
  static void describeSchema(::orvane::SchemaVisitor& visitor);                          \
  explicit Record(::orvane::Passkey<Record>) {}                                          \
                                                                                         \
 protected:                                                                              \
  /** Reads the listed fields in order; stores them without running observers. */        \
  void decodeFields(const ::orvane::Decoder& decoder, const ::orvane::KeyedDecodingContainer& c); \
  /** Writes the listed fields in order. */                                              \
  void encodeFields(::orvane::KeyedEncodingContainer& c) const;                          \
  /** Writes every listed field that decodeFields reads, as it reads it. */              \
  void documentFields(::orvane::KeyedEncodingContainer& c) const;                        \
  /** Describes every listed field that decodeFields reads. */                           \
  static void describeFields(::orvane::SchemaVisitor& v);                                \
  /** Stores what `make` was given, without running observers. */                        \
  void storeFields(Fields&& fields);                                                     \
  LIST(ORVANE_FIELD_HOOKS)                                                               \
  LIST(ORVANE_FIELD_MEMBER)

#define ORVANE_FIELD_FIRST(first, ...) first

/// In a subclass record's class, after its nested types: its own fields (LIST), coded in the
/// base's object beside the base's fields. `MAKE_ORDER` lists the base's and the own fields in
/// the order `make` takes them; a last argument `ORVANE_FIELD_PARAM_GIVEN` drops every default.
/// Generates the key set (the base's keys and the own ones), the own accessors, members and
/// hooks, the flat `Fields`, and the steps the record orders: `decodeOwnFields`,
/// `encodeOwnFields`, `visitOwnFields`, `documentOwnFields`, `describeOwnFields`, and a
/// `storeFields` of both lists. Leaves the class in its protected part.
#define ORVANE_OWN_FIELDS(Record, Base, LIST, MAKE_ORDER, ...)                          \
 public:                                                                                \
  struct CodingKeys : Base::CodingKeys {                                                \
    LIST(ORVANE_FIELD_KEY)                                                              \
  };                                                                                    \
  /** What `make` takes, in this order, with its defaults. */                           \
  struct Fields {                                                                       \
    MAKE_ORDER(ORVANE_FIELD_FIRST(__VA_ARGS__ __VA_OPT__(, ) ORVANE_FIELD_PARAM))       \
  };                                                                                    \
  LIST(ORVANE_FIELD_ACCESSORS)                                                          \
  explicit Record(::orvane::Passkey<Record>) {}                                         \
                                                                                        \
 protected:                                                                             \
  void decodeOwnFields(const ::orvane::Decoder& decoder,                                \
                       const ::orvane::KeyedDecodingContainer& c);                      \
  void encodeOwnFields(::orvane::KeyedEncodingContainer& c) const;                      \
  void visitOwnFields(::orvane::FieldVisitor& visitor) const;                           \
  void documentOwnFields(::orvane::KeyedEncodingContainer& c) const;                    \
  static void describeOwnFields(::orvane::SchemaVisitor& v);                            \
  /** Stores what `make` was given, base fields included, without running observers. */ \
  void storeFields(Fields&& fields);                                                    \
  LIST(ORVANE_FIELD_HOOKS)                                                              \
  LIST(ORVANE_FIELD_MEMBER)

// --- What ORVANE_FIELDS_DEFINE generates --------------------------------------------------

#define ORVANE_FIELD_STORE_plain(name, Name, value) name##_ = value;
#define ORVANE_FIELD_STORE_observed(name, Name, value) name##_ = value;
#define ORVANE_FIELD_STORE_own(name, Name, value) set##Name(value);

#define ORVANE_FIELD_READ_required(name, Name, Type, access) \
  ORVANE_FIELD_STORE_##access(name, Name, c.template decode<Type>(CodingKeys::name))
#define ORVANE_FIELD_READ_optional(name, Name, Type, access) \
  ORVANE_FIELD_STORE_##access(                               \
      name, Name,                                            \
      c.template decodeIfPresent<typename ::orvane::detail::Unwrapped<Type>::type>(CodingKeys::name))
#define ORVANE_FIELD_READ_tolerant(name, Name, Type, access) \
  ORVANE_FIELD_STORE_##access(                               \
      name, Name,                                            \
      c.template decodeTolerant<typename ::orvane::detail::Unwrapped<Type>::type>(CodingKeys::name))
#define ORVANE_FIELD_READ_orEmpty(name, Name, Type, access) \
  ORVANE_FIELD_STORE_##access(                              \
      name, Name, ::orvane::detail::orEmpty(c.template decodeIfPresent<Type>(CodingKeys::name)))
// Imported documents carry the source's identifiers, which mean nothing to the service.
#define ORVANE_FIELD_READ_localOnImport(name, Name, Type, access) \
  ORVANE_FIELD_STORE_##access(                                    \
      name, Name,                                                 \
      (decoder.isFromImportSource() ? Type::local() : c.template decode<Type>(CodingKeys::name)))
#define ORVANE_FIELD_READ_custom(name, Name, Type, access) decode##Name(decoder, c);
#define ORVANE_FIELD_READ_payload(name, Name, Type, access) decode##Name(decoder, c);
#define ORVANE_FIELD_READ_none(name, Name, Type, access)
#define ORVANE_FIELD_READ(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_READ_##read(name, Name, Type, access)

#define ORVANE_FIELD_WRITE_always(name, Name) c.encode(CodingKeys::name, name());
#define ORVANE_FIELD_WRITE_whenPresent(name, Name) c.encodeIfPresent(CodingKeys::name, name());
#define ORVANE_FIELD_WRITE_unlessLocal(name, Name) \
  if (!::orvane::detail::isLocal(name())) c.encode(CodingKeys::name, name());
#define ORVANE_FIELD_WRITE_never(name, Name)
#define ORVANE_FIELD_WRITE_custom(name, Name) encode##Name(c);
#define ORVANE_FIELD_WRITE(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_WRITE_##write(name, Name)

// The document form: what is read is written, as it is read. `value` is the field's.
#define ORVANE_FIELD_DOCUMENT_required(name, Name, value) c.encode(CodingKeys::name, value);
#define ORVANE_FIELD_DOCUMENT_localOnImport(name, Name, value) c.encode(CodingKeys::name, value);
#define ORVANE_FIELD_DOCUMENT_orEmpty(name, Name, value) c.encode(CodingKeys::name, value);
#define ORVANE_FIELD_DOCUMENT_optional(name, Name, value) \
  c.encodeIfPresent(CodingKeys::name, value);
#define ORVANE_FIELD_DOCUMENT_tolerant(name, Name, value) \
  c.encodeIfPresent(CodingKeys::name, value);
#define ORVANE_FIELD_DOCUMENT_custom(name, Name, value) document##Name(c);
#define ORVANE_FIELD_DOCUMENT_payload(name, Name, value) document##Name(c);
#define ORVANE_FIELD_DOCUMENT_none(name, Name, value)
#define ORVANE_FIELD_DOCUMENT(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_DOCUMENT_##read(name, Name, name())

// The schema: each member read, with the shape of its value.
#define ORVANE_FIELD_SCHEMA_MEMBER(name, Type, rule, note)                   \
  v.member({CodingKeys::name, ::orvane::SchemaRead::rule, #name, {}, note}, \
           ::orvane::Schema<Type>::shape);
#define ORVANE_FIELD_SCHEMA_required(name, Name, Type) \
  ORVANE_FIELD_SCHEMA_MEMBER(name, Type, required, {})
#define ORVANE_FIELD_SCHEMA_optional(name, Name, Type) \
  ORVANE_FIELD_SCHEMA_MEMBER(name, Type, optional, {})
#define ORVANE_FIELD_SCHEMA_tolerant(name, Name, Type) \
  ORVANE_FIELD_SCHEMA_MEMBER(name, Type, tolerant, {})
#define ORVANE_FIELD_SCHEMA_orEmpty(name, Name, Type) \
  ORVANE_FIELD_SCHEMA_MEMBER(name, Type, orEmpty, {})
#define ORVANE_FIELD_SCHEMA_localOnImport(name, Name, Type) \
  ORVANE_FIELD_SCHEMA_MEMBER(name, Type, required, ::orvane::kLocalOnImportRemark)
#define ORVANE_FIELD_SCHEMA_custom(name, Name, Type) describe##Name(v);
#define ORVANE_FIELD_SCHEMA_payload(name, Name, Type) describe##Name(v);
#define ORVANE_FIELD_SCHEMA_none(name, Name, Type)
#define ORVANE_FIELD_SCHEMA(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_SCHEMA_##read(name, Name, Type)

#define ORVANE_FIELD_TAKE_given(name, Name, access) \
  ORVANE_FIELD_STORE_##access(name, Name, ::orvane::detail::take(fields.name))
#define ORVANE_FIELD_TAKE_localId(name, Name, access) ORVANE_FIELD_TAKE_given(name, Name, access)
#define ORVANE_FIELD_TAKE_currentDate(name, Name, access) \
  ORVANE_FIELD_TAKE_given(name, Name, access)
#define ORVANE_FIELD_TAKE_empty(name, Name, access) ORVANE_FIELD_TAKE_given(name, Name, access)
#define ORVANE_FIELD_TAKE_none(name, Name, access)
#define ORVANE_FIELD_TAKE(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_TAKE_##param(name, Name, access)

#define ORVANE_FIELD_VISIT_plain(name) visitor.field(#name, name());
#define ORVANE_FIELD_VISIT_observed(name) visitor.field(#name, name());
#define ORVANE_FIELD_VISIT_own(name) visitor.field(#name, name());
#define ORVANE_FIELD_VISIT_backRef(name) visitor.field(#name, name##_);
#define ORVANE_FIELD_VISIT_observedBackRef(name) visitor.field(#name, name##_);
#define ORVANE_FIELD_VISIT(name, Name, Type, key, read, write, param, access) \
  ORVANE_FIELD_VISIT_##access(name)

/// In the record's source file: the definitions of what ORVANE_FIELDS declared, in two parts
/// for a record that lists its fields in its own way.
#define ORVANE_FIELDS_CODING_DEFINE(Record, LIST)                                              \
  void Record::decodeFields([[maybe_unused]] const ::orvane::Decoder& decoder,                 \
                            [[maybe_unused]] const ::orvane::KeyedDecodingContainer& c) {      \
    LIST(ORVANE_FIELD_READ)                                                                    \
  }                                                                                            \
  void Record::encodeFields([[maybe_unused]] ::orvane::KeyedEncodingContainer& c) const {      \
    LIST(ORVANE_FIELD_WRITE)                                                                   \
  }                                                                                            \
  void Record::documentFields([[maybe_unused]] ::orvane::KeyedEncodingContainer& c) const {    \
    LIST(ORVANE_FIELD_DOCUMENT)                                                                \
  }                                                                                            \
  void Record::describeFields([[maybe_unused]] ::orvane::SchemaVisitor& v) {                   \
    LIST(ORVANE_FIELD_SCHEMA)                                                                  \
  }                                                                                            \
  void Record::storeFields([[maybe_unused]] Fields&& fields) { LIST(ORVANE_FIELD_TAKE) }
/// The second part: `visitFields`, which lists every field by name.
#define ORVANE_FIELDS_VISIT_DEFINE(Record, LIST) \
  void Record::visitFields(::orvane::FieldVisitor& visitor) const { LIST(ORVANE_FIELD_VISIT) }
/// Both parts, for a record that lists exactly its fields.
#define ORVANE_FIELDS_DEFINE(Record, LIST) \
  ORVANE_FIELDS_CODING_DEFINE(Record, LIST) ORVANE_FIELDS_VISIT_DEFINE(Record, LIST)

/// In a subclass record's source file: the definitions of what ORVANE_OWN_FIELDS declared.
#define ORVANE_OWN_FIELDS_DEFINE(Record, LIST, MAKE_ORDER)                                   \
  void Record::decodeOwnFields([[maybe_unused]] const ::orvane::Decoder& decoder,            \
                               [[maybe_unused]] const ::orvane::KeyedDecodingContainer& c) { \
    LIST(ORVANE_FIELD_READ)                                                                  \
  }                                                                                          \
  void Record::encodeOwnFields([[maybe_unused]] ::orvane::KeyedEncodingContainer& c) const { \
    LIST(ORVANE_FIELD_WRITE)                                                                 \
  }                                                                                          \
  void Record::visitOwnFields([[maybe_unused]] ::orvane::FieldVisitor& visitor) const {      \
    LIST(ORVANE_FIELD_VISIT)                                                                 \
  }                                                                                          \
  void Record::documentOwnFields([[maybe_unused]] ::orvane::KeyedEncodingContainer& c) const { \
    LIST(ORVANE_FIELD_DOCUMENT)                                                              \
  }                                                                                          \
  void Record::describeOwnFields([[maybe_unused]] ::orvane::SchemaVisitor& v) {              \
    LIST(ORVANE_FIELD_SCHEMA)                                                                \
  }                                                                                          \
  void Record::storeFields(Fields&& fields) {                                                \
    MAKE_ORDER(ORVANE_FIELD_TAKE)                                                            \
  }

///@{

/// In the record's source file: `make` stores the fields, `decode` reads them from the
/// decoder's object and `encode` writes them to the encoder's; `make` and `decode` then run the
/// wiring member named last, if one is named. `..._CODING_DEFINE` defines all three. Where
/// `decode` is defined, so are its mirror `encodeDocument`, which writes what it reads, and
/// `describeSchema`, which describes it.
#define ORVANE_RECORD_MAKE_DEFINE(Record, ...)                            \
  ::orvane::Ref<Record> Record::make(Fields fields) {                     \
    auto record = ::orvane::makeRef<Record>(::orvane::Passkey<Record>{}); \
    record->storeFields(std::move(fields));                               \
    __VA_OPT__(record->__VA_ARGS__();)                                    \
    return record;                                                        \
  }
#define ORVANE_RECORD_DECODE_DEFINE(Record, ...)                           \
  ::orvane::Ref<Record> Record::decode(const ::orvane::Decoder& decoder) { \
    auto record = ::orvane::makeRef<Record>(::orvane::Passkey<Record>{});  \
    record->decodeFields(decoder, decoder.container());                    \
    __VA_OPT__(record->__VA_ARGS__();)                                     \
    return record;                                                         \
  }                                                                        \
  void Record::encodeDocument(::orvane::Encoder& encoder) const {          \
    auto c = encoder.container();                                          \
    documentFields(c);                                                     \
  }                                                                        \
  void Record::describeSchema(::orvane::SchemaVisitor& v) { describeFields(v); }
#define ORVANE_RECORD_ENCODE_DEFINE(Record)               \
  void Record::encode(::orvane::Encoder& encoder) const { \
    auto c = encoder.container();                         \
    encodeFields(c);                                      \
  }
#define ORVANE_RECORD_CODING_DEFINE(Record, ...)                 \
  ORVANE_RECORD_MAKE_DEFINE(Record __VA_OPT__(, ) __VA_ARGS__)   \
  ORVANE_RECORD_DECODE_DEFINE(Record __VA_OPT__(, ) __VA_ARGS__) \
  ORVANE_RECORD_ENCODE_DEFINE(Record)
///@}

/// For a record whose `make`, `decode` and `encode` are its fields' alone, then its wiring.
#define ORVANE_PLAIN_RECORD_DEFINE(Record, LIST, ...) \
  ORVANE_FIELDS_DEFINE(Record, LIST)                  \
  ORVANE_RECORD_CODING_DEFINE(Record __VA_OPT__(, ) __VA_ARGS__)
/// The same for a record that is read but never written.
#define ORVANE_DECODED_RECORD_DEFINE(Record, LIST, ...)        \
  ORVANE_FIELDS_DEFINE(Record, LIST)                           \
  ORVANE_RECORD_MAKE_DEFINE(Record __VA_OPT__(, ) __VA_ARGS__) \
  ORVANE_RECORD_DECODE_DEFINE(Record __VA_OPT__(, ) __VA_ARGS__)

// --- Decode-only partial records ------------------------------------------------------------
//
// A record's `Partial` lists the fields it reads, in reading order, one statement each:
//
//   #define ORVANE_DOT_PARTIAL_FIELDS(P)
//     P(identifier, Identifier, std::optional<Identifier>, optional, readOnly)
//     P(status, Status, std::optional<Status>, tolerant, readOnly)
//
// with the columns name, Name, Type (as stored), how read (optional, tolerant or custom, as
// for a record, under the record's own `CodingKeys`) and access (readOnly: a getter; plain: a
// getter and a setter). `ORVANE_PARTIAL_FIELDS(LIST)` is the whole body of the class and
// `ORVANE_PARTIAL_DEFINE(Record, LIST)` defines it in the record's source file.

#define ORVANE_PARTIAL_ACCESSORS_readOnly(name, Name, Type) \
  const Type& name() const { return name##_; }
#define ORVANE_PARTIAL_ACCESSORS_plain(name, Name, Type) \
  ORVANE_FIELD_ACCESSORS_plain(name, Name, Type)
#define ORVANE_PARTIAL_ACCESSORS(name, Name, Type, read, access) \
  ORVANE_PARTIAL_ACCESSORS_##access(name, Name, Type)
#define ORVANE_PARTIAL_HOOKS(name, Name, Type, read, access) ORVANE_FIELD_HOOKS_READ_##read(Name)
#define ORVANE_PARTIAL_MEMBER(name, Name, Type, read, access) Type name##_{};
#define ORVANE_PARTIAL_READ(name, Name, Type, read, access) \
  ORVANE_FIELD_READ_##read(name, Name, Type, plain)
#define ORVANE_PARTIAL_VISIT(name, Name, Type, read, access) visitor.field(#name, name##_);
#define ORVANE_PARTIAL_DOCUMENT(name, Name, Type, read, access) \
  ORVANE_FIELD_DOCUMENT_##read(name, Name, name##_)
#define ORVANE_PARTIAL_SCHEMA(name, Name, Type, read, access) \
  ORVANE_FIELD_SCHEMA_##read(name, Name, Type)

/// The body of a record's `class Partial`: `decode`, `visitFields`, `encodeDocument`,
/// `describeSchema`, the accessors (public), and the stored members. Only `decode` makes one.
#define ORVANE_PARTIAL_FIELDS(LIST)                                                               \
 public:                                                                                          \
  /** Reads the listed keys of the decoder's object, in order; nothing refers back. */            \
  static Partial decode(const ::orvane::Decoder& decoder);                                        \
  /** Lists every field, by name, to `visitor`. */                                                \
  void visitFields(::orvane::FieldVisitor& visitor) const;                                        \
  /** Writes the document form: every member that `decode` reads and found. */                   \
  void encodeDocument(::orvane::Encoder& encoder) const;                                          \
  /** Lists the members that `decode` reads, with their shapes, to `visitor`. */                  \
  static void describeSchema(::orvane::SchemaVisitor& visitor);                                   \
  LIST(ORVANE_PARTIAL_ACCESSORS)                                                                  \
                                                                                                  \
 private:                                                                                         \
  Partial() = default;                                                                            \
  void decodeFields(const ::orvane::Decoder& decoder, const ::orvane::KeyedDecodingContainer& c); \
  LIST(ORVANE_PARTIAL_HOOKS)                                                                      \
  LIST(ORVANE_PARTIAL_MEMBER)

/// In the record's source file: the definitions of what ORVANE_PARTIAL_FIELDS declared.
#define ORVANE_PARTIAL_DEFINE(Record, LIST)                                             \
  Record::Partial Record::Partial::decode(const ::orvane::Decoder& decoder) {           \
    Partial partial;                                                                    \
    partial.decodeFields(decoder, decoder.container());                                 \
    return partial;                                                                     \
  }                                                                                     \
  void Record::Partial::decodeFields([[maybe_unused]] const ::orvane::Decoder& decoder, \
                                     const ::orvane::KeyedDecodingContainer& c) {       \
    LIST(ORVANE_PARTIAL_READ)                                                           \
  }                                                                                     \
  void Record::Partial::visitFields(::orvane::FieldVisitor& visitor) const {            \
    LIST(ORVANE_PARTIAL_VISIT)                                                          \
  }                                                                                     \
  void Record::Partial::encodeDocument(::orvane::Encoder& encoder) const {              \
    [[maybe_unused]] auto c = encoder.container();                                      \
    LIST(ORVANE_PARTIAL_DOCUMENT)                                                       \
  }                                                                                     \
  void Record::Partial::describeSchema([[maybe_unused]] ::orvane::SchemaVisitor& v) {   \
    LIST(ORVANE_PARTIAL_SCHEMA)                                                         \
  }
