// orvane: decode, check and look into the service's documents from the command line.
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Diff.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Inspect.hpp>
#include <orvane/handoff/Measure.hpp>
#include <orvane/handoff/Render.hpp>
#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/version.hpp>

#include "Output.hpp"
#include "Report.hpp"
#include "Suggest.hpp"
#include "Types.hpp"

namespace {

using namespace orvane;
using namespace orvane::tool;

constexpr int kDecodingFailed = 1;
constexpr int kUsage = 2;
constexpr int kWriteFailed = 3;

int usageError(const std::string& reason) {
  std::cerr << "orvane: " << oneLine(reason) << "\nRun with --help for more information.\n";
  return kUsage;
}

// Reads the whole input into a buffer followed by the padding the parser needs. On failure,
// returns false with the system's reason in `error`.
bool readInput(const std::string& file, std::vector<char>& buffer, std::size_t& size,
               std::string& error) {
  std::FILE* in = stdin;
  if (!file.empty() && file != "-") {
    in = std::fopen(file.c_str(), "rb");
    if (!in) {
      error = std::strerror(errno);
      return false;
    }
  }
  size = 0;
  buffer.resize(1 << 16);
  errno = 0;
  for (;;) {
    if (buffer.size() - size < JsonDecoder::kPadding + 4096) buffer.resize(buffer.size() * 2);
    std::size_t n =
        std::fread(buffer.data() + size, 1, buffer.size() - size - JsonDecoder::kPadding, in);
    size += n;
    if (n == 0) break;
  }
  bool failed = std::ferror(in);
  int reason = errno != 0 ? errno : EIO;
  if (in != stdin)
    std::fclose(in);
  else
    std::clearerr(in);
  if (failed) error = std::strerror(reason);
  return !failed;
}

std::string inputName(const std::string& file) {
  return file.empty() || file == "-" ? "standard input" : file;
}

struct Request {
  std::string type;
  std::string file;                // decode and dump
  std::vector<std::string> files;  // check
  bool importSource = false;
  std::string dates = "iso8601";
  bool jsonErrors = false;
  bool pretty = false;
  bool warnings = false;
};

void addDocumentOptions(CLI::App& command, Request& request, bool manyFiles) {
  command.add_option("TYPE", request.type, "The record's qualified name (see `orvane types`)")
      ->required();
  if (manyFiles) {
    command.add_option("FILE", request.files, "The documents; - for standard input")->required();
  } else {
    command.add_option("FILE", request.file, "The document; standard input when absent or -");
  }
  command.add_flag("--import-source", request.importSource,
                   "Decode as a document from an import source (fromImportSource = true)");
  command.add_option("--dates", request.dates, "Date strategy for reading and writing")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  command.add_flag("--json-errors", request.jsonErrors,
                   manyFiles ? "Print each file's line as a JSON object"
                             : "On a decoding failure, print the error as JSON on standard output");
  command.add_flag("--pretty", request.pretty,
                   manyFiles ? "Accepted as for decode; check prints no document"
                             : "Indent the output by two spaces");
  command.add_flag("--warnings", request.warnings,
                   "After a successful decode, list on standard error every value that a "
                   "tolerant key dropped");
}

// The TYPE's entry, or null with the usage error already reported.
const TypeEntry* lookUpType(const std::string& name) {
  if (const TypeEntry* type = findType(name)) return type;
  std::vector<std::string_view> names;
  for (const auto& type : registeredTypes()) names.push_back(type.name);
  usageError("unknown TYPE: " + name + didYouMean(closestNames(name, names)));
  return nullptr;
}

Settings settingsFor(const Request& request, WarningLines* warnings) {
  Settings settings;
  DateStrategy dates = request.dates == "seconds"        ? DateStrategy::seconds
                       : request.dates == "milliseconds" ? DateStrategy::milliseconds
                       : request.dates == "deferred"     ? DateStrategy::deferred
                                                         : DateStrategy::iso8601;
  settings.decoding.dates = dates;
  settings.encoding.dates = dates;
  settings.encoding.pretty = request.pretty;
  settings.decoding.warnings = warnings;
  if (request.importSource) {
    settings.decoding.userInfo[CodingUserInfoKey::fromImportSource()] = true;
  }
  return settings;
}

void printWarnings(const WarningLines& warnings, std::string_view prefix) {
  for (const auto& line : warnings.lines()) std::cerr << prefix << line << '\n';
}

int runDocumentCommand(const Request& request, bool dump, Output& out) {
  const TypeEntry* type = lookUpType(request.type);
  if (!type) return kUsage;
  if (!dump && !type->decode) {
    return usageError(request.type + " is decode-only: it has no encoding to print");
  }
  WarningLines warnings;
  Settings settings = settingsFor(request, request.warnings ? &warnings : nullptr);

  try {
    std::vector<char> buffer;
    std::size_t size = 0;
    std::string reason;
    if (!readInput(request.file, buffer, size, reason)) {
      return usageError("cannot read " + inputName(request.file) + ": " + reason);
    }
    std::string_view json(buffer.data(), size);
    JsonDecoder decoder(settings.decoding);
    std::string result =
        dump ? type->dump(decoder, json, settings) : type->decode(decoder, json, settings);
    result += '\n';
    out.write(result);
    printWarnings(warnings, "");
    return 0;
  } catch (const DecodingError& e) {
    if (request.jsonErrors) out.write(errorJson(e) + '\n');
    std::cerr << "error: " << oneLine(e.what()) << '\n';
    return kDecodingFailed;
  } catch (const EncodingError& e) {
    std::cerr << "error: " << oneLine(e.what()) << '\n';
    return kDecodingFailed;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

// Which snapshot a hand-off command looks at.
struct SnapshotChoice {
  std::string screen;
  std::string component;
  std::string versionId;
};

void addSnapshotOptions(CLI::App& command, SnapshotChoice& choice) {
  command.add_option("--screen", choice.screen,
                     "In a Project document: the screen with this identifier");
  command.add_option("--component", choice.component,
                     "In a Project document: the component with this identifier");
  command.add_option("--version-id", choice.versionId,
                     "The version with this identifier instead of the latest");
}

// A failure that ends a hand-off command with a status of its own.
struct CommandFailure {
  int status;
};

// Reads the request's document and finds the snapshot it names (with the project it lies in,
// for a Project document); on failure, reports it and throws the status to exit with.
Ref<Snapshot> loadSnapshot(const Request& request, const SnapshotChoice& choice, Output& out,
                           JsonDecoder& decoder, Ref<Project>* inProject = nullptr) {
  bool fromProject = request.type == "Project";
  if (!fromProject && request.type != "Snapshot") {
    if (!lookUpType(request.type)) throw CommandFailure{kUsage};  // reported with suggestions
    throw CommandFailure{
        usageError("TYPE must be Snapshot or Project (a screen's or component's version)")};
  }
  bool names = !choice.screen.empty() || !choice.component.empty() || !choice.versionId.empty();
  if (!fromProject && names) {
    throw CommandFailure{usageError("--screen, --component and --version-id need a Project")};
  }
  if (fromProject && choice.screen.empty() == choice.component.empty()) {
    throw CommandFailure{usageError("a Project needs exactly one of --screen and --component")};
  }
  if (names && request.importSource) {
    throw CommandFailure{usageError(
        "--import-source gives every record a fresh identifier, so none could be named")};
  }
  std::vector<char> buffer;
  std::size_t size = 0;
  std::string reason;
  if (!readInput(request.file, buffer, size, reason)) {
    throw CommandFailure{usageError("cannot read " + inputName(request.file) + ": " + reason)};
  }
  std::string_view json(buffer.data(), size);
  try {
    if (!fromProject) return decoder.decode<Ref<Snapshot>>(json);
    auto project = decoder.decode<Ref<Project>>(json);
    if (inProject) *inProject = project;
    auto notFound = [](const std::string& what) {
      std::cerr << "error: " << oneLine(what) << '\n';
      return CommandFailure{kDecodingFailed};
    };
    Ref<VersionCollection> collection;
    if (!choice.screen.empty()) {
      collection = handoff::findScreen(*project, Identifier(choice.screen));
      if (!collection) throw notFound("no screen with identifier " + choice.screen);
    } else {
      collection = handoff::findComponent(*project, Identifier(choice.component));
      if (!collection) throw notFound("no component with identifier " + choice.component);
    }
    std::optional<Identifier> version;
    if (!choice.versionId.empty()) version = Identifier(choice.versionId);
    Ref<Version> found = handoff::findVersion(*collection, version);
    if (!found) {
      throw notFound(version ? "no version with identifier " + choice.versionId + " in " +
                                   std::string(collection->identifier().rawValue())
                             : "no latest version");
    }
    // Keep the project alive with the snapshot: its records refer to it only weakly.
    return Ref<Snapshot>(project, found->snapshot().get());
  } catch (const DecodingError& e) {
    if (request.jsonErrors) out.write(errorJson(e) + '\n');
    std::cerr << "error: " << oneLine(e.what()) << '\n';
    throw CommandFailure{kDecodingFailed};
  }
}

struct RenderRequest {
  Request document;
  SnapshotChoice choice;
  handoff::RenderOptions options;
};

int runRender(const RenderRequest& request, Output& out) {
  WarningLines warnings;
  Settings settings =
      settingsFor(request.document, request.document.warnings ? &warnings : nullptr);
  try {
    JsonDecoder decoder(settings.decoding);
    Ref<Snapshot> snapshot = loadSnapshot(request.document, request.choice, out, decoder);
    printWarnings(warnings, "");
    out.write(handoff::renderSvg(*snapshot, request.options));
    return 0;
  } catch (const CommandFailure& failure) {
    return failure.status;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

struct CodeRequest {
  std::string language;
  Request document;
  SnapshotChoice choice;
  std::string layer;
  std::string density;
};

int runCode(const CodeRequest& request, Output& out) {
  handoff::CodeOptions options;
  if (!request.density.empty()) {
    options.density = fromRawValue<Density>(request.density);
    if (!options.density) {
      return usageError("--density " + request.density +
                        " is none of 1x, 2x, 3x, mdpi, hdpi, xhdpi, xxhdpi, xxxhdpi");
    }
  }
  WarningLines warnings;
  Settings settings =
      settingsFor(request.document, request.document.warnings ? &warnings : nullptr);
  try {
    JsonDecoder decoder(settings.decoding);
    Ref<Project> project;
    Ref<Snapshot> snapshot =
        loadSnapshot(request.document, request.choice, out, decoder, &project);
    printWarnings(warnings, "");
    handoff::FoundLayer found = handoff::findLayer(*snapshot, request.layer);
    if (!found.layer) {
      std::cerr << "error: " << oneLine(found.error) << '\n';
      return kDecodingFailed;
    }
    handoff::StyleGuide guide = project ? handoff::StyleGuide(*project) : handoff::StyleGuide();
    options.styleGuide = &guide;
    const Layer& layer = *found.layer;
    out.write(request.language == "css"       ? handoff::layerCss(layer, options)
              : request.language == "swiftui" ? handoff::layerSwiftUI(layer, options)
                                              : handoff::layerCompose(layer, options));
    return 0;
  } catch (const CommandFailure& failure) {
    return failure.status;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

struct TokensRequest {
  std::string format;
  Request document;
};

int runTokens(const TokensRequest& request, Output& out) {
  WarningLines warnings;
  Settings settings =
      settingsFor(request.document, request.document.warnings ? &warnings : nullptr);
  try {
    std::vector<char> buffer;
    std::size_t size = 0;
    std::string reason;
    if (!readInput(request.document.file, buffer, size, reason)) {
      return usageError("cannot read " + inputName(request.document.file) + ": " + reason);
    }
    JsonDecoder decoder(settings.decoding);
    auto project = decoder.decode<Ref<Project>>(std::string_view(buffer.data(), size));
    printWarnings(warnings, "");
    static const std::pair<const char*, handoff::TokenFormat> kFormats[] = {
        {"dtcg", handoff::TokenFormat::dtcg},
        {"css", handoff::TokenFormat::css},
        {"swift", handoff::TokenFormat::swift},
        {"kotlin", handoff::TokenFormat::kotlin}};
    handoff::TokenFormat format = handoff::TokenFormat::dtcg;
    for (const auto& [name, f] : kFormats) {
      if (request.format == name) format = f;
    }
    out.write(handoff::writeTokens(handoff::StyleGuide(*project), format));
    return 0;
  } catch (const DecodingError& e) {
    if (request.document.jsonErrors) out.write(errorJson(e) + '\n');
    std::cerr << "error: " << oneLine(e.what()) << '\n';
    return kDecodingFailed;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

struct InspectRequest {
  Request document;
  SnapshotChoice choice;
  bool json = false;
};

int runInspect(const InspectRequest& request, Output& out) {
  WarningLines warnings;
  Settings settings =
      settingsFor(request.document, request.document.warnings ? &warnings : nullptr);
  try {
    JsonDecoder decoder(settings.decoding);
    handoff::InspectNode tree;
    const auto& c = request.choice;
    if (request.document.type == "Project" && c.screen.empty() && c.component.empty()) {
      if (!c.versionId.empty()) return usageError("--version-id needs --screen or --component");
      std::vector<char> buffer;
      std::size_t size = 0;
      std::string reason;
      if (!readInput(request.document.file, buffer, size, reason)) {
        return usageError("cannot read " + inputName(request.document.file) + ": " + reason);
      }
      try {
        auto project = decoder.decode<Ref<Project>>(std::string_view(buffer.data(), size));
        tree = handoff::inspectProject(*project);
      } catch (const DecodingError& e) {
        if (request.document.jsonErrors) out.write(errorJson(e) + '\n');
        std::cerr << "error: " << oneLine(e.what()) << '\n';
        return kDecodingFailed;
      }
    } else {
      Ref<Project> project;
      Ref<Snapshot> snapshot =
          loadSnapshot(request.document, request.choice, out, decoder, &project);
      tree = handoff::inspectSnapshot(*snapshot, project.get());
    }
    printWarnings(warnings, "");
    out.write(request.json ? handoff::inspectJson(tree) : handoff::inspectText(tree));
    return 0;
  } catch (const CommandFailure& failure) {
    return failure.status;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

struct MeasureRequest {
  Request document;
  SnapshotChoice choice;
  std::string a, b;
  bool json = false;
};

int runMeasure(const MeasureRequest& request, Output& out) {
  WarningLines warnings;
  Settings settings =
      settingsFor(request.document, request.document.warnings ? &warnings : nullptr);
  try {
    JsonDecoder decoder(settings.decoding);
    Ref<Snapshot> snapshot = loadSnapshot(request.document, request.choice, out, decoder);
    printWarnings(warnings, "");
    Ref<Layer> layers[2];
    const std::string* names[2] = {&request.a, &request.b};
    for (int i = 0; i < 2; ++i) {
      handoff::FoundLayer found = handoff::findLayer(*snapshot, *names[i]);
      if (!found.layer) {
        std::cerr << "error: " << oneLine(found.error) << '\n';
        return kDecodingFailed;
      }
      layers[i] = found.layer;
    }
    handoff::Measurement m =
        handoff::measure(layers[0]->absoluteFrame(), layers[1]->absoluteFrame());
    auto n = [](double v) { return orvane::detail::number(v); };
    std::string text;
    if (request.json) {
      std::string a, b;
      orvane::detail::appendJsonString(a, layers[0]->identifier().rawValue());
      orvane::detail::appendJsonString(b, layers[1]->identifier().rawValue());
      text = "{\"a\":" + a + ",\"b\":" + b + ",\"relation\":";
      switch (m.relation) {
        case handoff::Measurement::Relation::apart:
          text += "\"apart\",\"horizontal\":" + n(m.horizontal) + ",\"vertical\":" +
                  n(m.vertical);
          break;
        case handoff::Measurement::Relation::inside:
          text += std::string("\"inside\",\"inner\":\"") + (m.innerIsA ? "a" : "b") +
                  "\",\"top\":" + n(m.top) + ",\"right\":" + n(m.right) + ",\"bottom\":" +
                  n(m.bottom) + ",\"left\":" + n(m.left);
          break;
        case handoff::Measurement::Relation::overlap:
          text += "\"overlap\",\"width\":" + n(m.width) + ",\"height\":" + n(m.height);
          break;
      }
      text += "}\n";
    } else {
      const std::string& a = layers[0]->name();
      const std::string& b = layers[1]->name();
      switch (m.relation) {
        case handoff::Measurement::Relation::apart:
          text = a + " and " + b + " are apart: " + n(m.horizontal) + " horizontally, " +
                 n(m.vertical) + " vertically\n";
          break;
        case handoff::Measurement::Relation::inside:
          text = (m.innerIsA ? a + " lies inside " + b : b + " lies inside " + a) +
                 ": top " + n(m.top) + ", right " + n(m.right) + ", bottom " + n(m.bottom) +
                 ", left " + n(m.left) + "\n";
          break;
        case handoff::Measurement::Relation::overlap:
          text = a + " and " + b + " overlap by " + n(m.width) + " \u00d7 " + n(m.height) + "\n";
          break;
      }
    }
    out.write(text);
    return 0;
  } catch (const CommandFailure& failure) {
    return failure.status;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

struct DiffRequest {
  Request document;
  std::string newer;  // the second snapshot document
  SnapshotChoice choice;
  std::string from, to;
  bool json = false;
};

// As diff(1): 0 nothing changed, 1 something did, 2 any trouble.
constexpr int kDiffTrouble = 2;

int runDiff(const DiffRequest& request, Output& out) {
  const auto& type = request.document.type;
  if (type != "Snapshot" && type != "Project") {
    if (!lookUpType(type)) return kUsage;
    return usageError("TYPE must be Snapshot (two documents) or Project (two versions)");
  }
  bool versions = !request.from.empty() || !request.to.empty();
  if (type == "Snapshot" && (request.newer.empty() || versions)) {
    return usageError("diff Snapshot takes two documents, OLD and NEW, and no --from or --to");
  }
  if (type == "Project" && (!request.newer.empty() || request.from.empty() || request.to.empty())) {
    return usageError("diff Project takes one document and --from VERSION_ID --to VERSION_ID");
  }
  if (!request.choice.versionId.empty()) return usageError("diff takes --from and --to");
  WarningLines warnings;
  Settings settings =
      settingsFor(request.document, request.document.warnings ? &warnings : nullptr);
  try {
    JsonDecoder decoder(settings.decoding);
    Ref<Snapshot> before, after;
    if (type == "Snapshot") {
      before = loadSnapshot(request.document, request.choice, out, decoder);
      Request second = request.document;
      second.file = request.newer;
      JsonDecoder other(settings.decoding);
      after = loadSnapshot(second, request.choice, out, other);
    } else {
      SnapshotChoice choice = request.choice;
      if (request.document.importSource) {
        return usageError(
            "--import-source gives every record a fresh identifier, so none could be named");
      }
      choice.versionId = request.from;
      Ref<Project> project;
      before = loadSnapshot(request.document, choice, out, decoder, &project);
      Ref<VersionCollection> collection =
          !choice.screen.empty()
              ? Ref<VersionCollection>(handoff::findScreen(*project, Identifier(choice.screen)))
              : Ref<VersionCollection>(
                    handoff::findComponent(*project, Identifier(choice.component)));
      Ref<Version> version = handoff::findVersion(*collection, Identifier(request.to));
      if (!version) {
        std::cerr << "error: no version with identifier " << oneLine(request.to) << " in "
                  << oneLine(std::string(collection->identifier().rawValue())) << '\n';
        return kDiffTrouble;
      }
      after = Ref<Snapshot>(project, version->snapshot().get());
    }
    printWarnings(warnings, "");
    handoff::SnapshotDiff diff = handoff::diffSnapshots(*before, *after);
    std::string text;
    auto layerJson = [](const Layer& l) {
      std::string s = "{\"sourceIdentifier\":";
      orvane::detail::appendJsonString(s, l.sourceIdentifier().rawValue());
      s += ",\"name\":";
      orvane::detail::appendJsonString(s, l.name());
      return s + "}";
    };
    if (request.json) {
      text = "{\"added\":[";
      for (std::size_t i = 0; i < diff.added.size(); ++i) {
        text += (i ? "," : "") + layerJson(*diff.added[i]);
      }
      text += "],\"removed\":[";
      for (std::size_t i = 0; i < diff.removed.size(); ++i) {
        text += (i ? "," : "") + layerJson(*diff.removed[i]);
      }
      text += "],\"changed\":[";
      for (std::size_t i = 0; i < diff.changed.size(); ++i) {
        const auto& c = diff.changed[i];
        text += (i ? "," : "") + std::string("{\"layer\":") + layerJson(*c.after) +
                ",\"changes\":[";
        for (std::size_t k = 0; k < c.changes.size(); ++k) {
          text += (k ? ",\"" : "\"") + std::string(handoff::changeName(c.changes[k])) + "\"";
        }
        text += "]}";
      }
      text += "]}\n";
    } else {
      for (const auto& l : diff.added) text += "+ " + oneLine(l->name()) + "\n";
      for (const auto& l : diff.removed) text += "- " + oneLine(l->name()) + "\n";
      for (const auto& c : diff.changed) {
        text += "~ " + oneLine(c.after->name()) + ":";
        for (std::size_t k = 0; k < c.changes.size(); ++k) {
          text += (k ? ", " : " ") + std::string(handoff::changeName(c.changes[k]));
        }
        text += "\n";
      }
    }
    out.write(text);
    return diff.empty() ? 0 : 1;
  } catch (const CommandFailure& failure) {
    // Every trouble is 2 here, a document that does not decode included.
    return failure.status == kDecodingFailed ? kDiffTrouble : failure.status;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDiffTrouble;
  }
}

int runCheck(const Request& request, Output& out) {
  const TypeEntry* type = lookUpType(request.type);
  if (!type) return kUsage;
  WarningLines warnings;
  Settings settings = settingsFor(request, request.warnings ? &warnings : nullptr);
  std::vector<char> buffer;
  // Shared by the files, so that each reuses the parser's buffers and record chunks; let go,
  // like the buffer, when memory runs out.
  std::optional<JsonDecoder> decoder;
  int status = 0;
  for (const auto& file : request.files) {
    if (!out.ok()) break;  // nothing more can be reported
    warnings.clear();
    std::string line;
    bool decoded = false;
    try {
      std::size_t size = 0;
      std::string reason;
      if (!readInput(file, buffer, size, reason)) {
        line = checkLine(file, request.jsonErrors, FileFailure{"unreadable", reason});
      } else {
        if (!decoder) decoder.emplace(settings.decoding);
        type->check(*decoder, std::string_view(buffer.data(), size), settings);
        decoded = true;
        line = checkLine(file, request.jsonErrors);
        printWarnings(warnings, oneLine(file) + ": ");
      }
    } catch (const DecodingError& e) {
      line = checkLine(file, request.jsonErrors, e);
    } catch (const std::bad_alloc&) {
      buffer = {};
      decoder.reset();
      decoded = false;
      line = checkLine(file, request.jsonErrors,
                       FileFailure{"outOfMemory", "the document does not fit in memory"});
    }
    if (!decoded) status = kDecodingFailed;
    out.write(line + '\n');
  }
  return status;
}

int run(int argc, char** argv, Output& out) {
  CLI::App app{"Decode, check and look into documents of the service."};
  app.name("orvane");
  app.require_subcommand(1);
  app.set_version_flag("--version", std::string("orvane ") + ORVANE_VERSION_STRING,
                       "Print the version and exit");
  app.footer(
      "Exit status: 0 on success, 1 when a document does not decode, 2 for a usage error, 3 when "
      "the output cannot be written.");

  Request decodeRequest, dumpRequest, checkRequest;
  auto* decode =
      app.add_subcommand("decode", "Decode a document as TYPE and print what it writes back");
  addDocumentOptions(*decode, decodeRequest, false);
  decode->footer(
      "Prints one line of compact JSON (indented with --pretty). Exit status: 0 on success, 1 "
      "when the document does not decode, 2 for a usage error or a decode-only TYPE, 3 when the "
      "output cannot be written.");
  auto* dump =
      app.add_subcommand("dump", "Decode a document as TYPE and print every field it holds");
  addDocumentOptions(*dump, dumpRequest, false);
  dump->footer(
      "Prints one JSON value with a member per stored field. Exit status: 0 on success, 1 when "
      "the document does not decode, 2 for a usage error, 3 when the output cannot be written.");
  auto* check = app.add_subcommand("check", "Decode each FILE as TYPE; one status line per file");
  addDocumentOptions(*check, checkRequest, true);
  check->footer(
      "Prints `FILE: ok` or `FILE: ` and the error, one line per file in order. Exit status: 0 "
      "when every file decodes, 1 when any does not (an unreadable file counts), 2 for a usage "
      "error, 3 when the output cannot be written.");
  auto* types = app.add_subcommand("types", "List every TYPE name, one a line");

  RenderRequest renderRequest;
  auto* render = app.add_subcommand("render", "Draw a snapshot as one SVG document");
  addDocumentOptions(*render, renderRequest.document, false);
  addSnapshotOptions(*render, renderRequest.choice);
  render->add_flag("--links", renderRequest.options.links,
                   "Outline the hotspot links, labelled with their destination");
  render->add_flag("--grid", renderRequest.options.grid, "Draw the layout grid's columns and rows");
  render->add_flag("--assets", renderRequest.options.assets,
                   "Outline each exportable layer and each layer an asset names");
  render->footer(
      "TYPE is Snapshot, or Project with --screen ID or --component ID (the latest version, or "
      "the one --version-id names). Prints the SVG on standard output. Exit status: 0 on "
      "success, 1 when the document does not decode or what is named does not exist, 2 for a "
      "usage error, 3 when the output cannot be written.");

  CodeRequest codeRequest;
  auto* code = app.add_subcommand("code", "Write the code of one layer: CSS, SwiftUI or Compose");
  code->add_option("LANGUAGE", codeRequest.language, "css, swiftui or compose")
      ->required()
      ->check(CLI::IsMember({"css", "swiftui", "compose"}));
  addDocumentOptions(*code, codeRequest.document, false);
  addSnapshotOptions(*code, codeRequest.choice);
  code->add_option("--layer", codeRequest.layer,
                   "The layer: its identifier, its name when unique, or its path of names "
                   "(Card/Title)")
      ->required();
  code->add_option("--density", codeRequest.density,
                   "How document units map to points and dp: 1x, 2x, 3x, mdpi ... xxxhdpi "
                   "(default the snapshot's, else 1x)");
  code->footer(
      "TYPE is Snapshot, or Project with --screen ID or --component ID; with a Project, colors "
      "and text styles of its style guide are named by their tokens. Exit status: 0 on "
      "success, 1 when the document does not decode or what is named does not exist, 2 for a "
      "usage error, 3 when the output cannot be written.");

  TokensRequest tokensRequest;
  auto* tokens =
      app.add_subcommand("tokens", "Write a Project's style guide as design tokens");
  tokens->add_option("FORMAT", tokensRequest.format, "dtcg, css, swift or kotlin")
      ->required()
      ->check(CLI::IsMember({"dtcg", "css", "swift", "kotlin"}));
  tokens->add_option("FILE", tokensRequest.document.file,
                     "The Project document; standard input when absent or -");
  tokens->add_flag("--import-source", tokensRequest.document.importSource,
                   "Decode as a document from an import source (fromImportSource = true)");
  tokens->add_option("--dates", tokensRequest.document.dates, "Date strategy for reading")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  tokens->add_flag("--json-errors", tokensRequest.document.jsonErrors,
                   "On a decoding failure, print the error as JSON on standard output");
  tokens->add_flag("--warnings", tokensRequest.document.warnings,
                   "After a successful decode, list on standard error every value that a "
                   "tolerant key dropped");
  tokens->footer(
      "dtcg: one Design Tokens Community Group (2025.10) JSON document, grouped by the "
      "/-separated parts of names; css: custom properties in :root; swift: Color and Font "
      "extensions; kotlin: Compose Color and TextStyle values. Exit status: 0 on success, 1 "
      "when the document does not decode, 2 for a usage error, 3 when the output cannot be "
      "written.");

  InspectRequest inspectRequest;
  auto* inspect =
      app.add_subcommand("inspect", "Show a project or a snapshot as a tree a person reads");
  addDocumentOptions(*inspect, inspectRequest.document, false);
  addSnapshotOptions(*inspect, inspectRequest.choice);
  inspect->add_flag("--json", inspectRequest.json, "Print the tree as one JSON value");
  inspect->footer(
      "TYPE is Project (its sections, screens, versions, dots, components, style guide and "
      "members) or Snapshot (its layer tree, links and assets; also a Project with --screen ID "
      "or --component ID). Long lists are shortened in the tree, never in --json. Exit status: "
      "0 on success, 1 when the document does not decode or what is named does not exist, 2 "
      "for a usage error, 3 when the output cannot be written.");

  MeasureRequest measureRequest;
  auto* measureCommand =
      app.add_subcommand("measure", "Measure the distances between two layers");
  measureCommand->add_option("TYPE", measureRequest.document.type, "Snapshot or Project")
      ->required();
  measureCommand->add_option("FILE", measureRequest.document.file, "The document; - for "
                                                                    "standard input")
      ->required();
  measureCommand->add_option("LAYER_A", measureRequest.a, "A layer: identifier, name or path")
      ->required();
  measureCommand->add_option("LAYER_B", measureRequest.b, "Another layer")->required();
  addSnapshotOptions(*measureCommand, measureRequest.choice);
  measureCommand->add_flag("--json", measureRequest.json, "Print the measurement as JSON");
  measureCommand->add_flag("--import-source", measureRequest.document.importSource,
                           "Decode as a document from an import source");
  measureCommand->add_option("--dates", measureRequest.document.dates, "Date strategy")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  measureCommand->add_flag("--json-errors", measureRequest.document.jsonErrors,
                           "On a decoding failure, print the error as JSON");
  measureCommand->footer(
      "Apart (touching counts, with a gap of 0): the horizontal and vertical gaps. One inside "
      "the other (equal frames count): the four insets of the inner one. Otherwise: the "
      "overlap's width and height. Exit status: 0 on success, 1 when the document does not "
      "decode or a layer does not exist, 2 for a usage error, 3 when the output cannot be "
      "written.");

  DiffRequest diffRequest;
  auto* diff = app.add_subcommand("diff", "What changed from one snapshot to another");
  diff->add_option("TYPE", diffRequest.document.type, "Snapshot or Project")->required();
  diff->add_option("OLD", diffRequest.document.file,
                   "The older snapshot, or the Project document; - for standard input")
      ->required();
  diff->add_option("NEW", diffRequest.newer, "The newer snapshot (Snapshot only)");
  addSnapshotOptions(*diff, diffRequest.choice);
  diff->add_option("--from", diffRequest.from, "Project: the older version's identifier");
  diff->add_option("--to", diffRequest.to, "Project: the newer version's identifier");
  diff->add_flag("--json", diffRequest.json, "Print the changes as JSON");
  diff->add_flag("--import-source", diffRequest.document.importSource,
                 "Decode as documents from an import source");
  diff->add_option("--dates", diffRequest.document.dates, "Date strategy")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  diff->footer(
      "Layers are matched by source identifier (shared ones paired in tree order); each "
      "matched layer reports renamed, moved, resized, rotated, restyled, text, kind, "
      "reparented. Lines: + NAME, - NAME, ~ NAME: changes. Exit status, as diff(1): 0 when "
      "nothing changed, 1 when something did, 2 for every trouble, 3 when the output cannot be "
      "written.");

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& e) {
    // --help or --version: their text is output like any other.
    std::ostringstream text, errors;
    int status = app.exit(e, text, errors);
    out.write(text.str());
    std::cerr << errors.str();
    return status;
  } catch (const CLI::ParseError& e) {
    return usageError(e.what());
  }

  if (types->parsed()) {
    std::string list;
    for (const auto& type : registeredTypes()) {
      list += type.name;
      list += '\n';
    }
    out.write(list);
    return 0;
  }
  if (check->parsed()) return runCheck(checkRequest, out);
  if (render->parsed()) return runRender(renderRequest, out);
  if (code->parsed()) return runCode(codeRequest, out);
  if (tokens->parsed()) return runTokens(tokensRequest, out);
  if (inspect->parsed()) return runInspect(inspectRequest, out);
  if (measureCommand->parsed()) return runMeasure(measureRequest, out);
  if (diff->parsed()) return runDiff(diffRequest, out);
  if (decode->parsed()) return runDocumentCommand(decodeRequest, false, out);
  return runDocumentCommand(dumpRequest, true, out);
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that went away is a write error to report, not a signal that ends the tool.
  std::signal(SIGPIPE, SIG_IGN);
  // Standard error must not flush standard output as it prints: a failed write would then be
  // seen first by the stream, which keeps no reason, instead of by `out`.
  std::cerr.tie(nullptr);
  Output out;
  int status = run(argc, argv, out);
  if (int error = out.close()) {
    std::cerr << "error: cannot write output: " << std::strerror(error) << '\n';
    return kWriteFailed;
  }
  return status;
}
