// Writes the module's type stubs (orvane/__init__.pyi) from the same field statements that
// the bindings expand, so that what editors are told is what the module has.
#include <cstdint>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include "RecordTable.hpp"
#include "Types.hpp"

namespace orvane::python {

namespace {

std::string pyName(std::string_view name) {
  static const char* const kKeywords[] = {
      "False", "None",  "True",    "and",   "as",     "assert",   "async",  "await", "break",
      "class", "continue", "def",  "del",   "elif",   "else",     "except", "finally", "for",
      "from",  "global", "if",     "import", "in",    "is",       "lambda", "nonlocal", "not",
      "or",    "pass",  "raise",   "return", "try",   "while",    "with",   "yield"};
  for (const char* keyword : kKeywords) {
    if (name == keyword) return std::string(name) + "_";
  }
  return std::string(name);
}

// Names of the classes that are no TYPE of the tool: the hand-bound values.
std::map<std::type_index, std::string>& extraNames() {
  static std::map<std::type_index, std::string> names{
      {typeid(Rect), "Rect"},
      {typeid(Point), "Point"},
      {typeid(Size), "Size"},
      {typeid(Range), "Range"},
      {typeid(Layer::Kind), "Layer.Kind"},
      {typeid(Fill::Kind), "Fill.Kind"},
      {typeid(Destination::Kind), "Destination.Kind"},
      {typeid(Extension::Option::Kind), "Extension.Option.Kind"},
      {typeid(Integration::Emoji), "Integration.Emoji"},
      {typeid(Integration::Emoji::Kind), "Integration.Emoji.Kind"},
      {typeid(Integration::Emoji::Kind::Key), "Integration.Emoji.Kind.Key"},
      {typeid(Project::CandidateTextStyle), "Project.CandidateTextStyle"},
      {typeid(VersionCollection::RequestProperties), "VersionCollection.RequestProperties"},
  };
  return names;
}

std::string classNameOf(const std::type_info& type) {
  if (const auto* entry = tool::findType(type)) return std::string(entry->name);
  auto found = extraNames().find(type);
  if (found != extraNames().end()) return found->second;
  return "object";
}

template <class T>
struct Annotation {
  static std::string text() {
    if constexpr (std::is_same_v<T, std::string>) return "str";
    else if constexpr (std::is_same_v<T, double>) return "float";
    else if constexpr (std::is_same_v<T, std::int64_t>) return "int";
    else if constexpr (std::is_same_v<T, bool>) return "bool";
    else if constexpr (std::is_same_v<T, Identifier> || std::is_same_v<T, Url>) return "str";
    else if constexpr (std::is_same_v<T, Date>) return "datetime.datetime";
    else return classNameOf(typeid(T));
  }
};
template <class T>
struct Annotation<std::optional<T>> {
  static std::string text() { return Annotation<T>::text() + " | None"; }
};
template <class T>
struct Annotation<std::vector<T>> {
  static std::string text() { return "list[" + Annotation<T>::text() + "]"; }
};
template <class K, class V, class... Rest>
struct Annotation<std::unordered_map<K, V, Rest...>> {
  static std::string text() {
    return "dict[" + Annotation<K>::text() + ", " + Annotation<V>::text() + "]";
  }
};
// A record held by reference: None where the document may leave it out.
template <class T>
struct Annotation<std::shared_ptr<T>> {
  static std::string text() { return Annotation<T>::text(); }
};
template <class T>
struct Annotation<std::weak_ptr<T>> {
  static std::string text() { return Annotation<T>::text() + " | None"; }
};

struct StubClass {
  std::string qualified;  // "Asset.Content"
  std::string bases;
  std::vector<std::string> body;
};

std::vector<StubClass>& classes() {
  static std::vector<StubClass> all;
  return all;
}

StubClass& add(std::string qualified, std::string bases = {}) {
  classes().push_back({std::move(qualified), std::move(bases), {}});
  return classes().back();
}

template <class T>
using Value = std::decay_t<T>;

// A field's attribute line; read-only ones are properties.
void attribute(StubClass& c, std::string_view name, const std::string& type, bool readOnly) {
  if (readOnly) {
    c.body.push_back("@property");
    c.body.push_back("def " + pyName(name) + "(self) -> " + type + ": ...");
  } else {
    c.body.push_back(pyName(name) + ": " + type);
  }
}

// What an optional read may leave empty: a record it holds by reference may be None.
std::string orNone(std::string type, bool mayBeEmpty, bool isRef) {
  return mayBeEmpty && isRef ? type + " | None" : type;
}

template <class T>
constexpr bool isRef = false;
template <class T>
constexpr bool isRef<std::shared_ptr<T>> = true;

#define ORVANE_STUB_EMPTY_required false
#define ORVANE_STUB_EMPTY_optional true
#define ORVANE_STUB_EMPTY_tolerant true
#define ORVANE_STUB_EMPTY_orEmpty false
#define ORVANE_STUB_EMPTY_localOnImport false
#define ORVANE_STUB_EMPTY_custom true
#define ORVANE_STUB_EMPTY_payload true
#define ORVANE_STUB_EMPTY_none true

#define ORVANE_STUB_TYPE(name, read) \
  orNone(Annotation<Value<decltype(std::declval<const T&>().name())>>::text(), \
         ORVANE_STUB_EMPTY_##read, isRef<Value<decltype(std::declval<const T&>().name())>>)
#define ORVANE_STUB_READONLY_plain(T, name, Name) false
#define ORVANE_STUB_READONLY_observed(T, name, Name) false
#define ORVANE_STUB_READONLY_own(T, name, Name) \
  (!requires(T & r, Value<decltype(std::declval<const T&>().name())> v) { r.set##Name(v); })
#define ORVANE_STUB_READONLY_backRef(T, name, Name) true
#define ORVANE_STUB_READONLY_observedBackRef(T, name, Name) true
#define ORVANE_STUB_READONLY_readOnly(T, name, Name) true
#define ORVANE_STUB_FIELD(name, Name, Type, key, read, write, param, access) \
  attribute(c, #name, ORVANE_STUB_TYPE(name, read), ORVANE_STUB_READONLY_##access(T, name, Name));
#define ORVANE_STUB_PARTIAL_FIELD(name, Name, Type, read, access) \
  attribute(c, #name, ORVANE_STUB_TYPE(name, read), ORVANE_STUB_READONLY_##access(T, name, Name));

// The constructor's keyword parameters, in the model's order; those with defaults `= ...`.
#define ORVANE_STUB_DEFAULT_given ""
#define ORVANE_STUB_DEFAULT_localId " = ..."
#define ORVANE_STUB_DEFAULT_currentDate " = ..."
#define ORVANE_STUB_DEFAULT_empty " = ..."
#define ORVANE_STUB_ARG_none(name, read)
// A `make` that takes no defaults (a component's) makes every member `Required`.
template <class M>
constexpr bool isRequired = false;
template <class M>
constexpr bool isRequired<Required<M>> = true;
#define ORVANE_STUB_ARG_some(name, read, param)                                        \
  init += ", " + pyName(#name) + ": " + ORVANE_STUB_TYPE(name, read) +                  \
          (isRequired<decltype(T::Fields::name)> ? "" : ORVANE_STUB_DEFAULT_##param);
#define ORVANE_STUB_ARG_given(name, read) ORVANE_STUB_ARG_some(name, read, given)
#define ORVANE_STUB_ARG_localId(name, read) ORVANE_STUB_ARG_some(name, read, localId)
#define ORVANE_STUB_ARG_currentDate(name, read) ORVANE_STUB_ARG_some(name, read, currentDate)
#define ORVANE_STUB_ARG_empty(name, read) ORVANE_STUB_ARG_some(name, read, empty)
#define ORVANE_STUB_ARG(name, Name, Type, key, read, write, param, access) \
  ORVANE_STUB_ARG_##param(name, read)

#define ORVANE_STUB_QUALIFIED(Owner, Name) (std::string(Owner).empty() ? std::string(Name) : std::string(Owner) + "." + Name)
// One function template per record, so that what a record lacks (a setter) is a substitution
// failure, not an error.
#define ORVANE_STUB_R(id, Type, Owner, Name, LIST)                 \
  template <class T>                                               \
  void stub_##id() {                                               \
    StubClass& c = add(ORVANE_STUB_QUALIFIED(Owner, Name));        \
    LIST(ORVANE_STUB_FIELD)                                        \
    std::string init = "def __init__(self, *";                     \
    LIST(ORVANE_STUB_ARG)                                          \
    c.body.push_back(init + ") -> None: ...");                     \
  }
#define ORVANE_STUB_S(id, Type, Base, Owner, Name, LIST, MAKE)     \
  template <class T>                                               \
  void stub_##id() {                                               \
    StubClass& c = add(ORVANE_STUB_QUALIFIED(Owner, Name), classNameOf(typeid(Base))); \
    LIST(ORVANE_STUB_FIELD)                                        \
    std::string init = "def __init__(self, *";                     \
    MAKE(ORVANE_STUB_ARG)                                          \
    c.body.push_back(init + ") -> None: ...");                     \
  }
#define ORVANE_STUB_P(id, Type, Owner, Name, LIST)                 \
  template <class T>                                               \
  void stub_##id() {                                               \
    StubClass& c = add(ORVANE_STUB_QUALIFIED(Owner, Name));        \
    LIST(ORVANE_STUB_PARTIAL_FIELD)                                \
  }
#define ORVANE_STUB_CALL_R(id, Type, ...) stub_##id<Type>();
#define ORVANE_STUB_CALL_S(id, Type, ...) stub_##id<Type>();
#define ORVANE_STUB_CALL_P(id, Type, ...) stub_##id<Type>();

ORVANE_PY_RECORDS_VALUES_AND_STYLES(ORVANE_STUB_R, ORVANE_STUB_S, ORVANE_STUB_P)
ORVANE_PY_RECORDS_SNAPSHOT(ORVANE_STUB_R, ORVANE_STUB_S, ORVANE_STUB_P)
ORVANE_PY_RECORDS_PROJECT(ORVANE_STUB_R, ORVANE_STUB_S, ORVANE_STUB_P)
ORVANE_PY_RECORDS_PEOPLE_AND_INTEGRATIONS(ORVANE_STUB_R, ORVANE_STUB_S, ORVANE_STUB_P)

// The hand-bound classes, as Values.cpp binds them.
void handBound() {
  auto value = [](std::string name, std::vector<std::pair<std::string, std::string>> members) {
    StubClass& c = add(name);
    std::string init = "def __init__(self, *";
    for (const auto& [member, type] : members) {
      attribute(c, member, type, true);
      init += ", " + member + ": " + type;
    }
    c.body.push_back(init + ") -> None: ...");
  };
  // Geometry: struct sequences, made by keywords, read as attributes or as a tuple.
  auto geometry = [](std::string name, std::vector<std::pair<std::string, std::string>> members) {
    std::string tuple;
    for (const auto& member : members) tuple += (tuple.empty() ? "" : ", ") + member.second;
    StubClass& c = add(name, "tuple[" + tuple + "]");
    std::string make = "def __new__(cls, *";
    for (const auto& [member, type] : members) {
      attribute(c, member, type, true);
      make += ", " + member + ": " + type;
    }
    c.body.push_back(make + ") -> " + name + ": ...");
  };
  geometry("Point", {{"x", "float"}, {"y", "float"}});
  geometry("Size", {{"width", "float"}, {"height", "float"}});
  geometry("Rect", {{"x", "float"}, {"y", "float"}, {"width", "float"}, {"height", "float"}});
  geometry("Range", {{"location", "int"}, {"length", "int"}});
  value("Extension.Option.PickerOption", {{"name", "str"}, {"value", "str"}});
  value("Project.CandidateTextStyle",
        {{"name", "str"}, {"sourceIdentifier", "str | None"}, {"textStyle", "TextStyle"}});
  StubClass& request = add("VersionCollection.RequestProperties");
  attribute(request, "identifier", "str", true);
  attribute(request, "index", "int", true);
  request.body.push_back("def __init__(self, *, identifier: str, index: int = ...) -> None: ...");

  // Each case a static constructor, each payload member a property that is None elsewhere.
  auto kind = [](std::string owner, std::vector<std::string> constructors,
                 std::vector<std::pair<std::string, std::string>> payload) {
    StubClass& c = add(owner + ".Kind");
    attribute(c, "key", owner + ".Kind.Key", true);
    for (const auto& [member, type] : payload) attribute(c, member, type + " | None", true);
    for (const auto& constructor : constructors) {
      c.body.push_back("@staticmethod");
      c.body.push_back(constructor);
    }
  };
  kind("Layer",
       {"def shape() -> Layer.Kind: ...",
        "def text(*, content: str, rangedTextStyles: list[RangedTextStyle]) -> Layer.Kind: ...",
        "def group(*, layers: list[Layer], componentName: str | None, interactionLevel: "
        "Layer.InteractionLevel | None) -> Layer.Kind: ..."},
       {{"content", "str"},
        {"rangedTextStyles", "list[RangedTextStyle]"},
        {"layers", "list[Layer]"},
        {"componentName", "str"},
        {"interactionLevel", "Layer.InteractionLevel"}});
  kind("Fill",
       {"def color(color: Color) -> Fill.Kind: ...",
        "def gradient(gradient: Gradient) -> Fill.Kind: ..."},
       {{"color", "Color"}, {"gradient", "Gradient"}});
  kind("Destination",
       {"def screen(name: str) -> Destination.Kind: ...",
        "def previous() -> Destination.Kind: ..."},
       {{"name", "str"}});
  kind("Extension.Option",
       {"def switch(defaultValue: bool) -> Extension.Option.Kind: ...",
        "def text(defaultValue: str) -> Extension.Option.Kind: ...",
        "def picker(*, options: list[Extension.Option.PickerOption], defaultOption: "
        "Extension.Option.PickerOption) -> Extension.Option.Kind: ..."},
       {{"defaultValue", "bool | str"},
        {"options", "list[Extension.Option.PickerOption]"},
        {"defaultOption", "Extension.Option.PickerOption"}});
  StubClass& emoji = add("Integration.Emoji");
  emoji.body.push_back("alias: str");
  emoji.body.push_back("kind: Integration.Emoji.Kind");
  emoji.body.push_back("def __init__(self, *, alias: str, kind: Integration.Emoji.Kind) -> None: ...");
  kind("Integration.Emoji",
       {"def parent(url: str) -> Integration.Emoji.Kind: ...",
        "def sibling(parentAlias: str) -> Integration.Emoji.Kind: ..."},
       {{"url", "str"}, {"parentAlias", "str"}});
}

// Every raw-value enumeration: an enum.Enum whose values are the raw strings.
void enumerations() {
  for (const auto& entry : tool::registeredTypes()) {
    const tool::EnumerationInfo* info = entry.enumeration();
    if (!info) continue;
    StubClass& c = add(std::string(entry.name), "enum.Enum");
    for (const auto& k : info->cases) {
      std::string raw;
      for (char ch : k.rawValue) {
        if (ch == '"' || ch == '\\') raw += '\\';
        raw += ch;
      }
      c.body.push_back(std::string(k.name) + " = \"" + raw + "\"");
    }
  }
  StubClass& key = add("Integration.Emoji.Kind.Key", "enum.Enum");
  key.body.push_back("parent = \"parent\"");
  key.body.push_back("sibling = \"sibling\"");
}

const char* const kFunctions = R"(__version__: str

class DecodingError(ValueError):
    kind: str
    codingPath: list[str | int]
    key: str | None
    description: str
    line: int | None
    column: int | None
    reason: str | None

_Type = str | type
_Density = str | Density
_Record = Snapshot | Project

def decode(type: _Type, data: bytes | bytearray | str, *, import_source: bool = ..., dates: str = ..., warnings: list[str] | None = ...) -> Any: ...
def load(type: _Type, path: str | os.PathLike[str], *, import_source: bool = ..., dates: str = ..., warnings: list[str] | None = ...) -> Any: ...
def encode(record: Any, *, pretty: bool = ..., document: bool = ..., dates: str = ...) -> str: ...
def dump(value: Any) -> Any: ...
def types() -> list[str]: ...
def check(type: _Type, files: Iterable[str | os.PathLike[str]], *, import_source: bool = ..., dates: str = ...) -> list[dict[str, Any]]: ...
def schema(type: _Type, *, document: bool = ..., dates: str = ...) -> dict[str, Any]: ...
def render(record: _Record, *, screen: str | None = ..., component: str | None = ..., version_id: str | None = ..., links: bool = ..., grid: bool = ..., assets: bool = ...) -> str: ...
def code(language: str, record: _Record, *, layer: str | None = ..., screen: str | None = ..., component: str | None = ..., version_id: str | None = ..., density: _Density = ...) -> str: ...
def tokens(format: str, project: Project, *, density: _Density = ..., pretty: bool = ...) -> str: ...
def inspect(record: _Record, *, screen: str | None = ..., component: str | None = ..., version_id: str | None = ..., density: _Density = ..., json: bool = ...) -> Any: ...
def assets(record: _Record, *, screen: str | None = ..., component: str | None = ..., version_id: str | None = ..., json: bool = ...) -> Any: ...
def measure(record: _Record, a: str, b: str | None = ..., *, screen: str | None = ..., component: str | None = ..., version_id: str | None = ..., density: _Density = ..., json: bool = ...) -> Any: ...
def diff(old: _Record, new: Snapshot | None = ..., *, screen: str | None = ..., component: str | None = ..., from_: str | None = ..., to: str | None = ..., density: _Density = ..., json: bool = ...) -> Any: ...
)";

void write(std::ostream& out, const std::string& prefix, int depth) {
  std::string indent(static_cast<std::size_t>(depth) * 4, ' ');
  for (const auto& c : classes()) {
    std::string parent = c.qualified.substr(0, c.qualified.rfind('.') == std::string::npos
                                                   ? 0
                                                   : c.qualified.rfind('.'));
    if (parent != prefix) continue;
    std::string name = c.qualified.substr(parent.empty() ? 0 : parent.size() + 1);
    out << indent << "class " << name << (c.bases.empty() ? "" : "(" + c.bases + ")") << ":\n";
    bool empty = true;
    for (const auto& line : c.body) {
      out << indent << "    " << line << "\n";
      empty = false;
    }
    std::ostringstream nested;
    write(nested, c.qualified, depth + 1);
    out << nested.str();
    if (empty && nested.str().empty()) out << indent << "    ...\n";
  }
}

}  // namespace

}  // namespace orvane::python

int main(int argc, char** argv) {
  using namespace orvane::python;
  using namespace orvane;
  ORVANE_PY_RECORDS_VALUES_AND_STYLES(ORVANE_STUB_CALL_R, ORVANE_STUB_CALL_S, ORVANE_STUB_CALL_P)
  ORVANE_PY_RECORDS_SNAPSHOT(ORVANE_STUB_CALL_R, ORVANE_STUB_CALL_S, ORVANE_STUB_CALL_P)
  ORVANE_PY_RECORDS_PROJECT(ORVANE_STUB_CALL_R, ORVANE_STUB_CALL_S, ORVANE_STUB_CALL_P)
  ORVANE_PY_RECORDS_PEOPLE_AND_INTEGRATIONS(ORVANE_STUB_CALL_R, ORVANE_STUB_CALL_S,
                                            ORVANE_STUB_CALL_P)
  handBound();
  enumerations();
  std::ostringstream out;
  out << "# Generated by orvane_pystubs from the records' field statements; do not edit.\n"
         "import datetime\nimport enum\nimport os\n"
         "from typing import Any, Iterable\n\n";
  write(out, "", 0);
  out << "\n" << kFunctions;
  if (argc != 2) {
    std::cerr << "usage: orvane_pystubs OUTPUT.pyi\n";
    return 2;
  }
  std::ofstream file(argv[1]);
  file << out.str();
  return file.good() ? 0 : 1;
}
