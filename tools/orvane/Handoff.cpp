#include "Handoff.hpp"

#include <cmath>
#include <iostream>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include <orvane/handoff/Assets.hpp>
#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Diff.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Inspect.hpp>
#include <orvane/handoff/Measure.hpp>
#include <orvane/handoff/Render.hpp>
#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/internal/Markup.hpp>

#include "Command.hpp"
#include "MeasureText.hpp"

namespace orvane::tool {

namespace {

// Which snapshot a command looks at.
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

// What ends a command early, with its status; what it had to say is already said.
struct CommandFailure {
  int status;
};

[[noreturn]] void notFound(const std::string& what) {
  std::cerr << "error: " << oneLine(what) << '\n';
  throw CommandFailure{kDecodingFailed};
}

// The request's document decoded as T; a failure to read or decode it is reported, after
// `label` where one document of several is meant.
template <class T>
T decodeDocument(const Request& request, JsonDecoder& decoder, Output& out,
                 std::string_view label = {}) {
  std::vector<char> buffer;
  std::size_t size = 0;
  std::string reason;
  if (!readInput(request.file, buffer, size, reason)) {
    throw CommandFailure{usageError("cannot read " + inputName(request.file) + ": " + reason)};
  }
  try {
    return decoder.decode<T>(std::string_view(buffer.data(), size));
  } catch (const DecodingError& e) {
    if (request.jsonErrors) out.write(errorJson(e) + '\n');
    std::cerr << "error: " << label << oneLine(e.what()) << '\n';
    throw CommandFailure{kDecodingFailed};
  }
}

// A snapshot document's snapshot, or a project's screen's or component's version's, with the
// project it lies in.
struct Loaded {
  Ref<Snapshot> snapshot;
  Ref<Project> project;
  Ref<VersionCollection> collection;
};

Loaded loadSnapshot(const Request& request, const SnapshotChoice& choice, Output& out,
                    JsonDecoder& decoder, std::string_view label = {}) {
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
  Loaded loaded;
  if (!fromProject) {
    loaded.snapshot = decodeDocument<Ref<Snapshot>>(request, decoder, out, label);
    return loaded;
  }
  loaded.project = decodeDocument<Ref<Project>>(request, decoder, out, label);
  if (!choice.screen.empty()) {
    loaded.collection = handoff::findScreen(*loaded.project, Identifier(choice.screen));
    if (!loaded.collection) notFound("no screen with identifier " + choice.screen);
  } else {
    loaded.collection = handoff::findComponent(*loaded.project, Identifier(choice.component));
    if (!loaded.collection) notFound("no component with identifier " + choice.component);
  }
  std::optional<Identifier> version;
  if (!choice.versionId.empty()) version = Identifier(choice.versionId);
  Ref<Version> found = handoff::findVersion(*loaded.collection, version);
  if (!found) {
    notFound(version ? "no version with identifier " + choice.versionId + " in " +
                           std::string(loaded.collection->identifier().rawValue())
                     : "no latest version");
  }
  // Kept with the project: its records refer to it only weakly.
  loaded.snapshot = Ref<Snapshot>(loaded.project, found->snapshot().get());
  return loaded;
}

// The layer a name names; a name that names none, or several, ends the command with the
// candidates listed, so that the person can name one of them without a guess.
Ref<Layer> layerNamed(const Snapshot& snapshot, const std::string& name) {
  handoff::FoundLayer found = handoff::findLayer(snapshot, name);
  if (found.layer) return found.layer;
  std::cerr << "error: " << oneLine(found.error) << '\n';
  for (const auto& candidate : found.candidates) {
    std::cerr << "  " << oneLine(candidate.layer->identifier().rawValue()) << " ("
              << oneLine(candidate.path) << ")\n";
  }
  throw CommandFailure{kDecodingFailed};
}

constexpr const char* kDensityHelp =
    "The scale the design was drawn at, by which every length is divided: 1x (the default), "
    "2x, 3x, mdpi, hdpi, xhdpi, xxhdpi, xxxhdpi";

// The density --density names, 1x when it was not given; any other text is a usage error,
// reported, and gives none.
std::optional<Density> densityOption(const std::string& text) {
  if (text.empty()) return Density::_1x;
  std::optional<Density> density = fromRawValue<Density>(text);
  if (!density) {
    usageError("--density " + text + " is none of 1x, 2x, 3x, mdpi, hdpi, xhdpi, xxhdpi, xxxhdpi");
  }
  return density;
}

// Runs a command's body with a decoder made for its request, then lists the warnings of what
// it decoded; what ends the body early ends the command with its status.
template <class Body>
int runWithDecoder(const Request& request, Body&& body) {
  WarningLines warnings;
  Settings settings = settingsFor(request, request.warnings ? &warnings : nullptr);
  try {
    JsonDecoder decoder(settings.decoding);
    int status = body(decoder, settings);
    printWarnings(warnings, "");
    return status;
  } catch (const CommandFailure& failure) {
    return failure.status;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

// A command's JSON as it prints it: compact, or with --pretty indented two spaces a level.
std::string jsonOutput(const std::string& json, bool pretty) {
  if (!pretty) return json;
  std::string_view compact(json);
  while (!compact.empty() && compact.back() == '\n') compact.remove_suffix(1);
  return orvane::detail::indentJson(compact) + "\n";
}

// --- The commands ------------------------------------------------------------------------------

struct RenderRequest {
  Request document;
  SnapshotChoice choice;
  handoff::RenderOptions options;
};

int render(const RenderRequest& request, Output& out) {
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings&) {
    Loaded loaded = loadSnapshot(request.document, request.choice, out, decoder);
    out.write(handoff::renderSvg(*loaded.snapshot, request.options));
    return 0;
  });
}

struct CodeRequest {
  std::string language;
  Request document;
  SnapshotChoice choice;
  std::string layer;
  std::string density;
};

int code(const CodeRequest& request, Output& out) {
  std::optional<Density> density = densityOption(request.density);
  if (!density) return kUsage;
  handoff::CodeOptions options{.density = *density, .styleGuide = nullptr};
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings&) {
    Loaded loaded = loadSnapshot(request.document, request.choice, out, decoder);
    handoff::StyleGuide guide =
        loaded.project ? handoff::StyleGuide(*loaded.project) : handoff::StyleGuide();
    if (loaded.project) options.styleGuide = &guide;
    if (request.layer.empty()) {
      const Snapshot& snapshot = *loaded.snapshot;
      out.write(request.language == "css"       ? handoff::snapshotHtml(snapshot, options)
                : request.language == "swiftui" ? handoff::snapshotSwiftUI(snapshot, options)
                                                : handoff::snapshotCompose(snapshot, options));
      return 0;
    }
    Ref<Layer> layer = layerNamed(*loaded.snapshot, request.layer);
    out.write(request.language == "css"       ? handoff::layerCss(*layer, options)
              : request.language == "swiftui" ? handoff::layerSwiftUI(*layer, options)
                                              : handoff::layerCompose(*layer, options));
    return 0;
  });
}

struct TokensRequest {
  std::string format;
  Request document;
  std::string density;
};

int tokens(const TokensRequest& request, Output& out) {
  std::optional<Density> density = densityOption(request.density);
  if (!density) return kUsage;
  handoff::TokenOptions options{.density = *density, .pretty = request.document.pretty};
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings&) {
    auto project = decodeDocument<Ref<Project>>(request.document, decoder, out);
    static const std::pair<const char*, handoff::TokenFormat> kFormats[] = {
        {"dtcg", handoff::TokenFormat::dtcg},
        {"css", handoff::TokenFormat::css},
        {"swift", handoff::TokenFormat::swift},
        {"kotlin", handoff::TokenFormat::kotlin}};
    handoff::TokenFormat format = handoff::TokenFormat::dtcg;
    for (const auto& [name, f] : kFormats) {
      if (request.format == name) format = f;
    }
    out.write(handoff::writeTokens(handoff::StyleGuide(*project), format, options));
    return 0;
  });
}

struct InspectRequest {
  Request document;
  SnapshotChoice choice;
  std::string density;
  bool json = false;
};

int inspect(const InspectRequest& request, Output& out) {
  const SnapshotChoice& c = request.choice;
  bool wholeProject = request.document.type == "Project" && c.screen.empty() && c.component.empty();
  if (wholeProject && !c.versionId.empty()) {
    return usageError("--version-id needs --screen or --component");
  }
  std::optional<Density> density = densityOption(request.density);
  if (!density) return kUsage;
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings&) {
    handoff::InspectNode tree;
    if (wholeProject) {
      tree = handoff::inspectProject(*decodeDocument<Ref<Project>>(request.document, decoder, out),
                                     *density);
    } else {
      Loaded loaded = loadSnapshot(request.document, c, out, decoder);
      tree = handoff::inspectSnapshot(*loaded.snapshot, loaded.project.get(), *density);
    }
    out.write(request.json ? jsonOutput(handoff::inspectJson(tree), request.document.pretty)
                           : handoff::inspectText(tree));
    return 0;
  });
}

struct AssetsRequest {
  Request document;
  SnapshotChoice choice;
  bool json = false;
};

int assets(const AssetsRequest& request, Output& out) {
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings&) {
    Loaded loaded = loadSnapshot(request.document, request.choice, out, decoder);
    handoff::InspectNode tree = handoff::inspectAssets(*loaded.snapshot);
    out.write(request.json ? jsonOutput(handoff::inspectJson(tree), request.document.pretty)
                           : handoff::inspectText(tree));
    return 0;
  });
}

struct MeasureRequest {
  Request document;
  SnapshotChoice choice;
  std::string a, b;  // b empty: one layer, measured in its group and on the artboard
  std::string density;
  bool json = false;
};

int measure(const MeasureRequest& request, Output& out) {
  std::optional<Density> density = densityOption(request.density);
  if (!density) return kUsage;
  Lengths lengths{handoff::densityScale(*density)};
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings&) {
    Loaded loaded = loadSnapshot(request.document, request.choice, out, decoder);
    Ref<Layer> a = layerNamed(*loaded.snapshot, request.a);
    if (request.b.empty()) {
      out.write(jsonOutput(placementText(*a, *loaded.snapshot, request.json, lengths),
                           request.json && request.document.pretty));
      return 0;
    }
    Ref<Layer> b = layerNamed(*loaded.snapshot, request.b);
    handoff::Measurement m = handoff::measure(a->absoluteFrame(), b->absoluteFrame());
    out.write(jsonOutput(measurementText(m, *a, *b, request.json, lengths),
                         request.json && request.document.pretty));
    return 0;
  });
}

struct DiffRequest {
  Request document;
  std::string newer;  // the second snapshot document
  SnapshotChoice choice;
  std::string from, to;
  std::string density;
  bool json = false;
};

// As diff(1): 0 nothing changed, 1 something did, 2 every trouble.
constexpr int kDiffTrouble = 2;

// The two snapshots the request names, compared; 0 when they are alike, else 1.
int compare(const DiffRequest& request, Density density, Output& out, JsonDecoder& decoder,
            const Settings& settings);

int diff(const DiffRequest& request, Output& out) {
  const std::string& type = request.document.type;
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
  std::optional<Density> density = densityOption(request.density);
  if (!density) return kUsage;
  return runWithDecoder(request.document, [&](JsonDecoder& decoder, const Settings& settings) {
    try {
      return compare(request, *density, out, decoder, settings);
    } catch (const CommandFailure& failure) {
      // Every trouble is 2 here, a document that does not decode included.
      throw CommandFailure{failure.status == kDecodingFailed ? kDiffTrouble : failure.status};
    } catch (const std::bad_alloc&) {
      std::cerr << "error: out of memory\n";
      throw CommandFailure{kDiffTrouble};
    }
  });
}

int compare(const DiffRequest& request, Density density, Output& out, JsonDecoder& decoder,
            const Settings& settings) {
  const std::string& type = request.document.type;
  Ref<Snapshot> before, after;
  Ref<Project> project;
  if (type == "Snapshot") {
    // Two documents: the one that does not decode is named.
    before = loadSnapshot(request.document, request.choice, out, decoder,
                          "OLD (" + oneLine(inputName(request.document.file)) + "): ")
                 .snapshot;
    Request second = request.document;
    second.file = request.newer;
    JsonDecoder other(settings.decoding);
    after = loadSnapshot(second, request.choice, out, other,
                         "NEW (" + oneLine(inputName(request.newer)) + "): ")
                .snapshot;
  } else {
    SnapshotChoice choice = request.choice;
    choice.versionId = request.from;
    Loaded loaded = loadSnapshot(request.document, choice, out, decoder);
    before = loaded.snapshot;
    project = loaded.project;
    Ref<Version> version = handoff::findVersion(*loaded.collection, Identifier(request.to));
    if (!version) {
      notFound("no version with identifier " + request.to + " in " +
               std::string(loaded.collection->identifier().rawValue()));
    }
    after = Ref<Snapshot>(loaded.project, version->snapshot().get());
  }
  std::optional<handoff::StyleGuide> guide;
  if (project) guide.emplace(*project);
  handoff::FactOptions options{density, guide ? &*guide : nullptr, project.get()};
  handoff::SnapshotDiff diff = handoff::diffSnapshots(*before, *after);
  out.write(request.json ? jsonOutput(handoff::diffJson(diff, *before, *after, options),
                                      request.document.pretty)
                         : handoff::diffText(diff, *before, *after, options));
  return diff.empty() ? 0 : 1;
}

}  // namespace

// --- Registration ------------------------------------------------------------------------------

struct HandoffCommands::State {
  RenderRequest render;
  CodeRequest code;
  TokensRequest tokens;
  InspectRequest inspect;
  MeasureRequest measure;
  DiffRequest diff;
  AssetsRequest assets;
  CLI::App* renderCommand = nullptr;
  CLI::App* codeCommand = nullptr;
  CLI::App* tokensCommand = nullptr;
  CLI::App* inspectCommand = nullptr;
  CLI::App* measureCommand = nullptr;
  CLI::App* diffCommand = nullptr;
  CLI::App* assetsCommand = nullptr;
};

namespace {

const char* const kDates[] = {"iso8601", "seconds", "milliseconds", "deferred"};

// The decoding options of a command whose positionals are its own.
void addDecodingOptions(CLI::App& command, Request& request) {
  command.add_flag("--import-source", request.importSource,
                   "Decode as a document from an import source (fromImportSource = true)");
  command.add_option("--dates", request.dates, "Date strategy for reading")
      ->check(CLI::IsMember({kDates[0], kDates[1], kDates[2], kDates[3]}));
  command.add_flag("--json-errors", request.jsonErrors,
                   "On a decoding failure, print the error as JSON on standard output");
  command.add_flag("--warnings", request.warnings,
                   "After a successful decode, list on standard error every value that a "
                   "tolerant key dropped");
  command.add_flag("--pretty", request.pretty, "Indent the JSON, two spaces a level");
}

}  // namespace

HandoffCommands::HandoffCommands(CLI::App& app) : state_(std::make_unique<State>()) {
  State& s = *state_;

  s.renderCommand = app.add_subcommand("render", "Draw a snapshot as one SVG document");
  addDocumentOptions(*s.renderCommand, s.render.document, false);
  addSnapshotOptions(*s.renderCommand, s.render.choice);
  s.renderCommand->add_flag("--links", s.render.options.links,
                            "Outline the hotspot links, labelled with their destination");
  s.renderCommand->add_flag("--grid", s.render.options.grid,
                            "Draw the layout grid's columns and rows");
  s.renderCommand->add_flag("--assets", s.render.options.assets,
                            "Outline each exportable layer and each layer an asset names");
  s.renderCommand->footer(
      "TYPE is Snapshot, or Project with --screen ID or --component ID (the latest version, or "
      "the one --version-id names). Prints the SVG on standard output. Exit status: 0 on "
      "success, 1 when the document does not decode or what is named does not exist, 2 for a "
      "usage error, 3 when the output cannot be written.");

  s.codeCommand = app.add_subcommand(
      "code", "Write the code of one layer, or of the whole snapshot: CSS, SwiftUI or Compose");
  s.codeCommand->add_option("LANGUAGE", s.code.language, "css, swiftui or compose")
      ->required()
      ->check(CLI::IsMember({"css", "swiftui", "compose"}));
  addDocumentOptions(*s.codeCommand, s.code.document, false);
  addSnapshotOptions(*s.codeCommand, s.code.choice);
  s.codeCommand->add_option("--layer", s.code.layer,
                            "The layer: its identifier, its name when unique, or its path of "
                            "names (Card/Title). Without it, the whole snapshot");
  s.codeCommand->add_option("--density", s.code.density, kDensityHelp);
  s.codeCommand->footer(
      "TYPE is Snapshot, or Project with --screen ID or --component ID; with a Project, colors "
      "and text styles of its style guide are named by their tokens. With --layer: one CSS "
      "rule, one SwiftUI view or one Compose composable, placed at the layer's frame on the "
      "artboard. Without it: one HTML document, one SwiftUI View or one Compose screen "
      "function, the layers nested as the tree nests them. CSS is in px, SwiftUI in pt, "
      "Compose in dp and sp. Exit status: 0 on success, 1 when the document does not decode "
      "or what is named does not exist, 2 for a usage error, 3 when the output cannot be "
      "written.");

  s.tokensCommand = app.add_subcommand("tokens", "Write a Project's style guide as design tokens");
  s.tokensCommand->add_option("FORMAT", s.tokens.format, "dtcg, css, swift or kotlin")
      ->required()
      ->check(CLI::IsMember({"dtcg", "css", "swift", "kotlin"}));
  s.tokensCommand->add_option("FILE", s.tokens.document.file,
                              "The Project document; standard input when absent or -");
  addDecodingOptions(*s.tokensCommand, s.tokens.document);
  s.tokensCommand->add_option("--density", s.tokens.density, kDensityHelp);
  s.tokensCommand->footer(
      "dtcg: one Design Tokens Community Group (2025.10) JSON document, grouped by the "
      "/-separated parts of names; css: custom properties in :root; swift: Color and Font "
      "extensions; kotlin: Compose Color and TextStyle values. Exit status: 0 on success, 1 "
      "when the document does not decode, 2 for a usage error, 3 when the output cannot be "
      "written.");

  s.inspectCommand =
      app.add_subcommand("inspect", "Show a project or a snapshot as a tree a person reads");
  addDocumentOptions(*s.inspectCommand, s.inspect.document, false);
  addSnapshotOptions(*s.inspectCommand, s.inspect.choice);
  s.inspectCommand->add_option("--density", s.inspect.density, kDensityHelp);
  s.inspectCommand->add_flag("--json", s.inspect.json, "Print the tree as one JSON value");
  s.inspectCommand->footer(
      "TYPE is Project (its sections, screens, versions, dots, components, style guide and "
      "members) or Snapshot (its layer tree, links and assets; also a Project with --screen ID "
      "or --component ID). Each layer shows its identifier, kind, name, absolute frame and "
      "styles; --json gives them structured (fills, borders, shadows, blur, text styles with "
      "their font family, weight and style), colors and text styles of a Project's style guide "
      "with their token. Lengths are divided by --density. Long lists are shortened in the "
      "tree, never in --json. Exit status: 0 on success, 1 when the document does not decode "
      "or what is named does not exist, 2 for a usage error, 3 when the output cannot be "
      "written.");

  s.assetsCommand =
      app.add_subcommand("assets", "List what a developer exports from a snapshot, by platform");
  addDocumentOptions(*s.assetsCommand, s.assets.document, false);
  addSnapshotOptions(*s.assetsCommand, s.assets.choice);
  s.assetsCommand->add_flag("--json", s.assets.json, "Print the list as one JSON value");
  s.assetsCommand->footer(
      "TYPE is Snapshot, or Project with --screen ID or --component ID. Each asset (display "
      "name, layer, bitmap or not, contents with density, format and URL) and each exportable "
      "layer no asset comes from, with its file names for iOS (NAME.png, NAME@2x.png, "
      "NAME@3x.png, NAME.pdf, NAME.svg), Android (drawable-mdpi/NAME.png ... "
      "drawable-xxxhdpi/NAME.png, snake case) and the web (NAME.png, NAME@2x.png, NAME.svg); "
      "an exportable layer is a PNG at 1x, 2x and 3x. Names are unique in the list. Nothing is "
      "downloaded. Exit status: 0 on success, 1 when the document does not decode or what is "
      "named does not exist, 2 for a usage error, 3 when the output cannot be written.");

  s.measureCommand =
      app.add_subcommand("measure", "Measure the distances between two layers, or around one");
  s.measureCommand->add_option("TYPE", s.measure.document.type, "Snapshot or Project")->required();
  s.measureCommand
      ->add_option("FILE", s.measure.document.file, "The document; - for standard input")
      ->required();
  s.measureCommand->add_option("LAYER_A", s.measure.a, "A layer: identifier, name or path")
      ->required();
  s.measureCommand->add_option("LAYER_B", s.measure.b,
                               "Another layer; without it, LAYER_A in its group and on the "
                               "artboard");
  addSnapshotOptions(*s.measureCommand, s.measure.choice);
  s.measureCommand->add_option("--density", s.measure.density, kDensityHelp);
  s.measureCommand->add_flag("--json", s.measure.json, "Print the measurement as JSON");
  addDecodingOptions(*s.measureCommand, s.measure.document);
  s.measureCommand->footer(
      "Between absolute frames, standardized. Apart (touching counts, with a gap of 0): the "
      "horizontal and vertical gaps. One inside the other (equal frames count): the four "
      "insets of the inner one. Otherwise: the overlap's width and height. With one layer: the "
      "distances from its edges to its group's (none at the top level) and to the artboard's. "
      "Lengths are divided by --density. A layer is named by its identifier, its name or its "
      "path of names (Card/Title); a text that names several is an error listing them. Exit "
      "status: 0 on success, 1 when the document does not decode or a layer does not exist or "
      "is ambiguous, 2 for a usage error, 3 when the output cannot be written.");

  s.diffCommand = app.add_subcommand("diff", "What changed from one snapshot to another");
  s.diffCommand->add_option("TYPE", s.diff.document.type, "Snapshot or Project")->required();
  s.diffCommand
      ->add_option("OLD", s.diff.document.file,
                   "The older snapshot, or the Project document; - for standard input")
      ->required();
  s.diffCommand->add_option("NEW", s.diff.newer, "The newer snapshot (Snapshot only)");
  addSnapshotOptions(*s.diffCommand, s.diff.choice);
  s.diffCommand->add_option("--from", s.diff.from, "Project: the older version's identifier");
  s.diffCommand->add_option("--to", s.diff.to, "Project: the newer version's identifier");
  s.diffCommand->add_option("--density", s.diff.density, kDensityHelp);
  s.diffCommand->add_flag("--json", s.diff.json, "Print the changes as JSON");
  addDecodingOptions(*s.diffCommand, s.diff.document);
  s.diffCommand->footer(
      "The snapshot's size, background, density, grid, links and assets are compared, then "
      "every layer, matched by source identifier (shared ones paired in tree order): renamed, "
      "moved, resized, rotated, restyled, text, kind, reparented; a coordinate that changed by "
      "less than 0.01 did not change. Lines: one for the snapshot, then + NAME, - NAME, "
      "~ NAME: moved 12,40 -> 12,52; restyled (positions on the artboard, lengths divided by "
      "--density); --json adds each change's values before and after. A document that does not "
      "decode is named OLD or NEW. Exit status, as diff(1): 0 when nothing changed, 1 when "
      "something did, 2 for every trouble, 3 when the output cannot be written.");
}

HandoffCommands::~HandoffCommands() = default;

std::optional<int> HandoffCommands::run(Output& out) const {
  const State& s = *state_;
  if (s.renderCommand->parsed()) return render(s.render, out);
  if (s.codeCommand->parsed()) return code(s.code, out);
  if (s.tokensCommand->parsed()) return tokens(s.tokens, out);
  if (s.inspectCommand->parsed()) return inspect(s.inspect, out);
  if (s.measureCommand->parsed()) return measure(s.measure, out);
  if (s.diffCommand->parsed()) return diff(s.diff, out);
  if (s.assetsCommand->parsed()) return assets(s.assets, out);
  return std::nullopt;
}

}  // namespace orvane::tool
