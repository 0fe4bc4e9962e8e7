// The hand-off viewer: a decoded document as the scripts its page loads, written to a folder
// (`site`) or served (`serve`).
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <orvane/handoff/StyleGuide.hpp>
#include <orvane/orvane.hpp>

#include "Command.hpp"
#include "Output.hpp"

namespace orvane::tool {

/// What the page knows of one decoded document: every snapshot it can show under a short key
/// (`v0`, `v1`, ...: the screens as `inspect` lists them, each version latest first, then the
/// components), and the scripts and files built from the library's own outputs.
class ViewerDocument {
 public:
  /// A project: its screens', components' and versions' snapshots.
  ViewerDocument(Ref<Project> project, std::string name);
  /// A snapshot alone.
  ViewerDocument(Ref<Snapshot> snapshot, std::string name);

  /// `data/index.js`: the document's facts (`inspect`'s tree), its snapshots' keys, the token
  /// files. `live`: the page asks the server for code at any scale, any comparison and changes;
  /// `generation` tells it which reading of FILE this is.
  std::string indexScript(bool live, std::uint64_t generation = 0) const;
  /// `data/KEY.js`: the snapshot's drawing (`render`, every overlay), its facts (`inspect`),
  /// its assets, and with `site` each layer's code at 1x and the diff against the version
  /// before it. None for a key the document lacks.
  std::optional<std::string> snapshotScript(const std::string& key, bool site) const;
  /// The same facts as one JSON value.
  std::optional<std::string> snapshotJson(const std::string& key, bool site) const;
  /// The keys of each screen's and component's latest version (the project page's drawings).
  std::vector<std::string> latestKeys() const;
  /// `thumbs/KEY.svg`: the drawing alone.
  std::optional<std::string> thumbnail(const std::string& key) const;
  /// The code of a layer (by identifier) in the three languages at `density`, as JSON.
  std::optional<std::string> code(const std::string& key, const std::string& layer,
                                  Density density) const;
  /// What changed from one snapshot to another, as `diff --json` writes it.
  std::optional<std::string> diff(const std::string& from, const std::string& to) const;
  /// The token file named `tokens/NAME`, as `tokens` writes it (a project only).
  std::optional<std::string> tokenFile(const std::string& name) const;

  /// Every key, in order.
  std::vector<std::string> keys() const;
  /// The token files' names (none for a snapshot).
  std::vector<std::string> tokenFileNames() const;

 private:
  struct Entry {
    std::string key;
    std::string kind;        // screen, component or snapshot
    std::string collection;  // its identifier
    std::string version;     // the version's identifier
    std::string previous;    // the key of the version before it, if any
    Ref<Snapshot> snapshot;
  };
  const Entry* find(const std::string& key) const;

  Ref<Project> project_;
  std::string name_;
  std::vector<Entry> entries_;
  std::map<std::string, std::size_t> byKey_;
  std::unique_ptr<handoff::StyleGuide> guide_;
};

/// `serve` and `site`: their options, registration and runs.
class ViewerCommands {
 public:
  explicit ViewerCommands(CLI::App& app);
  ~ViewerCommands();
  /// The status of the viewer command that was parsed, if one was.
  std::optional<int> run(Output& out) const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

/// What `serve` needs of a request: the document, how to decode it, where to listen.
struct ServeRequest {
  Request document;
  int port = 0;
  bool open = false;
};

/// Serves the viewer until SIGINT or SIGTERM (Serve.cpp).
int serve(const ServeRequest& request, Output& out);

/// The document FILE holds, decoded as TYPE, for the viewer; or why not, as the one line the
/// tool prints (with its line and column where known).
struct LoadedDocument {
  std::shared_ptr<ViewerDocument> document;
  std::string error;                // empty when decoded
  std::optional<std::size_t> line;  // where the error is, when known
  std::optional<std::size_t> column;
};
LoadedDocument loadViewerDocument(const Request& request, const std::string& file);

}  // namespace orvane::tool
