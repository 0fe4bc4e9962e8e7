#include "Convert.hpp"

#include <chrono>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>
#include <map>
#include <typeindex>
#include <unordered_map>

namespace orvane::python {

namespace {

// Filled while the module is made, read afterwards; both under the GIL. Never freed: the
// interpreter may already be gone when static destructors run.
auto& enumClasses() {
  static auto* map = new std::unordered_map<std::type_index, EnumClass>();
  return *map;
}
auto& classes() {
  static auto* map = new std::unordered_map<PyObject*, const ClassOps*>();
  return *map;
}
auto& values() {
  static auto* map = new std::unordered_map<std::type_index, py::object (*)(std::any&)>();
  return *map;
}

py::object*& moduleSlot() {
  static py::object* module = nullptr;
  return module;
}

}  // namespace

void setModule(py::module_ module) {
  moduleSlot() = new py::object(std::move(module));
}

py::object theModule() {
  return *moduleSlot();
}

const EnumClass& enumClass(const std::type_info& type, std::string_view qualifiedName,
                           const std::vector<std::pair<std::string, std::string>>& cases) {
  auto found = enumClasses().find(type);
  if (found != enumClasses().end()) return found->second;
  py::object orvane = theModule();
  std::string qualified(qualifiedName);
  std::string name = qualified.substr(qualified.rfind('.') + 1);
  py::list members;
  for (const auto& [caseName, raw] : cases) members.append(py::make_tuple(caseName, raw));
  py::object cls = py::module_::import("enum").attr("Enum")(
      name, members, py::arg("module") = "orvane", py::arg("qualname") = qualified);
  // Nested in its owner's class where that is a class of ours (`Layer.Kind.Key`).
  py::object owner = orvane;
  std::size_t start = 0;
  for (std::size_t dot; (dot = qualified.find('.', start)) != std::string::npos; start = dot + 1) {
    std::string part = qualified.substr(start, dot - start);
    owner = py::hasattr(owner, part.c_str()) ? owner.attr(part.c_str()) : py::object();
    if (!owner) break;
  }
  if (owner) owner.attr(name.c_str()) = cls;
  EnumClass made{cls, {}};
  for (const auto& c : cases) made.members.push_back(cls.attr(c.first.c_str()));
  return enumClasses().emplace(type, std::move(made)).first->second;
}

void registerClass(py::handle cls, const ClassOps& ops) {
  classes()[cls.ptr()] = &ops;
}

const ClassOps* classOps(py::handle value) {
  auto found = classes().find(reinterpret_cast<PyObject*>(Py_TYPE(value.ptr())));
  return found == classes().end() ? nullptr : found->second;
}

void registerValue(const std::type_info& type, py::object (*toPython)(std::any& value)) {
  values()[type] = toPython;
}

py::object (*valueConverter(const std::type_info& type))(std::any&) {
  auto found = values().find(type);
  return found == values().end() ? nullptr : found->second;
}

std::string pyName(std::string_view name) {
  static const char* const kKeywords[] = {
      "False", "None",   "True",    "and",      "as",     "assert", "async", "await",
      "break", "class",  "continue", "def",     "del",    "elif",   "else",  "except",
      "finally", "for",  "from",    "global",   "if",     "import", "in",    "is",
      "lambda", "nonlocal", "not",  "or",       "pass",   "raise",  "return", "try",
      "while", "with",   "yield"};
  for (const char* keyword : kKeywords) {
    if (name == keyword) return std::string(name) + "_";
  }
  return std::string(name);
}

namespace {

// The struct sequence types, made once with the module.
struct Geometry {
  PyTypeObject* rect = nullptr;
  PyTypeObject* point = nullptr;
  PyTypeObject* size = nullptr;
  PyTypeObject* range = nullptr;
};
Geometry geometry;

// A struct sequence type `orvane.NAME` with `fields`, built by keywords alone.
PyTypeObject* structType(py::module_& m, const char* name, const char* qualified, const char* doc,
                         std::vector<const char*> fields) {
  auto* members = new PyStructSequence_Field[fields.size() + 1]();
  for (std::size_t i = 0; i < fields.size(); ++i) members[i] = {fields[i], nullptr};
  auto* desc = new PyStructSequence_Desc{qualified, doc, members, static_cast<int>(fields.size())};
  PyTypeObject* type = PyStructSequence_NewType(desc);
  if (!type) throw py::error_already_set();
  py::handle cls(reinterpret_cast<PyObject*>(type));
  cls.attr("__module__") = "orvane";
  py::cpp_function make(
      [type, fields](py::handle, py::kwargs given) {
        PyObject* made = PyStructSequence_New(type);
        if (!made) throw py::error_already_set();
        py::object result = py::reinterpret_steal<py::object>(made);
        std::size_t used = 0;
        for (std::size_t i = 0; i < fields.size(); ++i) {
          if (!given.contains(fields[i])) {
            throw py::type_error(std::string(type->tp_name) + "() missing keyword argument '" +
                                 fields[i] + "'");
          }
          py::object value = given[fields[i]];
          // Ranges count characters; everything else is a double.
          value = type == geometry.range ? py::object(py::int_(value)) : py::object(py::float_(value));
          PyStructSequence_SetItem(made, static_cast<Py_ssize_t>(i), value.release().ptr());
          ++used;
        }
        if (used != static_cast<std::size_t>(py::len(given))) {
          throw py::type_error(std::string(type->tp_name) + "() takes only the keywords of its fields");
        }
        return result;
      },
      py::name("__new__"));
  cls.attr("__new__") = py::staticmethod(make);
  m.attr(name) = cls;
  return type;
}

}  // namespace

void bindGeometry(py::module_& m) {
  geometry.rect = structType(m, "Rect", "orvane.Rect",
                             "A rectangle as stored: origin x and y, width and height.",
                             {"x", "y", "width", "height"});
  geometry.point = structType(m, "Point", "orvane.Point", "A point.", {"x", "y"});
  geometry.size = structType(m, "Size", "orvane.Size", "A size.", {"width", "height"});
  geometry.range = structType(m, "Range", "orvane.Range",
                              "A range of characters (UTF-16 code units).", {"location", "length"});
}

namespace {

// The items of a struct sequence of `type`, or false when `src` is none.
template <class T, std::size_t N>
bool items(py::handle src, PyTypeObject* type, T (&out)[N]) {
  if (!type || !PyObject_TypeCheck(src.ptr(), type)) return false;
  for (std::size_t i = 0; i < N; ++i) {
    out[i] = py::reinterpret_borrow<py::object>(
                 PyStructSequence_GetItem(src.ptr(), static_cast<Py_ssize_t>(i)))
                 .cast<T>();
  }
  return true;
}

template <class... T>
py::handle made(PyTypeObject* type, T... values) {
  PyObject* result = PyStructSequence_New(type);
  if (!result) throw py::error_already_set();
  Py_ssize_t i = 0;
  auto put = [&](auto value) {
    using V = decltype(value);
    PyObject* item = std::is_floating_point_v<V> ? PyFloat_FromDouble(static_cast<double>(value))
                                                 : PyLong_FromLongLong(static_cast<long long>(value));
    PyStructSequence_SetItem(result, i++, item);
  };
  (put(values), ...);
  return result;
}

}  // namespace

}  // namespace orvane::python

namespace pybind11::detail {

using orvane::python::geometry;

bool type_caster<orvane::Rect>::load(handle src, bool) {
  double v[4];
  if (!orvane::python::items(src, geometry.rect, v)) return false;
  value = orvane::Rect(v[0], v[1], v[2], v[3]);
  return true;
}
handle type_caster<orvane::Rect>::cast(const orvane::Rect& r, return_value_policy, handle) {
  return orvane::python::made(geometry.rect, r.origin.x, r.origin.y, r.size.width, r.size.height);
}
bool type_caster<orvane::Point>::load(handle src, bool) {
  double v[2];
  if (!orvane::python::items(src, geometry.point, v)) return false;
  value = orvane::Point{v[0], v[1]};
  return true;
}
handle type_caster<orvane::Point>::cast(const orvane::Point& p, return_value_policy, handle) {
  return orvane::python::made(geometry.point, p.x, p.y);
}
bool type_caster<orvane::Size>::load(handle src, bool) {
  double v[2];
  if (!orvane::python::items(src, geometry.size, v)) return false;
  value = orvane::Size{v[0], v[1]};
  return true;
}
handle type_caster<orvane::Size>::cast(const orvane::Size& s, return_value_policy, handle) {
  return orvane::python::made(geometry.size, s.width, s.height);
}
bool type_caster<orvane::Range>::load(handle src, bool) {
  std::int64_t v[2];
  if (!orvane::python::items(src, geometry.range, v)) return false;
  value = orvane::Range{v[0], v[1]};
  return true;
}
handle type_caster<orvane::Range>::cast(const orvane::Range& r, return_value_policy, handle) {
  return orvane::python::made(geometry.range, r.location, r.length);
}

namespace {

struct DateTypes {
  object epoch;
  object microsecond;
  object utc;
};

const DateTypes& dateTypes() {
  static const DateTypes* types = [] {
    module_ datetime = module_::import("datetime");
    object utc = datetime.attr("timezone").attr("utc");
    return new DateTypes{datetime.attr("datetime")(1970, 1, 1, arg("tzinfo") = utc),
                         datetime.attr("timedelta")(arg("microseconds") = 1), utc};
  }();
  return *types;
}

}  // namespace

bool type_caster<orvane::Date>::load(handle src, bool) {
  module_ datetime = module_::import("datetime");
  if (!isinstance(src, datetime.attr("datetime"))) return false;
  const DateTypes& t = dateTypes();
  object aware = reinterpret_borrow<object>(src);
  if (aware.attr("tzinfo").is_none()) aware = aware.attr("replace")(arg("tzinfo") = t.utc);
  auto micros = (aware - t.epoch).attr("__floordiv__")(t.microsecond).cast<std::int64_t>();
  value = orvane::Date(std::chrono::microseconds(micros));
  return true;
}

handle type_caster<orvane::Date>::cast(const orvane::Date& v, return_value_policy, handle) {
  const DateTypes& t = dateTypes();
  std::int64_t micros = v.time_since_epoch().count();
  object result = t.epoch + t.microsecond * int_(micros);
  return result.release();
}

}  // namespace pybind11::detail
