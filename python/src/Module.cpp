// The module: its classes, then the functions of the tool as Python functions. Decoding and
// reading files run without the GIL, so other Python threads go on meanwhile.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <typeindex>
#include <unordered_map>
#include <vector>

#include <orvane/handoff/Assets.hpp>
#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Diff.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Inspect.hpp>
#include <orvane/handoff/Measure.hpp>
#include <orvane/handoff/Render.hpp>
#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/internal/JsonWriter.hpp>
#include <orvane/orvane.hpp>
#include <orvane/version.hpp>

#include "Convert.hpp"
#include "Records.hpp"
#include "MeasureText.hpp"
#include "Report.hpp"
#include "Suggest.hpp"
#include "Types.hpp"

namespace orvane::python {

void bindRecordsA(py::module_& m);
void bindRecordsB(py::module_& m);
void bindValues(py::module_& m);

namespace {

using tool::TypeEntry;

// --- Errors ----------------------------------------------------------------------------------

PyObject* decodingErrorType = nullptr;

// Text that quotes a document may hold bytes that are not UTF-8: they are kept as lone
// surrogates, so that encoding with "surrogateescape" gives the tool's bytes back.
py::str text(const std::string& bytes) {
  PyObject* decoded = PyUnicode_DecodeUTF8(bytes.data(), static_cast<Py_ssize_t>(bytes.size()),
                                           "surrogateescape");
  if (!decoded) throw py::error_already_set();
  return py::reinterpret_steal<py::str>(decoded);
}

// A DecodingError as Python sees it: the tool's one-line message, and each part on its own.
void raiseDecodingError(const DecodingError& e) {
  py::object cls = py::reinterpret_borrow<py::object>(decodingErrorType);
  py::object error = cls(text(tool::oneLine(e.what())));
  error.attr("kind") = py::str(std::string(kindName(e.kind())));
  py::list path;
  for (const auto& entry : e.codingPath()) {
    if (entry.isIndex())
      path.append(py::int_(*entry.intValue()));
    else
      path.append(text(std::string(entry.stringValue())));
  }
  error.attr("codingPath") = path;
  error.attr("key") = e.key() ? py::object(text(*e.key())) : py::none();
  error.attr("description") = text(e.description());
  const auto& location = e.location();
  error.attr("line") = location ? py::object(py::int_(location->line)) : py::none();
  error.attr("column") = location ? py::object(py::int_(location->column)) : py::none();
  error.attr("reason") = e.reason() ? py::object(text(*e.reason())) : py::none();
  PyErr_SetObject(decodingErrorType, error.ptr());
}

// --- TYPEs -----------------------------------------------------------------------------------

std::unordered_map<PyObject*, const TypeEntry*>& entriesByClass() {
  static auto* map = new std::unordered_map<PyObject*, const TypeEntry*>();
  return *map;
}

std::vector<std::string_view> typeNames() {
  std::vector<std::string_view> names;
  for (const auto& entry : tool::registeredTypes()) names.push_back(entry.name);
  return names;
}

// The TYPE a name or a class stands for.
const TypeEntry& entryFor(py::handle type) {
  if (py::isinstance<py::str>(type)) {
    std::string name = type.cast<std::string>();
    if (const TypeEntry* entry = tool::findType(name)) return *entry;
    auto names = typeNames();
    throw py::value_error("unknown TYPE " + name + tool::didYouMean(tool::closestNames(name, names)));
  }
  auto found = entriesByClass().find(type.ptr());
  if (found != entriesByClass().end()) return *found->second;
  throw py::type_error("expected a TYPE name or one of the module's classes, not " +
                       std::string(py::repr(type)));
}

// The bytes of a bytes, bytearray or str (as UTF-8), valid while `data` lives.
std::string_view bytesOf(py::handle data) {
  char* buffer = nullptr;
  Py_ssize_t size = 0;
  if (PyBytes_Check(data.ptr())) {
    PyBytes_AsStringAndSize(data.ptr(), &buffer, &size);
  } else if (PyByteArray_Check(data.ptr())) {
    buffer = PyByteArray_AsString(data.ptr());
    size = PyByteArray_Size(data.ptr());
  } else if (PyUnicode_Check(data.ptr())) {
    const char* text = PyUnicode_AsUTF8AndSize(data.ptr(), &size);
    if (!text) throw py::error_already_set();
    return {text, static_cast<std::size_t>(size)};
  } else {
    throw py::type_error("a document is bytes or str");
  }
  return {buffer, static_cast<std::size_t>(size)};
}

DateStrategy dateStrategy(const std::string& name) {
  if (name == "iso8601") return DateStrategy::iso8601;
  if (name == "seconds") return DateStrategy::seconds;
  if (name == "milliseconds") return DateStrategy::milliseconds;
  if (name == "deferred") return DateStrategy::deferred;
  throw py::value_error("dates must be iso8601, seconds, milliseconds or deferred, not " + name);
}

struct DecodeOptions {
  bool importSource = false;
  std::string dates = "iso8601";
};

JsonDecoderOptions decoderOptions(const DecodeOptions& o, DecodingWarnings* warnings) {
  JsonDecoderOptions options;
  options.dates = dateStrategy(o.dates);
  if (o.importSource) options.userInfo[CodingUserInfoKey::fromImportSource()] = true;
  options.warnings = warnings;
  return options;
}

// A decoder per thread and per options, kept for the parser's buffers and record chunks.
JsonDecoder& threadDecoder(const DecodeOptions& o) {
  thread_local std::unordered_map<std::string, std::unique_ptr<JsonDecoder>> decoders;
  auto& decoder = decoders[o.dates + (o.importSource ? "+import" : "")];
  if (!decoder) decoder = std::make_unique<JsonDecoder>(decoderOptions(o, nullptr));
  return *decoder;
}

// What `entry.value` returned, as a Python object.
py::object toPython(const TypeEntry& entry, std::any& value) {
  if (const tool::EnumerationInfo* info = entry.enumeration()) {
    return enumClass(*entry.type, entry.name, {}).members.at(info->caseIndex(value));
  }
  if (auto convert = valueConverter(value.type())) return convert(value);
  throw py::type_error("no Python form for " + std::string(entry.name));
}

// Decodes `json` as `entry`, without the GIL; dropped values go to `warnings` (a list).
py::object decodeText(const TypeEntry& entry, std::string_view json, const DecodeOptions& o,
                      py::object warnings) {
  std::any value;
  if (warnings.is_none()) {
    py::gil_scoped_release release;
    value = entry.value(threadDecoder(o), json);
  } else {
    tool::WarningLines lines;
    {
      py::gil_scoped_release release;
      JsonDecoder decoder(decoderOptions(o, &lines));
      value = entry.value(decoder, json);
    }
    // As the tool says them, without its "warning: ".
    for (const auto& line : lines.lines()) warnings.attr("append")(text(line.substr(9)));
  }
  return toPython(entry, value);
}

// The whole file, read without the GIL; OSError when it cannot be.
std::string readFile(const std::string& path) {
  std::string text;
  int error = 0;
  {
    py::gil_scoped_release release;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) {
      error = errno;
    } else {
      char chunk[1 << 16];
      std::size_t n;
      while ((n = std::fread(chunk, 1, sizeof chunk, file)) > 0) text.append(chunk, n);
      if (std::ferror(file)) error = errno ? errno : EIO;
      std::fclose(file);
    }
  }
  if (error) {
    errno = error;
    PyErr_SetFromErrnoWithFilename(PyExc_OSError, path.c_str());
    throw py::error_already_set();
  }
  return text;
}

std::string pathOf(py::handle path) {
  return py::module_::import("os").attr("fspath")(path).cast<std::string>();
}

py::object fromJson(const std::string& json) {
  return py::module_::import("json").attr("loads")(text(json));
}

// --- The hand-off functions ----------------------------------------------------------------------

// The snapshot a hand-off function looks at: a Snapshot itself, or a Project's screen's or
// component's version (the latest unless named). The snapshot is kept with its project.
struct Chosen {
  Ref<Snapshot> snapshot;
  Ref<Project> project;
  Ref<VersionCollection> collection;
};

struct Choice {
  std::optional<std::string> screen, component, versionId;
};

Ref<Version> versionOf(const VersionCollection& collection, const std::optional<std::string>& id) {
  std::optional<Identifier> version;
  if (id) version = Identifier(*id);
  Ref<Version> found = handoff::findVersion(collection, version);
  if (!found) {
    throw py::key_error(version ? "no version with identifier " + *id + " in " +
                                      std::string(collection.identifier().rawValue())
                                : "no latest version");
  }
  return found;
}

Chosen choose(py::handle record, const Choice& c) {
  Chosen chosen;
  bool names = c.screen || c.component || c.versionId;
  if (py::isinstance<Snapshot>(record)) {
    if (names) throw py::value_error("screen, component and version_id need a Project");
    chosen.snapshot = record.cast<Ref<Snapshot>>();
    return chosen;
  }
  if (!py::isinstance<Project>(record)) {
    throw py::type_error("expected a Snapshot or a Project, not " + std::string(py::repr(record)));
  }
  chosen.project = record.cast<Ref<Project>>();
  if (c.screen.has_value() == c.component.has_value()) {
    throw py::value_error("a Project needs exactly one of screen and component");
  }
  if (c.screen) {
    chosen.collection = handoff::findScreen(*chosen.project, Identifier(*c.screen));
    if (!chosen.collection) throw py::key_error("no screen with identifier " + *c.screen);
  } else {
    chosen.collection = handoff::findComponent(*chosen.project, Identifier(*c.component));
    if (!chosen.collection) throw py::key_error("no component with identifier " + *c.component);
  }
  Ref<Version> version = versionOf(*chosen.collection, c.versionId);
  // Kept with the project: its records refer to it only weakly.
  chosen.snapshot = Ref<Snapshot>(chosen.project, version->snapshot().get());
  return chosen;
}

Ref<Layer> layerNamed(const Snapshot& snapshot, const std::string& name) {
  handoff::FoundLayer found = handoff::findLayer(snapshot, name);
  if (found.layer) return found.layer;
  std::string message = found.error;
  for (const auto& candidate : found.candidates) {
    message += "\n  " + std::string(candidate.layer->identifier().rawValue()) + " (" +
               candidate.path + ")";
  }
  throw py::value_error(message);
}

py::object textOrJson(const std::string& text, bool json) {
  return json ? fromJson(text) : py::str(text);
}

#define ORVANE_PY_CHOICE_ARGS                                                  \
  py::arg("screen") = py::none(), py::arg("component") = py::none(),           \
      py::arg("version_id") = py::none()

void bindHandoff(py::module_& m) {
  using S = std::optional<std::string>;
  m.def(
      "render",
      [](py::handle record, S screen, S component, S versionId, bool links, bool grid,
         bool assets) {
        Chosen chosen = choose(record, {screen, component, versionId});
        handoff::RenderOptions options;
        options.links = links;
        options.grid = grid;
        options.assets = assets;
        return handoff::renderSvg(*chosen.snapshot, options);
      },
      "The snapshot as one SVG document.", py::arg("record"), py::kw_only(), ORVANE_PY_CHOICE_ARGS,
      py::arg("links") = false, py::arg("grid") = false, py::arg("assets") = false);

  m.def(
      "code",
      [](const std::string& language, py::handle record, S layer, S screen, S component,
         S versionId, Density density) {
        if (language != "css" && language != "swiftui" && language != "compose") {
          throw py::value_error("language must be css, swiftui or compose, not " + language);
        }
        Chosen chosen = choose(record, {screen, component, versionId});
        handoff::CodeOptions options{.density = density, .styleGuide = nullptr};
        std::optional<handoff::StyleGuide> guide;
        if (chosen.project) options.styleGuide = &guide.emplace(*chosen.project);
        const Snapshot& snapshot = *chosen.snapshot;
        if (!layer) {
          return language == "css"       ? handoff::snapshotHtml(snapshot, options)
                 : language == "swiftui" ? handoff::snapshotSwiftUI(snapshot, options)
                                         : handoff::snapshotCompose(snapshot, options);
        }
        Ref<Layer> found = layerNamed(snapshot, *layer);
        return language == "css"       ? handoff::layerCss(*found, options)
               : language == "swiftui" ? handoff::layerSwiftUI(*found, options)
                                       : handoff::layerCompose(*found, options);
      },
      "The code of one layer, or of the whole snapshot: css, swiftui or compose.",
      py::arg("language"), py::arg("record"), py::kw_only(), py::arg("layer") = py::none(),
      ORVANE_PY_CHOICE_ARGS, py::arg("density") = Density::_1x);

  m.def(
      "tokens",
      [](const std::string& format, const Ref<Project>& project, Density density, bool pretty) {
        static const std::pair<const char*, handoff::TokenFormat> kFormats[] = {
            {"dtcg", handoff::TokenFormat::dtcg},
            {"css", handoff::TokenFormat::css},
            {"swift", handoff::TokenFormat::swift},
            {"kotlin", handoff::TokenFormat::kotlin}};
        for (const auto& [name, f] : kFormats) {
          if (format == name) {
            return handoff::writeTokens(handoff::StyleGuide(*project), f,
                                        {.density = density, .pretty = pretty});
          }
        }
        throw py::value_error("format must be dtcg, css, swift or kotlin, not " + format);
      },
      "A Project's style guide as design tokens: dtcg, css, swift or kotlin.", py::arg("format"),
      py::arg("project"), py::kw_only(), py::arg("density") = Density::_1x,
      py::arg("pretty") = false);

  m.def(
      "inspect",
      [](py::handle record, S screen, S component, S versionId, Density density, bool json) {
        handoff::InspectNode tree;
        if (py::isinstance<Project>(record) && !screen && !component) {
          if (versionId) throw py::value_error("version_id needs screen or component");
          tree = handoff::inspectProject(*record.cast<Ref<Project>>(), density);
        } else {
          Chosen chosen = choose(record, {screen, component, versionId});
          tree = handoff::inspectSnapshot(*chosen.snapshot, chosen.project.get(), density);
        }
        return textOrJson(json ? handoff::inspectJson(tree) : handoff::inspectText(tree), json);
      },
      "A project or a snapshot as a tree: text, or with json=True the tree as Python values.",
      py::arg("record"), py::kw_only(), ORVANE_PY_CHOICE_ARGS, py::arg("density") = Density::_1x,
      py::arg("json") = false);

  m.def(
      "assets",
      [](py::handle record, S screen, S component, S versionId, bool json) {
        Chosen chosen = choose(record, {screen, component, versionId});
        handoff::InspectNode tree = handoff::inspectAssets(*chosen.snapshot);
        return textOrJson(json ? handoff::inspectJson(tree) : handoff::inspectText(tree), json);
      },
      "What a developer exports from the snapshot, with file names per platform.",
      py::arg("record"), py::kw_only(), ORVANE_PY_CHOICE_ARGS, py::arg("json") = false);

  m.def(
      "measure",
      [](py::handle record, const std::string& a, S b, S screen, S component, S versionId,
         Density density, bool json) {
        Chosen chosen = choose(record, {screen, component, versionId});
        tool::Lengths lengths{handoff::densityScale(density)};
        Ref<Layer> first = layerNamed(*chosen.snapshot, a);
        if (!b) return textOrJson(tool::placementText(*first, *chosen.snapshot, json, lengths), json);
        Ref<Layer> second = layerNamed(*chosen.snapshot, *b);
        handoff::Measurement measured =
            handoff::measure(first->absoluteFrame(), second->absoluteFrame());
        return textOrJson(tool::measurementText(measured, *first, *second, json, lengths), json);
      },
      "The distances between two layers, or from one layer to its group's and the artboard's "
      "edges.",
      py::arg("record"), py::arg("a"), py::arg("b") = py::none(), py::kw_only(),
      ORVANE_PY_CHOICE_ARGS, py::arg("density") = Density::_1x, py::arg("json") = false);

  m.def(
      "diff",
      [](py::handle old, py::handle newer, S screen, S component, S from, S to, Density density,
         bool json) {
        Ref<Snapshot> before, after;
        Ref<Project> project;
        if (py::isinstance<Snapshot>(old)) {
          if (!py::isinstance<Snapshot>(newer) || from || to || screen || component) {
            throw py::value_error("diff of a Snapshot takes the newer Snapshot, and no versions");
          }
          before = old.cast<Ref<Snapshot>>();
          after = newer.cast<Ref<Snapshot>>();
        } else {
          if (!newer.is_none() || !from || !to) {
            throw py::value_error("diff of a Project takes from_ and to, and no second record");
          }
          Chosen chosen = choose(old, {screen, component, from});
          before = chosen.snapshot;
          project = chosen.project;
          after = Ref<Snapshot>(project, versionOf(*chosen.collection, to)->snapshot().get());
        }
        std::optional<handoff::StyleGuide> guide;
        if (project) guide.emplace(*project);
        handoff::FactOptions options{density, guide ? &*guide : nullptr, project.get()};
        handoff::SnapshotDiff diff = handoff::diffSnapshots(*before, *after);
        return textOrJson(json ? handoff::diffJson(diff, *before, *after, options)
                               : handoff::diffText(diff, *before, *after, options),
                          json);
      },
      "What changed from one snapshot to another, or between two versions of a Project's "
      "screen or component.",
      py::arg("old"), py::arg("new") = py::none(), py::kw_only(), py::arg("screen") = py::none(),
      py::arg("component") = py::none(), py::arg("from_") = py::none(),
      py::arg("to") = py::none(), py::arg("density") = Density::_1x, py::arg("json") = false);
}

void bindCoding(py::module_& m) {
  m.def(
      "decode",
      [](py::handle type, py::handle data, bool importSource, std::string dates,
         py::object warnings) {
        const TypeEntry& entry = entryFor(type);
        return decodeText(entry, bytesOf(data), {importSource, std::move(dates)}, warnings);
      },
      "Decodes a document (bytes or str) as TYPE, a name (\"Project\") or a class "
      "(orvane.Project). Raises DecodingError. Values that tolerant keys dropped are appended "
      "to `warnings` when it is a list.",
      py::arg("type"), py::arg("data"), py::kw_only(), py::arg("import_source") = false,
      py::arg("dates") = "iso8601", py::arg("warnings") = py::none());

  m.def(
      "load",
      [](py::handle type, py::handle path, bool importSource, std::string dates,
         py::object warnings) {
        const TypeEntry& entry = entryFor(type);
        std::string text = readFile(pathOf(path));
        return decodeText(entry, text, {importSource, std::move(dates)}, warnings);
      },
      "Decodes the file at `path` as TYPE, as `decode` does.", py::arg("type"), py::arg("path"),
      py::kw_only(), py::arg("import_source") = false, py::arg("dates") = "iso8601",
      py::arg("warnings") = py::none());

  m.def(
      "encode",
      [](py::handle value, bool pretty, bool document, const std::string& dates) {
        // An enumeration or an identifier TYPE writes one string, as its coding does.
        if (py::isinstance(value, py::module_::import("enum").attr("Enum")) ||
            py::isinstance<py::str>(value)) {
          py::object text = py::isinstance<py::str>(value) ? py::reinterpret_borrow<py::object>(value)
                                                           : value.attr("value");
          std::string out;
          orvane::appendJsonString(out, text.cast<std::string>());
          return out;
        }
        const ClassOps* ops = classOps(value);
        if (!ops || !ops->encode) {
          throw py::type_error("cannot encode " + std::string(py::repr(value)));
        }
        JsonEncoderOptions options;
        options.pretty = pretty;
        options.dates = dateStrategy(dates);
        options.form = document ? EncodingForm::document : EncodingForm::records;
        return ops->encode(value, options);
      },
      "The JSON text that the record writes; with document=True its document form, which "
      "decodes again into an equal graph.",
      py::arg("record"), py::kw_only(), py::arg("pretty") = false, py::arg("document") = false,
      py::arg("dates") = "iso8601");

  m.def(
      "dump",
      [](py::handle value) -> py::object {
        if (py::isinstance(value, py::module_::import("enum").attr("Enum"))) {
          return value.attr("name");
        }
        if (py::isinstance<py::str>(value)) return py::reinterpret_borrow<py::object>(value);
        const ClassOps* ops = classOps(value);
        if (!ops) throw py::type_error("cannot dump " + std::string(py::repr(value)));
        PythonFields fields;
        ops->describe(value, fields);
        return fields.result();
      },
      "Every field the value holds, as the tool's dump shows it, as Python values.",
      py::arg("value"));

  m.def(
      "types",
      [] {
        py::list names;
        for (const auto& entry : tool::registeredTypes()) names.append(py::str(entry.name));
        return names;
      },
      "Every TYPE name, in the tool's order.");

  m.def(
      "check",
      [](py::handle type, py::iterable files, bool importSource, std::string dates) {
        const TypeEntry& entry = entryFor(type);
        std::vector<std::string> paths;
        for (py::handle file : files) paths.push_back(pathOf(file));
        DecodeOptions o{importSource, std::move(dates)};
        tool::Settings settings;
        settings.decoding = decoderOptions(o, nullptr);
        std::vector<std::string> lines;
        {
          py::gil_scoped_release release;
          JsonDecoder decoder(settings.decoding);
          for (const auto& path : paths) {
            std::string text;
            std::FILE* file = std::fopen(path.c_str(), "rb");
            if (!file) {
              lines.push_back(tool::checkLine(
                  path, true, tool::FileFailure{"unreadable", std::strerror(errno)}));
              continue;
            }
            char chunk[1 << 16];
            std::size_t n;
            while ((n = std::fread(chunk, 1, sizeof chunk, file)) > 0) text.append(chunk, n);
            std::fclose(file);
            try {
              (void)entry.value(decoder, text);
              lines.push_back(tool::checkLine(path, true));
            } catch (const DecodingError& e) {
              lines.push_back(tool::checkLine(path, true, e));
            }
          }
        }
        py::list results;
        for (const auto& line : lines) results.append(fromJson(line));
        return results;
      },
      "Decodes each file as TYPE; one dict per file, as `orvane check --json-errors` prints "
      "them: {\"file\": F, \"ok\": True} or {\"file\": F, \"error\": {...}}.",
      py::arg("type"), py::arg("files"), py::kw_only(), py::arg("import_source") = false,
      py::arg("dates") = "iso8601");

  m.def(
      "schema",
      [](py::handle type, bool document, const std::string& dates) {
        const TypeEntry& entry = entryFor(type);
        JsonSchemaOptions options = tool::schemaOptions();
        options.documentForm = document;
        options.dates = dateStrategy(dates);
        return fromJson(entry.schema(options));
      },
      "The JSON Schema (draft 2020-12) of the documents that decode as TYPE, or with "
      "document=True of their document form.",
      py::arg("type"), py::kw_only(), py::arg("document") = false, py::arg("dates") = "iso8601");
}

// Every raw-value enumeration of the table becomes an enum.Enum under its TYPE name, and every
// TYPE's class knows its TYPE.
void bindTypes(py::module_& m) {
  for (const auto& entry : tool::registeredTypes()) {
    py::object cls;
    if (const tool::EnumerationInfo* info = entry.enumeration()) {
      std::vector<std::pair<std::string, std::string>> cases;
      for (const auto& c : info->cases) cases.emplace_back(c.name, c.rawValue);
      cls = enumClass(*entry.type, entry.name, cases).cls;
    } else {
      cls = m;
      std::string name(entry.name);
      std::size_t start = 0;
      while (cls && start <= name.size()) {
        std::size_t dot = name.find('.', start);
        std::string part = name.substr(start, dot == std::string::npos ? dot : dot - start);
        cls = py::hasattr(cls, part.c_str()) ? cls.attr(part.c_str()) : py::object();
        if (dot == std::string::npos) break;
        start = dot + 1;
      }
    }
    if (cls && !cls.is(m)) entriesByClass()[cls.ptr()] = &entry;
  }
  registerValue(typeid(Identifier), [](std::any& value) {
    return py::cast(std::any_cast<Identifier&>(value));
  });
}

}  // namespace

}  // namespace orvane::python

PYBIND11_MODULE(_orvane, m) {
  using namespace orvane::python;
  setModule(m);
  m.attr("__version__") = ORVANE_VERSION_STRING;
  decodingErrorType = PyErr_NewExceptionWithDoc(
      "orvane.DecodingError",
      "A document did not decode: kind, codingPath, key, line, column, reason and "
      "description, and the tool's one-line message.",
      PyExc_ValueError, nullptr);
  m.attr("DecodingError") = py::handle(decodingErrorType);
  py::register_exception_translator([](std::exception_ptr p) {
    try {
      if (p) std::rethrow_exception(p);
    } catch (const orvane::DecodingError& e) {
      raiseDecodingError(e);
    } catch (const orvane::EncodingError& e) {
      PyErr_SetString(PyExc_ValueError, e.what());
    }
  });
  bindGeometry(m);
  bindRecordsA(m);
  bindRecordsB(m);
  bindValues(m);
  bindTypes(m);
  bindCoding(m);
  bindHandoff(m);
}
