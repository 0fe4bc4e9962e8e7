// How the model's values cross into Python: identifiers and addresses as str, dates as aware
// datetime, raw-value enumerations as enum.Enum members, records as their classes. Included by
// every binding source, so that each sees the same conversions.
#pragma once

#include <any>
#include <cstddef>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>

namespace orvane::python {

namespace py = pybind11;

/// The extension module, kept while it is made so that classes can be nested in it.
void setModule(py::module_ module);
py::object theModule();

/// A Python enum.Enum class made for one raw-value enumeration, and its members in case order.
struct EnumClass {
  py::object cls;
  std::vector<py::object> members;
};

/// The class of the enumeration `type`, made on first use from `cases` (names and raw values)
/// under `qualifiedName` (`Layer.Kind.Key`); it is put into its owner's class when the owner
/// exists already.
const EnumClass& enumClass(const std::type_info& type, std::string_view qualifiedName,
                           const std::vector<std::pair<std::string, std::string>>& cases);

template <RawEnum E>
const EnumClass& enumClassOf() {
  static const EnumClass* found = nullptr;
  if (found) return *found;
  std::vector<std::pair<std::string, std::string>> cases;
  for (const auto& c : EnumTraits<E>::cases) cases.emplace_back(c.name, c.rawValue);
  found = &enumClass(typeid(E), EnumTraits<E>::typeName, cases);
  return *found;
}

/// Makes the geometry types (`orvane.Rect`, `Point`, `Size`, `Range`) in `m`.
void bindGeometry(py::module_& m);

/// What the module-level functions do with a value of one bound class.
struct ClassOps {
  /// The TYPE name (`Asset.Content`).
  std::string typeName;
  /// The value as `dump` shows it, built by `visit` into Python objects.
  void (*describe)(py::handle value, FieldVisitor& visitor);
  /// The JSON text of the value.
  std::string (*encode)(py::handle value, const JsonEncoderOptions& options);
};

/// Files the operations of the Python class `cls`.
void registerClass(py::handle cls, const ClassOps& ops);
/// The operations of `value`'s class, or null when it is no bound record.
const ClassOps* classOps(py::handle value);

/// Converts a decoded value of the C++ type `type` (as `TypeEntry::value` holds it).
void registerValue(const std::type_info& type, py::object (*toPython)(std::any& value));

/// How a decoded value of `type` becomes a Python object; null when none was registered.
py::object (*valueConverter(const std::type_info& type))(std::any&);

/// A Python keyword as a name gets a trailing underscore (`from_`).
std::string pyName(std::string_view name);

}  // namespace orvane::python

namespace pybind11::detail {

/// An identifier is its raw string.
template <>
struct type_caster<orvane::Identifier> {
  PYBIND11_TYPE_CASTER(orvane::Identifier, const_name("str"));
  bool load(handle src, bool) {
    if (!isinstance<str>(src)) return false;
    Py_ssize_t size = 0;
    const char* data = PyUnicode_AsUTF8AndSize(src.ptr(), &size);
    if (!data) {
      PyErr_Clear();
      return false;
    }
    value = orvane::Identifier(std::string_view(data, static_cast<std::size_t>(size)));
    return true;
  }
  static handle cast(const orvane::Identifier& v, return_value_policy, handle) {
    std::string_view raw = v.rawValue();
    return PyUnicode_FromStringAndSize(raw.data(), static_cast<Py_ssize_t>(raw.size()));
  }
};

/// An address is its text.
template <>
struct type_caster<orvane::Url> {
  PYBIND11_TYPE_CASTER(orvane::Url, const_name("str"));
  bool load(handle src, bool) {
    if (!isinstance<str>(src)) return false;
    value = orvane::Url(src.cast<std::string>());
    return true;
  }
  static handle cast(const orvane::Url& v, return_value_policy, handle) {
    return PyUnicode_FromStringAndSize(v.text().data(), static_cast<Py_ssize_t>(v.text().size()));
  }
};

/// A date is an aware datetime in UTC; a naive one is taken as UTC.
template <>
struct type_caster<orvane::Date> {
  PYBIND11_TYPE_CASTER(orvane::Date, const_name("datetime.datetime"));
  bool load(handle src, bool);
  static handle cast(const orvane::Date& v, return_value_policy, handle);
};

/// Rectangles, points, sizes and ranges are immutable struct sequences (`orvane.Rect`): a
/// walk over thousands of layers makes one per frame, and these cost a tenth of a class
/// instance.
#define ORVANE_PY_GEOMETRY_CASTER(Type, name)                                     \
  template <>                                                                     \
  struct type_caster<Type> {                                                      \
    PYBIND11_TYPE_CASTER(Type, const_name(name));                                 \
    bool load(handle src, bool);                                                  \
    static handle cast(const Type& v, return_value_policy, handle);               \
  };
ORVANE_PY_GEOMETRY_CASTER(orvane::Rect, "Rect")
ORVANE_PY_GEOMETRY_CASTER(orvane::Point, "Point")
ORVANE_PY_GEOMETRY_CASTER(orvane::Size, "Size")
ORVANE_PY_GEOMETRY_CASTER(orvane::Range, "Range")
#undef ORVANE_PY_GEOMETRY_CASTER

/// A raw-value enumeration is a member of its enum.Enum class; its raw string is taken too.
template <class E>
struct type_caster<E, std::enable_if_t<orvane::RawEnum<E>>> {
  PYBIND11_TYPE_CASTER(E, const_name("enum.Enum"));
  bool load(handle src, bool) {
    const auto& info = orvane::python::enumClassOf<E>();
    object raw;
    if (isinstance(src, info.cls))
      raw = src.attr("value");
    else if (isinstance<str>(src))
      raw = reinterpret_borrow<object>(src);
    else
      return false;
    auto found = orvane::fromRawValue<E>(raw.cast<std::string>());
    if (!found) return false;
    value = *found;
    return true;
  }
  static handle cast(E v, return_value_policy, handle) {
    const auto& info = orvane::python::enumClassOf<E>();
    const auto& cases = orvane::EnumTraits<E>::cases;
    for (std::size_t i = 0; i < cases.size(); ++i) {
      if (cases[i].value == v) return info.members[i].inc_ref();
    }
    return none().release();
  }
};

}  // namespace pybind11::detail
