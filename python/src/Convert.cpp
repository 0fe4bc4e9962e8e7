#include "Convert.hpp"

#include <chrono>
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

}  // namespace orvane::python

namespace pybind11::detail {

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
