// What has no field statements: geometry, the enumerations with payloads (each case a named
// constructor, each payload member an attribute that is None for the other cases) and the few
// plain value structs. Immutable from Python: they are copied in and out of their records.
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <orvane/orvane.hpp>

#include "Convert.hpp"

namespace orvane::python {

namespace {

// The payload member `member` of case `Case`, None for the other cases.
template <class Kind, class Case, class Member>
auto payload(const Case* (Kind::*as)() const, Member Case::*member) {
  return [as, member](const Kind& kind) -> py::object {
    const Case* c = (kind.*as)();
    return c ? py::cast(c->*member) : py::none();
  };
}

// `dump` shows what the value's visitFields lists; there is no document of it to encode.
template <class T>
void dumpable(py::handle cls, const char* typeName) {
  static const ClassOps ops{
      typeName, [](py::handle value, FieldVisitor& v) { describe(v, value.cast<const T&>()); },
      nullptr};
  registerClass(cls, ops);
}

template <class Kind>
py::class_<Kind> kindClass(py::handle owner, const char* typeName) {
  py::class_<Kind> cls(owner, "Kind");
  dumpable<Kind>(cls, typeName);
  cls.def_property_readonly("key", &Kind::key);
  cls.def("__repr__", [](const Kind& kind) {
    return "<" + std::string(py::str(py::type::of(py::cast(kind)).attr("__qualname__"))) + " " +
           std::string(caseName(kind.key())) + ">";
  });
  return cls;
}

void bindKinds(py::module_& m) {
  using LK = Layer::Kind;
  kindClass<LK>(m.attr("Layer"), "Layer.Kind")
      .def_static("shape", &LK::shape)
      .def_static("text", &LK::text, py::kw_only(), py::arg("content"),
                  py::arg("rangedTextStyles"))
      .def_static("group", &LK::group, py::kw_only(), py::arg("layers"),
                  py::arg("componentName"), py::arg("interactionLevel"))
      .def_property_readonly("content", payload(&LK::asText, &LK::Text::content))
      .def_property_readonly("rangedTextStyles",
                             payload(&LK::asText, &LK::Text::rangedTextStyles))
      .def_property_readonly("layers", payload<LK>(&LK::asGroup, &LK::Group::layers))
      .def_property_readonly("componentName", payload<LK>(&LK::asGroup, &LK::Group::componentName))
      .def_property_readonly("interactionLevel",
                             payload<LK>(&LK::asGroup, &LK::Group::interactionLevel));

  using FK = Fill::Kind;
  kindClass<FK>(m.attr("Fill"), "Fill.Kind")
      .def_static("color", &FK::color, py::arg("color"))
      .def_static("gradient", &FK::gradient, py::arg("gradient"))
      .def_property_readonly("color", payload(&FK::asColor, &FK::Color::color))
      .def_property_readonly("gradient", payload(&FK::asGradient, &FK::Gradient::gradient));

  using DK = Destination::Kind;
  kindClass<DK>(m.attr("Destination"), "Destination.Kind")
      .def_static("screen", &DK::screen, py::arg("name"))
      .def_static("previous", &DK::previous)
      .def_property_readonly("name", payload(&DK::asScreen, &DK::Screen::name));

  py::object option = m.attr("Extension").attr("Option");
  using PO = Extension::Option::PickerOption;
  py::class_<PO> picker(option, "PickerOption");
  dumpable<PO>(picker, "Extension.Option.PickerOption");
  picker
      .def(py::init([](std::string name, std::string value) {
             return PO{std::move(name), std::move(value)};
           }),
           py::kw_only(), py::arg("name"), py::arg("value"))
      .def_property_readonly("name", [](const PO& p) { return p.name; })
      .def_property_readonly("value", [](const PO& p) { return p.value; })
      .def("__eq__", [](const PO& a, const PO& b) { return a == b; });
  registerValue(typeid(PO), [](std::any& value) { return py::cast(std::any_cast<PO&>(value)); });
  using OK = Extension::Option::Kind;
  kindClass<OK>(option, "Extension.Option.Kind")
      // `switch` is no Python keyword, so the case keeps the model's name.
      .def_static("switch", &OK::switch_, py::arg("defaultValue"))
      .def_static("text", &OK::text, py::arg("defaultValue"))
      .def_static("picker", &OK::picker, py::kw_only(), py::arg("options"),
                  py::arg("defaultOption"))
      .def_property_readonly("defaultValue", [](const OK& kind) -> py::object {
        if (const auto* s = kind.asSwitch()) return py::cast(s->defaultValue);
        if (const auto* t = kind.asText()) return py::cast(t->defaultValue);
        return py::none();
      })
      .def_property_readonly("options", payload(&OK::asPicker, &OK::Picker::options))
      .def_property_readonly("defaultOption", payload(&OK::asPicker, &OK::Picker::defaultOption));

  // Emoji have no document: the client makes them and hands them to a project.
  using Emoji = Integration::Emoji;
  py::class_<Emoji, Ref<Emoji>> emoji(m.attr("Integration"), "Emoji");
  dumpable<Emoji>(emoji, "Integration.Emoji");
  emoji.def(py::init([](std::string alias, Emoji::Kind kind) {
              return Emoji::make(std::move(alias), std::move(kind));
            }),
            py::kw_only(), py::arg("alias"), py::arg("kind"))
      .def_property("alias", &Emoji::alias, &Emoji::setAlias)
      .def_property("kind", &Emoji::kind, &Emoji::setKind);
  using EK = Emoji::Kind;
  kindClass<EK>(emoji, "Integration.Emoji.Kind")
      .def_static("parent", &EK::parent, py::arg("url"))
      .def_static("sibling", &EK::sibling, py::arg("parentAlias"))
      .def_property_readonly("url", payload(&EK::asParent, &EK::Parent::url))
      .def_property_readonly("parentAlias", payload(&EK::asSibling, &EK::Sibling::parentAlias));
  // No TYPE of the tool (emoji are never coded), so named here.
  std::vector<std::pair<std::string, std::string>> emojiKeys;
  for (const auto& c : EnumTraits<EK::Key>::cases) emojiKeys.emplace_back(c.name, c.rawValue);
  enumClass(typeid(EK::Key), "Integration.Emoji.Kind.Key", emojiKeys);

  using CTS = Project::CandidateTextStyle;
  py::class_<CTS> candidate(m.attr("Project"), "CandidateTextStyle");
  dumpable<CTS>(candidate, "Project.CandidateTextStyle");
  candidate
      .def(py::init<std::string, std::optional<Identifier>, Ref<TextStyle>>(), py::kw_only(),
           py::arg("name"), py::arg("sourceIdentifier"), py::arg("textStyle"))
      .def_property_readonly("name", [](const CTS& c) { return c.name; })
      .def_property_readonly("sourceIdentifier", [](const CTS& c) { return c.sourceIdentifier; })
      .def_property_readonly("textStyle", [](const CTS& c) { return c.textStyle; });

  using RP = VersionCollection::RequestProperties;
  py::class_<RP> request(m.attr("VersionCollection"), "RequestProperties");
  dumpable<RP>(request, "VersionCollection.RequestProperties");
  request
      .def(py::init([](std::string identifier, std::int64_t index) {
             return RP{std::move(identifier), index};
           }),
           py::kw_only(), py::arg("identifier"), py::arg("index") = 0)
      .def_property_readonly("identifier", [](const RP& r) { return r.identifier; })
      .def_property_readonly("index", [](const RP& r) { return r.index; });
}

}  // namespace

void bindValues(py::module_& m) {
  bindKinds(m);
}

}  // namespace orvane::python
