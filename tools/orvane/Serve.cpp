// `orvane serve`: the viewer on 127.0.0.1, for the browser of the person at this machine only.
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <signal.h>
#include <spawn.h>
#include <sys/inotify.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <mutex>
#include <thread>

#include <httplib.h>
#include <orvane/internal/Markup.hpp>

#include "Report.hpp"
#include "Viewer.hpp"
#include "WebFiles.hpp"

extern char** environ;

namespace orvane::tool {

namespace fs = std::filesystem;

namespace {

// Every response: the page's own origin only (and the drawing's inline style attributes and
// data: images), no sniffing, no referrer, nothing cached, no framing by another origin.
const httplib::Headers kSecurityHeaders = {
    {"Content-Security-Policy",
     "default-src 'self'; script-src 'self'; style-src 'self'; style-src-attr 'unsafe-inline'; "
     "img-src 'self' data:; connect-src 'self'; frame-ancestors 'self'; base-uri 'none'; "
     "form-action 'none'; object-src 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
    {"Cache-Control", "no-store"},
    {"X-Frame-Options", "SAMEORIGIN"},
};

constexpr std::size_t kMostHeaderBytes = 8192;
constexpr const char* kCookie = "orvane_token";

// 128 bits from the system's random source, as hexadecimal.
std::string randomToken() {
  unsigned char bytes[16];
  std::size_t got = 0;
  while (got < sizeof bytes) {
    ssize_t n = getrandom(bytes + got, sizeof bytes - got, 0);
    if (n < 0) {
      if (errno == EINTR) continue;
      throw std::runtime_error("no random source");
    }
    got += static_cast<std::size_t>(n);
  }
  static constexpr char kHex[] = "0123456789abcdef";
  std::string out;
  for (unsigned char b : bytes) {
    out += kHex[b >> 4];
    out += kHex[b & 0xF];
  }
  return out;
}

// Compares without an early exit, so that timing tells nothing of the token.
bool sameToken(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  unsigned char diff = 0;
  for (std::size_t i = 0; i < a.size(); ++i) diff |= static_cast<unsigned char>(a[i] ^ b[i]);
  return diff == 0;
}

std::string cookieToken(const httplib::Request& req) {
  std::string cookies = req.get_header_value("Cookie");
  std::string_view rest(cookies);
  while (!rest.empty()) {
    std::size_t end = rest.find(';');
    std::string_view part = rest.substr(0, end);
    while (!part.empty() && part.front() == ' ') part.remove_prefix(1);
    std::string prefix = std::string(kCookie) + "=";
    if (part.starts_with(prefix)) return std::string(part.substr(prefix.size()));
    if (end == std::string_view::npos) break;
    rest.remove_prefix(end + 1);
  }
  return {};
}

// What a handler found: its body, and 200 in place of the 404 it started from.
void found(httplib::Response& res, const std::string& body, const char* type) {
  res.status = 200;
  res.set_content(body, type);
}

const char* mimeType(std::string_view name) {
  if (name.ends_with(".html")) return "text/html; charset=utf-8";
  if (name.ends_with(".css")) return "text/css; charset=utf-8";
  if (name.ends_with(".js")) return "text/javascript; charset=utf-8";
  if (name.ends_with(".svg")) return "image/svg+xml";
  if (name.ends_with(".json")) return "application/json; charset=utf-8";
  return "text/plain; charset=utf-8";
}

// The document, or the documents of a folder, as the last good decode left them, and what the
// newest text of each said when it did not decode.
class Documents {
 public:
  struct Slot {
    std::string file;
    std::shared_ptr<ViewerDocument> document;  // the last that decoded
    std::string error;                          // why the newest text does not, if it does not
    std::optional<std::size_t> line, column;
    std::uint64_t generation = 0;               // counts the documents it has held
    struct stat seen {};
  };

  Documents(Request request, std::string path) : request_(std::move(request)), path_(std::move(path)) {
    folder_ = fs::is_directory(path_);
  }

  bool folder() const { return folder_; }
  const std::string& path() const { return path_; }

  // Reads every document whose file changed since the last look; true when anything did.
  bool refresh() {
    std::vector<std::string> files;
    if (folder_) {
      std::error_code error;
      for (const auto& entry : fs::directory_iterator(path_, error)) {
        if (entry.is_regular_file(error) && entry.path().extension() == ".json") {
          files.push_back(entry.path().string());
        }
      }
      std::sort(files.begin(), files.end());
    } else {
      files.push_back(path_);
    }
    bool changed = false;
    // Only the watcher writes the slots: it reads them, decodes what changed while the server
    // goes on serving the documents it holds, and swaps the new ones in.
    std::vector<Slot> current = slots();
    std::vector<Slot> next;
    for (const auto& file : files) {
      auto old = std::find_if(current.begin(), current.end(), [&](const Slot& s) { return s.file == file; });
      Slot slot = old != current.end() ? *old : Slot{file, nullptr, {}, {}, {}, 0, {}};
      struct stat now {};
      bool present = ::stat(file.c_str(), &now) == 0;
      bool same = old != current.end() && present && now.st_mtim.tv_sec == slot.seen.st_mtim.tv_sec &&
                  now.st_mtim.tv_nsec == slot.seen.st_mtim.tv_nsec && now.st_size == slot.seen.st_size &&
                  now.st_ino == slot.seen.st_ino;
      if (!same) {
        slot.seen = now;
        LoadedDocument loaded = loadViewerDocument(request_, file);
        if (loaded.document) {
          slot.document = std::move(loaded.document);
          slot.error.clear();
          slot.line = slot.column = std::nullopt;
        } else {
          slot.error = loaded.error;
          slot.line = loaded.line;
          slot.column = loaded.column;
        }
        ++slot.generation;
        changed = true;
      }
      next.push_back(std::move(slot));
    }
    changed = changed || next.size() != current.size();
    std::lock_guard lock(mutex_);
    slots_ = std::move(next);
    if (changed) ++generation_;
    return changed;
  }

  std::vector<Slot> slots() const {
    std::lock_guard lock(mutex_);
    return slots_;
  }

  std::uint64_t generation() const {
    std::lock_guard lock(mutex_);
    return generation_;
  }

 private:
  Request request_;
  std::string path_;
  bool folder_ = false;
  mutable std::mutex mutex_;
  std::vector<Slot> slots_;
  std::uint64_t generation_ = 0;
};

// Watches FILE (or the folder) and reads it again when it changes: inotify on its folder, so
// that an editor's save by rename is seen too.
class Watcher {
 public:
  explicit Watcher(Documents& documents) : documents_(documents) {
    fd_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    std::string dir = documents.folder() ? documents.path()
                                         : fs::absolute(documents.path()).parent_path().string();
    if (fd_ >= 0) {
      inotify_add_watch(fd_, dir.c_str(),
                        IN_CLOSE_WRITE | IN_MOVED_TO | IN_CREATE | IN_DELETE | IN_MODIFY |
                            IN_ATTRIB);
    }
    thread_ = std::thread([this] { loop(); });
  }
  ~Watcher() {
    stop_ = true;
    thread_.join();
    if (fd_ >= 0) ::close(fd_);
  }

 private:
  void loop() {
    while (!stop_) {
      if (fd_ >= 0) {
        pollfd p{fd_, POLLIN, 0};
        int ready = ::poll(&p, 1, 250);
        if (ready <= 0) {
          if (ready < 0 && errno != EINTR) std::this_thread::sleep_for(std::chrono::milliseconds(250));
          continue;
        }
        char buffer[4096];
        while (::read(fd_, buffer, sizeof buffer) > 0) {
        }
        // A writer may still be at it: read once it has had a moment.
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
      } else {
        std::this_thread::sleep_for(std::chrono::seconds(1));
      }
      documents_.refresh();
    }
  }

  Documents& documents_;
  int fd_ = -1;
  std::atomic<bool> stop_{false};
  std::thread thread_;
};

std::string json(std::string_view text) {
  std::string out;
  orvane::detail::appendJsonString(out, text);
  return out;
}

// The listing of a folder's documents, as the page's index.
std::string folderIndex(const Documents& documents) {
  std::string out = "{\"live\":true,\"folder\":[";
  auto slots = documents.slots();
  for (std::size_t i = 0; i < slots.size(); ++i) {
    const auto& s = slots[i];
    out += (i ? ",{" : "{") + std::string("\"name\":") + json(fs::path(s.file).filename().string()) +
           ",\"base\":" + json("d" + std::to_string(i) + "/") +
           ",\"ok\":" + (s.document ? "true" : "false") + ",\"error\":" +
           (s.error.empty() ? "null" : json(s.error)) + "}";
  }
  return "orvaneData(\"index\", " + out + "]});\n";
}

void openInBrowser(const std::string& address) {
  for (const char* dir : {"/usr/bin/", "/usr/local/bin/", "/bin/"}) {
    std::string program = std::string(dir) + "xdg-open";
    if (::access(program.c_str(), X_OK) != 0) continue;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    std::vector<char*> argv{program.data(), const_cast<char*>(address.c_str()), nullptr};
    pid_t pid;
    posix_spawn(&pid, program.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return;
  }
}

}  // namespace

int serve(const ServeRequest& request, Output& out) {
  if (request.document.type != "Project" && request.document.type != "Snapshot") {
    if (!lookUpType(request.document.type)) return kUsage;
    return usageError("TYPE must be Project or Snapshot");
  }
  std::error_code exists;
  if (!fs::exists(request.document.file, exists)) {
    return usageError("cannot read " + request.document.file + ": No such file or directory");
  }
  Documents documents(request.document, request.document.file);
  documents.refresh();
  if (!documents.folder()) {
    auto slot = documents.slots().front();
    if (!slot.document) {
      std::cerr << "error: " << slot.error << '\n';
      return slot.error.starts_with("cannot read") ? kUsage : kDecodingFailed;
    }
  }

  // The signals that end the server are waited for, not handled: every thread blocks them.
  sigset_t stopping;
  sigemptyset(&stopping);
  sigaddset(&stopping, SIGINT);
  sigaddset(&stopping, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &stopping, nullptr);

  const std::string token = randomToken();
  httplib::Server server;
  // A thread serves one connection for as long as the browser keeps it open: enough of them
  // that the six a page opens, and a few silent clients, keep nobody waiting.
  server.new_task_queue = [] { return new httplib::ThreadPool(64); };
  server.set_default_headers(kSecurityHeaders);
  server.set_read_timeout(5, 0);
  server.set_write_timeout(5, 0);
  server.set_keep_alive_timeout(2);
  server.set_keep_alive_max_count(100);
  server.set_payload_max_length(64 * 1024);
  // Nothing of a failure reaches the client but its status.
  server.set_exception_handler([](const httplib::Request&, httplib::Response& res, std::exception_ptr) {
    res.status = 500;
    res.body.clear();
  });
  server.set_error_handler([](const httplib::Request&, httplib::Response& res) {
    res.body.clear();
    res.set_header("Content-Length", "0");
  });
  int port = 0;

  server.set_pre_routing_handler([&](const httplib::Request& req, httplib::Response& res) {
    auto refuse = [&](int status) {
      res.status = status;
      res.body.clear();
      return httplib::Server::HandlerResponse::Handled;
    };
    std::size_t bytes = req.method.size() + req.target.size() + req.version.size() + 4;
    for (const auto& [name, value] : req.headers) bytes += name.size() + value.size() + 4;
    if (bytes > kMostHeaderBytes) return refuse(431);
    // Only this machine's own names for the server: a page of another site that made its name
    // lead here (DNS rebinding) is refused.
    std::string host = req.get_header_value("Host");
    std::string suffix = ":" + std::to_string(port);
    if (host != "127.0.0.1" + suffix && host != "localhost" + suffix) return refuse(403);
    std::string given = req.has_param("token") ? req.get_param_value("token") : cookieToken(req);
    if (!sameToken(given, token)) return refuse(403);
    if (req.method != "GET" && req.method != "HEAD") return refuse(405);
    if (req.has_param("token")) {
      res.set_header("Set-Cookie", std::string(kCookie) + "=" + token +
                                       "; HttpOnly; SameSite=Strict; Path=/");
    }
    return httplib::Server::HandlerResponse::Unhandled;
  });

  // The page's own files.
  for (const WebFile& f : webFiles()) {
    std::string path = "/" + std::string(f.name);
    auto handler = [f](const httplib::Request&, httplib::Response& res) {
      found(res, std::string(f.data, f.size), mimeType(f.name));
    };
    server.Get(path, handler);
    if (f.name == "index.html") server.Get("/", handler);
  }

  // The document's: data/[dN/]index.js, data/[dN/]vK.js, thumbs/[dN/]vK.svg, tokens/[dN/]NAME.
  auto slotAt = [&](const std::string& base) -> std::optional<Documents::Slot> {
    auto slots = documents.slots();
    if (!documents.folder()) {
      if (!base.empty()) return std::nullopt;
      return slots.front();
    }
    if (base.size() < 3 || base[0] != 'd' || base.back() != '/') return std::nullopt;
    std::size_t index = 0;
    for (std::size_t i = 1; i + 1 < base.size(); ++i) {
      if (base[i] < '0' || base[i] > '9' || index > slots.size()) return std::nullopt;
      index = index * 10 + static_cast<std::size_t>(base[i] - '0');
    }
    if (index >= slots.size()) return std::nullopt;
    return slots[index];
  };
  auto documentAt = [&](const std::string& base) -> std::shared_ptr<ViewerDocument> {
    auto slot = slotAt(base);
    return slot ? slot->document : nullptr;
  };
  server.Get(R"(/data/((?:d[0-9]+/)?)([a-z0-9]+)\.js)", [&](const httplib::Request& req,
                                                             httplib::Response& res) {
    res.status = 404;
    std::string base = req.matches[1], name = req.matches[2];
    if (name == "index" && base.empty() && documents.folder()) {
      found(res, folderIndex(documents), mimeType(".js"));
      return;
    }
    auto slot = slotAt(base);
    if (!slot || !slot->document) return;
    const ViewerDocument& doc = *slot->document;
    std::optional<std::string> text = name == "index"
                                          ? std::optional<std::string>(doc.indexScript(true, slot->generation))
                                          : doc.snapshotScript(name, false);
    if (text) found(res, *text, mimeType(".js"));
  });
  server.Get(R"(/thumbs/((?:d[0-9]+/)?)(v[0-9]+)\.svg)", [&](const httplib::Request& req,
                                                             httplib::Response& res) {
    res.status = 404;
    auto doc = documentAt(req.matches[1]);
    if (!doc) return;
    if (auto svg = doc->thumbnail(req.matches[2])) found(res, *svg, mimeType(".svg"));
  });
  server.Get(R"(/tokens/((?:d[0-9]+/)?)([A-Za-z]+\.[a-z]+))", [&](const httplib::Request& req,
                                                                   httplib::Response& res) {
    res.status = 404;
    auto doc = documentAt(req.matches[1]);
    if (!doc) return;
    std::string name = req.matches[2];
    if (auto text = doc->tokenFile(name)) {
      res.set_header("Content-Disposition", "attachment; filename=\"" + name + "\"");
      found(res, *text, mimeType(name));
    }
  });
  server.Get("/api/code", [&](const httplib::Request& req, httplib::Response& res) {
    res.status = 404;
    auto doc = documentAt(req.get_param_value("base"));
    auto density = fromRawValue<Density>(req.get_param_value("density"));
    if (!doc || !density) return;
    if (auto code = doc->code(req.get_param_value("key"), req.get_param_value("layer"), *density)) {
      found(res, *code, mimeType(".json"));
    }
  });
  server.Get("/api/diff", [&](const httplib::Request& req, httplib::Response& res) {
    res.status = 404;
    auto doc = documentAt(req.get_param_value("base"));
    if (!doc) return;
    if (auto diff = doc->diff(req.get_param_value("from"), req.get_param_value("to"))) {
      found(res, *diff, mimeType(".json"));
    }
  });
  // What the page polls: which documents it holds, and why the newest text does not decode.
  server.Get("/api/state", [&](const httplib::Request&, httplib::Response& res) {
    std::string body = "{\"generation\":" + std::to_string(documents.generation()) + ",\"documents\":[";
    auto slots = documents.slots();
    for (std::size_t i = 0; i < slots.size(); ++i) {
      const auto& s = slots[i];
      body += (i ? ",{" : "{") + std::string("\"generation\":") + std::to_string(s.generation) +
              ",\"error\":" +
              (s.error.empty()
                   ? std::string("null")
                   : "{\"message\":" + json(s.error) + ",\"line\":" +
                         (s.line ? std::to_string(*s.line) : "null") + ",\"column\":" +
                         (s.column ? std::to_string(*s.column) : "null") + "}") +
              "}";
    }
    found(res, body + "]}", mimeType(".json"));
  });

  if (request.port == 0) {
    port = server.bind_to_any_port("127.0.0.1");
  } else {
    port = server.bind_to_port("127.0.0.1", request.port) ? request.port : -1;
  }
  if (port < 0) {
    std::cerr << "error: cannot listen on 127.0.0.1"
              << (request.port ? ":" + std::to_string(request.port) : "") << '\n';
    return kUsage;
  }
  Watcher watcher(documents);
  // The socket listens from bind on: connections wait in its backlog until the loop runs.
  std::atomic<bool> listened{false};
  std::thread listener([&] {
    server.listen_after_bind();
    listened = true;
  });
  // A stop() that comes before the loop runs is lost, and the loop would then run for ever:
  // nobody learns the address, so nobody can send a signal, until it runs.
  while (!server.is_running() && !listened) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  std::string address = "http://127.0.0.1:" + std::to_string(port) + "/?token=" + token;
  out.write("Serving " + oneLine(request.document.file) + " at " + address + "\n");
  std::fflush(stdout);
  if (request.open) openInBrowser(address);

  int signal = 0;
  sigwait(&stopping, &signal);
  server.stop();
  listener.join();
  return 0;
}

}  // namespace orvane::tool
