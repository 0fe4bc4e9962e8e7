// The JSON Schema of a type's documents, written from the field statements that decode them.
#pragma once

#include <functional>
#include <string>
#include <typeinfo>

#include <orvane/coding/Schema.hpp>
#include <orvane/json/DateStrategy.hpp>

namespace orvane {

/// Which documents a JSON Schema describes, and how it is written.
struct JsonSchemaOptions {
  /// How the documents hold dates, as the JsonDecoder or JsonEncoder with this strategy reads
  /// and writes them: text with `"format": "date-time"` for `iso8601`, numbers otherwise.
  DateStrategy dates = DateStrategy::iso8601;
  /// Describe the document form (what a JsonEncoder writes with `EncodingForm::document`):
  /// every member exactly, required where it is always written. Without it, the schema
  /// describes every document that decodes: optional members may be null, and a tolerant
  /// member, which accepts any value, constrains nothing.
  bool documentForm = false;
  /// Indent by two spaces instead of writing compact text.
  bool pretty = false;
  /// The name of a record or enumeration type, under which it stands in `"$defs"` and which is
  /// its `"title"`. When empty, `schemaTypeName`.
  std::function<std::string(const std::type_info&)> nameOf;
};

/// The JSON Schema (draft 2020-12) of the documents of the type whose shape is `shape`: that
/// type's own schema at the root, every record and enumeration it holds under `"$defs"` by
/// name, members as `"properties"` under their document keys, `"required"` listing exactly the
/// required keys, and each property's `"description"` saying how it is read and which field it
/// fills. Unknown members are allowed, as decoding ignores them.
std::string jsonSchema(const Shape& shape, const JsonSchemaOptions& options = {});

/// The JSON Schema of T's documents (`Schema<T>::shape`).
template <class T>
std::string jsonSchema(const JsonSchemaOptions& options = {}) {
  return jsonSchema(Schema<T>::shape, options);
}

/// A type's name in a schema unless told otherwise: its qualified C++ name without the
/// namespace `orvane`, with a full stop between the names: `Gradient.Stop`, `User.Partial`.
std::string schemaTypeName(const std::type_info& type);

}  // namespace orvane
