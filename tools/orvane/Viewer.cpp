#include "Viewer.hpp"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <unordered_set>

#include <zlib.h>

#include <orvane/handoff/Assets.hpp>
#include <orvane/handoff/Code.hpp>
#include <orvane/handoff/Diff.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Inspect.hpp>
#include <orvane/handoff/Render.hpp>
#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/internal/Markup.hpp>
#include <orvane/project/ComponentSection.hpp>

#include "Report.hpp"
#include "WebFiles.hpp"

namespace orvane::tool {

namespace fs = std::filesystem;

namespace {

std::string json(std::string_view text) {
  std::string out;
  orvane::detail::appendJsonString(out, text);
  return out;
}

// The page's data files are classic scripts, which browsers run from `file://` where they fetch
// no JSON: each hands its value to the page by name.
std::string script(const std::string& name, const std::string& value) {
  return "orvaneData(" + json(name) + ", " + value + ");\n";
}

struct TokenFile {
  const char* name;
  handoff::TokenFormat format;
};
constexpr TokenFile kTokenFiles[] = {{"tokens.json", handoff::TokenFormat::dtcg},
                                     {"tokens.css", handoff::TokenFormat::css},
                                     {"Tokens.swift", handoff::TokenFormat::swift},
                                     {"Tokens.kt", handoff::TokenFormat::kotlin}};

// The unit a developer of the project's platform reads lengths in.
std::string defaultUnit(const Project* project) {
  if (!project || !project->kind()) return "px";
  switch (*project->kind()) {
    case Project::Kind::iOS:
    case Project::Kind::macOS:
      return "pt";
    case Project::Kind::android:
      return "dp";
    case Project::Kind::web:
      break;
  }
  return "px";
}

// A collection's versions, the latest first: by creation date, the later first, and among
// equal dates as `inspect` lists them (the latest, then the listed ones).
std::vector<Ref<Version>> versionsOf(const VersionCollection& collection) {
  std::vector<Ref<Version>> out;
  std::unordered_set<std::string> seen;
  auto add = [&](const Ref<Version>& v) {
    if (v && v->snapshot() && seen.insert(std::string(v->identifier().rawValue())).second) {
      out.push_back(v);
    }
  };
  add(collection.latestVersion());
  if (collection.versions()) {
    for (const auto& v : *collection.versions()) add(v);
  }
  std::stable_sort(out.begin(), out.end(), [](const Ref<Version>& a, const Ref<Version>& b) {
    return a->createDate() > b->createDate();
  });
  return out;
}

void componentsOf(const std::vector<Ref<ComponentSection>>& sections,
                  std::unordered_set<const ComponentSection*>& seen,
                  std::vector<Ref<Component>>& out) {
  for (const auto& section : sections) {
    if (!section || !seen.insert(section.get()).second) continue;
    if (section->components()) {
      for (const auto& c : *section->components()) {
        if (c) out.push_back(c);
      }
    }
    if (section->sections()) componentsOf(*section->sections(), seen, out);
  }
}

}  // namespace

ViewerDocument::ViewerDocument(Ref<Project> project, std::string name)
    : project_(std::move(project)), name_(std::move(name)) {
  guide_ = std::make_unique<handoff::StyleGuide>(*project_);
  auto addCollection = [&](const VersionCollection& c, const char* kind) {
    std::vector<Ref<Version>> versions = versionsOf(c);
    std::size_t first = entries_.size();
    for (const auto& v : versions) {
      Entry e;
      e.key = "v" + std::to_string(entries_.size());
      e.kind = kind;
      e.collection = std::string(c.identifier().rawValue());
      e.version = std::string(v->identifier().rawValue());
      // Kept with the project: its records refer to it only weakly.
      e.snapshot = Ref<Snapshot>(project_, v->snapshot().get());
      entries_.push_back(std::move(e));
    }
    for (std::size_t i = first; i + 1 < entries_.size(); ++i) {
      entries_[i].previous = entries_[i + 1].key;
    }
  };
  for (const auto& screen : handoff::screensInOrder(*project_)) addCollection(*screen, "screen");
  std::vector<Ref<Component>> components;
  std::unordered_set<const ComponentSection*> seen;
  if (project_->componentSections()) componentsOf(*project_->componentSections(), seen, components);
  for (const auto& component : components) addCollection(*component, "component");
  for (std::size_t i = 0; i < entries_.size(); ++i) byKey_[entries_[i].key] = i;
}

ViewerDocument::ViewerDocument(Ref<Snapshot> snapshot, std::string name) : name_(std::move(name)) {
  Entry e;
  e.key = "v0";
  e.kind = "snapshot";
  e.collection = std::string(snapshot->identifier().rawValue());
  e.version = e.collection;
  e.snapshot = std::move(snapshot);
  entries_.push_back(std::move(e));
  byKey_["v0"] = 0;
}

const ViewerDocument::Entry* ViewerDocument::find(const std::string& key) const {
  auto it = byKey_.find(key);
  return it == byKey_.end() ? nullptr : &entries_[it->second];
}

std::vector<std::string> ViewerDocument::keys() const {
  std::vector<std::string> out;
  for (const auto& e : entries_) out.push_back(e.key);
  return out;
}

std::vector<std::string> ViewerDocument::tokenFileNames() const {
  std::vector<std::string> out;
  if (project_) {
    for (const auto& t : kTokenFiles) out.emplace_back(t.name);
  }
  return out;
}

std::string ViewerDocument::indexScript(bool live, std::uint64_t generation) const {
  std::string out = "{\"name\":" + json(name_) + ",\"type\":" +
                    json(project_ ? "Project" : "Snapshot") +
                    ",\"live\":" + (live ? "true" : "false") +
                    ",\"generation\":" + std::to_string(generation) +
                    ",\"defaultUnit\":" + json(defaultUnit(project_.get()));
  if (project_) {
    std::string inspect = handoff::inspectJson(handoff::inspectProject(*project_));
    while (!inspect.empty() && inspect.back() == '\n') inspect.pop_back();
    out += ",\"project\":" + inspect;
    out += ",\"tokens\":{";
    for (std::size_t i = 0; i < std::size(kTokenFiles); ++i) {
      static constexpr const char* kFormats[] = {"dtcg", "css", "swift", "kotlin"};
      out += (i ? "," : "") + json(kFormats[i]) + ":" + json(std::string("tokens/") + kTokenFiles[i].name);
    }
    out += "}";
  }
  out += ",\"snapshots\":[";
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& e = entries_[i];
    const Size size = e.snapshot->size();
    out += (i ? ",{" : "{") + std::string("\"key\":") + json(e.key) + ",\"kind\":" + json(e.kind) +
           ",\"collection\":" + json(e.collection) + ",\"version\":" + json(e.version) +
           ",\"previous\":" + (e.previous.empty() ? "null" : json(e.previous)) +
           ",\"width\":" + orvane::detail::number(std::isfinite(size.width) ? size.width : 0) +
           ",\"height\":" + orvane::detail::number(std::isfinite(size.height) ? size.height : 0) + "}";
  }
  out += "]}";
  return script("index", out);
}

std::optional<std::string> ViewerDocument::snapshotScript(const std::string& key,
                                                          bool site) const {
  auto value = snapshotJson(key, site);
  if (!value) return std::nullopt;
  return script(key, *value);
}

std::vector<std::string> ViewerDocument::latestKeys() const {
  std::vector<std::string> out;
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (i == 0 || entries_[i].collection != entries_[i - 1].collection ||
        entries_[i].kind != entries_[i - 1].kind) {
      out.push_back(entries_[i].key);
    }
  }
  return out;
}

std::optional<std::string> ViewerDocument::snapshotJson(const std::string& key, bool site) const {
  const Entry* e = find(key);
  if (!e) return std::nullopt;
  const Snapshot& snapshot = *e->snapshot;
  auto trimmed = [](std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
  };
  std::string out = "{\"key\":" + json(e->key) + ",\"kind\":" + json(e->kind) +
                    ",\"collection\":" + json(e->collection) + ",\"version\":" + json(e->version);
  out += ",\"svg\":" +
         json(handoff::renderSvg(snapshot, {.links = true, .grid = true, .assets = true,
                                            .idPrefix = e->key + "-"}));
  out += ",\"inspect\":" +
         trimmed(handoff::inspectJson(handoff::inspectSnapshot(snapshot, project_.get())));
  out += ",\"assets\":" + trimmed(handoff::inspectJson(handoff::inspectAssets(snapshot)));
  if (site) {
    // What a page without a server can show: each layer's code at 1x, and the change from the
    // version before.
    out += ",\"code\":{";
    bool first = true;
    std::unordered_set<std::string_view> seen;
    handoff::CodeOptions options{.density = Density::_1x, .styleGuide = guide_.get()};
    for (const auto& code : handoff::snapshotLayerCode(snapshot, options)) {
      // The first of layers that share an identifier, as a request for it finds.
      if (!seen.insert(code.layer->identifier().rawValue()).second) continue;
      out += (first ? "" : ",") + json(code.layer->identifier().rawValue()) + ":{\"css\":" +
             json(code.css) + ",\"swiftui\":" + json(code.swiftui) + ",\"compose\":" +
             json(code.compose) + "}";
      first = false;
    }
    out += "}";
    auto diff = e->previous.empty() ? std::nullopt : this->diff(e->previous, key);
    out += ",\"diff\":" + (diff ? "{\"from\":" + json(e->previous) + ",\"result\":" + *diff + "}"
                                : std::string("null"));
  }
  return out + "}";
}

std::optional<std::string> ViewerDocument::thumbnail(const std::string& key) const {
  const Entry* e = find(key);
  if (!e) return std::nullopt;
  // A page of a hundred drawings keeps to sketches: full drawings would keep the browser busy
  // for seconds.
  return handoff::renderSvg(*e->snapshot, {.sketch = true});
}

std::optional<std::string> ViewerDocument::code(const std::string& key, const std::string& layer,
                                                Density density) const {
  const Entry* e = find(key);
  if (!e) return std::nullopt;
  Ref<Layer> found;
  for (const Ref<Layer>& l : handoff::allLayers(*e->snapshot)) {
    if (l->identifier().rawValue() == layer) {
      found = l;
      break;
    }
  }
  if (!found) return std::nullopt;
  handoff::CodeOptions options{.density = density, .styleGuide = guide_.get()};
  return "{\"css\":" + json(handoff::layerCss(*found, options)) +
         ",\"swiftui\":" + json(handoff::layerSwiftUI(*found, options)) +
         ",\"compose\":" + json(handoff::layerCompose(*found, options)) + "}";
}

std::optional<std::string> ViewerDocument::diff(const std::string& from,
                                                const std::string& to) const {
  const Entry* a = find(from);
  const Entry* b = find(to);
  if (!a || !b) return std::nullopt;
  handoff::FactOptions options{Density::_1x, guide_.get(), project_.get()};
  std::string out = handoff::diffJson(handoff::diffSnapshots(*a->snapshot, *b->snapshot),
                                      *a->snapshot, *b->snapshot, options);
  while (!out.empty() && out.back() == '\n') out.pop_back();
  return out;
}

std::optional<std::string> ViewerDocument::tokenFile(const std::string& name) const {
  if (!project_) return std::nullopt;
  for (const auto& t : kTokenFiles) {
    if (name == t.name) return handoff::writeTokens(*guide_, t.format);
  }
  return std::nullopt;
}

// --- Loading -----------------------------------------------------------------------------------

LoadedDocument loadViewerDocument(const Request& request, const std::string& file) {
  LoadedDocument loaded;
  std::vector<char> buffer;
  std::size_t size = 0;
  std::string reason;
  if (!readInput(file, buffer, size, reason)) {
    loaded.error = "cannot read " + inputName(file) + ": " + reason;
    return loaded;
  }
  Settings settings = settingsFor(request, nullptr);
  std::string name = fs::path(file).filename().string();
  try {
    JsonDecoder decoder(settings.decoding);
    std::string_view text(buffer.data(), size);
    if (request.type == "Project") {
      loaded.document =
          std::make_shared<ViewerDocument>(decoder.decode<Ref<Project>>(text), name);
    } else {
      loaded.document =
          std::make_shared<ViewerDocument>(decoder.decode<Ref<Snapshot>>(text), name);
    }
  } catch (const DecodingError& e) {
    loaded.error = oneLine(e.what());
    if (e.location()) {
      loaded.line = e.location()->line;
      loaded.column = e.location()->column;
    }
  } catch (const std::bad_alloc&) {
    loaded.error = "out of memory";
  }
  return loaded;
}

// --- site ----------------------------------------------------------------------------------------

namespace {

struct SiteRequest {
  Request document;
  std::string output;
};

// `text` squeezed with zlib and written in base64: the site's facts are mostly drawings, code and
// names that repeat, and a page opened from disk can fetch no file, only run scripts, so each
// script carries its facts packed and the page unpacks them (DecompressionStream).
std::string packed(std::string_view text) {
  uLongf size = compressBound(static_cast<uLong>(text.size()));
  std::vector<Bytef> bytes(size);
  if (compress2(bytes.data(), &size, reinterpret_cast<const Bytef*>(text.data()),
                static_cast<uLong>(text.size()), 6) != Z_OK) {
    throw std::bad_alloc();
  }
  static constexpr char kAlphabet[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out = "{\"deflate\":\"";
  out.reserve(out.size() + (size + 2) / 3 * 4 + 2);
  for (uLongf i = 0; i < size; i += 3) {
    std::uint32_t n = static_cast<std::uint32_t>(bytes[i]) << 16;
    if (i + 1 < size) n |= static_cast<std::uint32_t>(bytes[i + 1]) << 8;
    if (i + 2 < size) n |= bytes[i + 2];
    out += kAlphabet[(n >> 18) & 63];
    out += kAlphabet[(n >> 12) & 63];
    out += i + 1 < size ? kAlphabet[(n >> 6) & 63] : '=';
    out += i + 2 < size ? kAlphabet[n & 63] : '=';
  }
  return out + "\"}";
}

// Writes `text` to `path`; false with the reason said when it cannot.
bool writeFile(const fs::path& path, std::string_view text) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  if (!file) {
    std::cerr << "error: cannot write " << oneLine(path.string()) << ": " << std::strerror(errno)
              << '\n';
    return false;
  }
  return true;
}

int site(const SiteRequest& request) {
  if (request.document.type != "Project" && request.document.type != "Snapshot") {
    if (!lookUpType(request.document.type)) return kUsage;
    return usageError("TYPE must be Project or Snapshot");
  }
  LoadedDocument loaded = loadViewerDocument(request.document, request.document.file);
  if (!loaded.document) {
    std::cerr << "error: " << loaded.error << '\n';
    return loaded.error.starts_with("cannot read") ? kUsage : kDecodingFailed;
  }
  const ViewerDocument& doc = *loaded.document;
  fs::path dir(request.output);
  std::error_code error;
  for (const char* sub : {"", "data", "tokens"}) {
    fs::create_directories(dir / sub, error);
    if (error) {
      std::cerr << "error: cannot create " << oneLine((dir / sub).string()) << ": "
                << error.message() << '\n';
      return kWriteFailed;
    }
  }
  bool ok = true;
  for (const WebFile& f : webFiles()) ok = ok && writeFile(dir / f.name, {f.data, f.size});
  ok = ok && writeFile(dir / "data" / "index.js", doc.indexScript(false));
  for (const auto& key : doc.keys()) {
    ok = ok && writeFile(dir / "data" / (key + ".js"), script(key, packed(*doc.snapshotJson(key, true))));
  }
  // The project page's drawings, one script for them all.
  std::string thumbs = "{";
  for (const auto& key : doc.latestKeys()) {
    thumbs += (thumbs.size() > 1 ? "," : "") + json(key) + ":" + json(*doc.thumbnail(key));
  }
  ok = ok && writeFile(dir / "data" / "thumbs.js", script("thumbs", packed(thumbs + "}")));
  for (const auto& name : doc.tokenFileNames()) {
    ok = ok && writeFile(dir / "tokens" / name, *doc.tokenFile(name));
  }
  return ok ? 0 : kWriteFailed;
}

const char* const kDates[] = {"iso8601", "seconds", "milliseconds", "deferred"};

void addViewerOptions(CLI::App& command, Request& request) {
  command.add_option("TYPE", request.type, "Project or Snapshot")->required();
  command.add_option("FILE", request.file, "The document")->required();
  command.add_flag("--import-source", request.importSource,
                   "Decode as a document from an import source (fromImportSource = true)");
  command.add_option("--dates", request.dates, "Date strategy for reading")
      ->check(CLI::IsMember({kDates[0], kDates[1], kDates[2], kDates[3]}));
}

}  // namespace

struct ViewerCommands::State {
  ServeRequest serve;
  SiteRequest site;
  CLI::App* serveCommand = nullptr;
  CLI::App* siteCommand = nullptr;
};

ViewerCommands::ViewerCommands(CLI::App& app) : state_(std::make_unique<State>()) {
  State& s = *state_;
  s.serveCommand = app.add_subcommand("serve", "Serve the hand-off viewer on this machine");
  addViewerOptions(*s.serveCommand, s.serve.document);
  s.serveCommand->add_option("--port", s.serve.port, "The port on 127.0.0.1 (0: a free one)")
      ->check(CLI::Range(0, 65535));
  s.serveCommand->add_flag("--open", s.serve.open, "Open the address in a browser (xdg-open)");
  s.serveCommand->footer(
      "Serves the viewer of FILE (a Project or Snapshot document, or a folder of them) on "
      "127.0.0.1 and prints the one address to open, with its token. Open pages follow changes "
      "of FILE. Runs until interrupted (SIGINT, SIGTERM), then exits 0; exit status 1 when FILE "
      "does not decode at start, 2 for a usage error.");
  s.siteCommand = app.add_subcommand("site", "Write the hand-off viewer as static files");
  addViewerOptions(*s.siteCommand, s.site.document);
  s.siteCommand->add_option("--output", s.site.output, "The folder to write (made when missing)")
      ->required();
  s.siteCommand->footer(
      "Writes the viewer of FILE into the folder: index.html to open from disk or to put on a "
      "web server, the page's scripts and styles, each snapshot's facts, drawings and code at "
      "1x, and the token files. Nothing is fetched from elsewhere. Exit status: 0 on success, 1 "
      "when FILE does not decode, 2 for a usage error, 3 when a file cannot be written.");
}

ViewerCommands::~ViewerCommands() = default;

std::optional<int> ViewerCommands::run(Output& out) const {
  const State& s = *state_;
  if (s.serveCommand->parsed()) return serve(s.serve, out);
  if (s.siteCommand->parsed()) return site(s.site);
  return std::nullopt;
}

}  // namespace orvane::tool
