// Decoding and encoding speed and memory, measured in one run on the same bytes against the
// parser's own DOM parse and against two other JSON libraries' parse alone.
//   bench [SIZE_MB ...]        default: 1 10 100
//   bench --large SIZE_MB      one decode of a large document: time and peak memory
//   bench --process SIZE_MB    only the whole-process runs, with a project of SIZE_MB
//   bench --binder             only the snapshot decode against the On-Demand binder
//   bench --only decode|encode|document|project SIZE_MB COUNT
//                              only that operation, COUNT times, for a profiler
#include <fcntl.h>
#include <malloc.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <simdjson.h>
#include <nlohmann/json.hpp>

#include <orvane/handoff/Diff.hpp>
#include <orvane/handoff/Find.hpp>
#include <orvane/handoff/Inspect.hpp>
#include <orvane/handoff/Measure.hpp>
#include <orvane/handoff/Render.hpp>
#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/project/Project.hpp>
#include <orvane/snapshot/Snapshot.hpp>

#include "binder.hpp"
#include "generate.hpp"

#ifndef ORVANE_TOOL
#define ORVANE_TOOL "orvane"  // the one on PATH, when the build has none
#endif

// Bytes in use on the heap, from the allocator's own statistics (one thread, one arena), so
// that timing runs pay nothing for the counting. Records packed into a decoder's chunks are
// counted apart, through its arena.
static long long heapInUse() {
  return static_cast<long long>(mallinfo2().uordblks + mallinfo2().hblkhd);
}
static long long packedRecords(const orvane::JsonDecoder& decoder) {
  return static_cast<long long>(decoder.recordArena().statistics().recordBytes);
}

namespace {

using Clock = std::chrono::steady_clock;
using Snapshots = std::vector<orvane::Ref<orvane::Snapshot>>;

// The best of several runs: at least three, and as many as fit in about two seconds. `after`
// runs untimed after each run (to release what it made).
double bestSeconds(const std::function<void()>& run, const std::function<void()>& after = {}) {
  double best = 1e100, total = 0;
  for (int i = 0; i < 3 || (total < 2.0 && i < 50); ++i) {
    auto start = Clock::now();
    run();
    double s = std::chrono::duration<double>(Clock::now() - start).count();
    if (after) after();
    best = std::min(best, s);
    total += s;
  }
  return best;
}

// Peak resident memory of `run` in a child process, in bytes.
long peakResident(const std::function<void()>& run) {
  std::fflush(stdout);  // or the child would print the parent's pending output again
  pid_t pid = fork();
  if (pid == 0) {
    run();
    std::fflush(stdout);
    _exit(0);
  }
  int status = 0;
  rusage usage{};
  wait4(pid, &status, 0, &usage);
  return usage.ru_maxrss * 1024L;
}

void row(const char* name, double bytes, double seconds, double floor) {
  std::printf("| %-34s | %9.1f | %9.2f | %7.2fx |\n", name, bytes / seconds / 1e6, seconds * 1e3,
              seconds / floor);
}

// A whole project document of the same size: screens, versions with their snapshots, dots,
// sections, the component tree and the style guide, decoded into the wired project graph.
void measureProject(std::size_t megabytes) {
  std::string json = orvane::bench::generateProject(megabytes * 1000 * 1000);
  double bytes = double(json.size());
  simdjson::padded_string padded(json);
  json = std::string();
  std::string_view view(padded.data(), padded.size());
  simdjson::dom::parser parser;
  double floor = bestSeconds([&] { benchmark::DoNotOptimize(parser.parse(padded).error()); });
  orvane::JsonDecoder decoder;
  orvane::Ref<orvane::Project> project;
  double decode =
      bestSeconds([&] { project = decoder.decodePadded<orvane::Ref<orvane::Project>>(view); },
                  [&] { project.reset(); });
  std::printf("\nProject document (%.1f MB):\n\n", bytes / 1e6);
  std::printf("| %-34s | %9s | %9s | %8s |\n", "run", "MB/s", "ms", "vs simdjson");
  std::printf("|%s|%s|%s|%s|\n", std::string(36, '-').c_str(), std::string(11, '-').c_str(),
              std::string(11, '-').c_str(), std::string(10, '-').c_str());
  row("simdjson DOM parse", bytes, floor, floor);
  row("Orvane decode (wired project)", bytes, decode, floor);

  long long before = heapInUse(), packed = 0;
  {
    orvane::JsonDecoder fresh;
    project = fresh.decodePadded<orvane::Ref<orvane::Project>>(view);
    packed = packedRecords(fresh);
  }
  long long retained = heapInUse() - before + packed;
  project.reset();
  std::printf("\nRetained by the decoded project: %.1f MB (%.2fx the document)\n", retained / 1e6,
              retained / bytes);
  long baseline = peakResident([] {});
  long peak = peakResident([&] {
    orvane::JsonDecoder fresh;
    auto p = fresh.decodePadded<orvane::Ref<orvane::Project>>(view);
    benchmark::DoNotOptimize(p.get());
  });
  std::printf("Peak resident memory of a project decode: %.1f MB (process before: %.1f MB)\n",
              peak / 1e6, baseline / 1e6);
}

void measure(std::size_t megabytes) {
  std::string json = orvane::bench::generateSnapshots(megabytes * 1000 * 1000);
  double bytes = double(json.size());
  simdjson::padded_string padded(json);
  std::string_view view(padded.data(), padded.size());
  std::printf("\n### %zu MB document (%.1f MB, snapshots with ~120 layers each)\n\n", megabytes,
              bytes / 1e6);
  std::printf("| %-34s | %9s | %9s | %8s |\n", "run", "MB/s", "ms", "vs simdjson");
  std::printf("|%s|%s|%s|%s|\n", std::string(36, '-').c_str(), std::string(11, '-').c_str(),
              std::string(11, '-').c_str(), std::string(10, '-').c_str());

  simdjson::dom::parser parser;
  double floor = bestSeconds([&] { benchmark::DoNotOptimize(parser.parse(padded).error()); });
  row("simdjson DOM parse", bytes, floor, floor);
  double rapid = bestSeconds([&] {
    rapidjson::Document d;
    d.Parse(json.data(), json.size());
    benchmark::DoNotOptimize(d.HasParseError());
  });
  row("RapidJSON parse", bytes, rapid, floor);
  double nlohmannTime = bestSeconds([&] {
    auto j = nlohmann::json::parse(json);
    benchmark::DoNotOptimize(j.size());
  });
  row("nlohmann::json parse", bytes, nlohmannTime, floor);

  // Decoding ends with the graph built and wired; releasing it is timed on its own.
  orvane::JsonDecoder decoder;
  Snapshots graph;
  double decode =
      bestSeconds([&] { graph = decoder.decodePadded<Snapshots>(view); }, [&] { graph.clear(); });
  row("Orvane decode (wired graph)", bytes, decode, floor);
  graph = decoder.decodePadded<Snapshots>(view);
  double release =
      bestSeconds([&] { graph.clear(); }, [&] { graph = decoder.decodePadded<Snapshots>(view); });
  std::printf("| %-34s | %9s | %9.2f | %7.2fx |\n", "Orvane release of the graph", "",
              release * 1e3, release / floor);

  std::string out;
  double encode = bestSeconds([&] {
    out.clear();
    orvane::JsonEncoder().encodeInto(out, graph);
  });
  std::printf("| %-34s | %9.1f | %9.2f | %7.2fx |  (%.1f MB written)\n", "Orvane encode",
              double(out.size()) / encode / 1e6, encode * 1e3, encode / floor,
              double(out.size()) / 1e6);
  // The document form writes more than the records' own encoding (identifiers, every member
  // read), so its rate is per byte written and its time is compared with the encoding's.
  const orvane::JsonEncoder documentForm({.form = orvane::EncodingForm::document});
  double document = bestSeconds([&] {
    out.clear();
    documentForm.encodeInto(out, graph);
  });
  std::printf("| %-34s | %9.1f | %9.2f | %7.2fx |  (%.1f MB written, %.2fx the encode)\n",
              "Orvane document form", double(out.size()) / document / 1e6, document * 1e3,
              document / floor, double(out.size()) / 1e6, document / encode);
  graph.clear();

  std::printf("\nOrvane decode vs nlohmann::json parse alone: %.1fx faster\n",
              nlohmannTime / decode);

  // Memory: what the graph keeps, with the decoder and its parser buffers gone.
  long long before = heapInUse(), packed = 0;
  Snapshots kept;
  {
    orvane::JsonDecoder fresh;
    kept = fresh.decodePadded<Snapshots>(view);
    packed = packedRecords(fresh);
  }
  long long retained = heapInUse() - before + packed;
  std::printf("Retained by the decoded graph: %.1f MB (%.2fx the document)\n", retained / 1e6,
              retained / bytes);
  kept.clear();
  long baseline = peakResident([] {});
  long peak = peakResident([&] {
    orvane::JsonDecoder fresh;
    auto g = fresh.decodePadded<Snapshots>(view);
    benchmark::DoNotOptimize(g.size());
  });
  std::printf("Peak resident memory of a decode: %.1f MB (process before: %.1f MB)\n", peak / 1e6,
              baseline / 1e6);
  measureProject(megabytes);
}

// Drawing one snapshot against decoding it, at two sizes: the time per layer should not grow.
void measureRender() {
  std::printf("\n### Drawing one snapshot (orvane render)\n\n");
  std::printf("| %8s | %9s | %10s | %10s | %12s | %8s | %13s | %12s |\n", "layers", "JSON MB",
              "decode ms", "render ms", "render/decode", "SVG MB", "render us/layer",
              "self-diff ms");
  std::printf("|%s|%s|%s|%s|%s|%s|%s|%s|\n", std::string(10, '-').c_str(),
              std::string(11, '-').c_str(), std::string(12, '-').c_str(),
              std::string(12, '-').c_str(), std::string(14, '-').c_str(),
              std::string(10, '-').c_str(), std::string(15, '-').c_str(),
              std::string(14, '-').c_str());
  for (int count : {6000, 60000}) {
    std::string json = orvane::bench::generateSnapshot(count);
    simdjson::padded_string padded(json);
    std::string_view view(padded.data(), padded.size());
    orvane::JsonDecoder decoder;
    orvane::Ref<orvane::Snapshot> snapshot;
    double decode =
        bestSeconds([&] { snapshot = decoder.decodePadded<orvane::Ref<orvane::Snapshot>>(view); },
                    [&] { snapshot.reset(); });
    snapshot = decoder.decodePadded<orvane::Ref<orvane::Snapshot>>(view);
    std::size_t layers = snapshot->flattenedLayers() ? snapshot->flattenedLayers()->size() : 0;
    std::string svg;
    double render = bestSeconds([&] { svg = orvane::handoff::renderSvg(*snapshot); });
    double diff = bestSeconds([&] {
      benchmark::DoNotOptimize(orvane::handoff::diffSnapshots(*snapshot, *snapshot).empty());
    });
    std::printf("| %8zu | %9.1f | %10.2f | %10.2f | %12.2fx | %8.1f | %15.3f | %12.2f |\n",
                layers, double(json.size()) / 1e6, decode * 1e3, render * 1e3, render / decode,
                double(svg.size()) / 1e6, render * 1e6 / double(std::max<std::size_t>(layers, 1)),
                diff * 1e3);
  }
}

// One snapshot of about 25 MB written both ways: the document form, which writes every member
// that decoding reads, against the records' own encoding.
void measureDocumentForm() {
  std::string json = orvane::bench::generateSnapshot(39000);
  simdjson::padded_string padded(json);
  std::string_view view(padded.data(), padded.size());
  orvane::JsonDecoder decoder;
  auto snapshot = decoder.decodePadded<orvane::Ref<orvane::Snapshot>>(view);
  std::string out;
  double encode = bestSeconds([&] {
    out.clear();
    orvane::JsonEncoder().encodeInto(out, snapshot);
  });
  std::size_t encoded = out.size();
  const orvane::JsonEncoder documentForm({.form = orvane::EncodingForm::document});
  double document = bestSeconds([&] {
    out.clear();
    documentForm.encodeInto(out, snapshot);
  });
  std::printf("\n### Writing one %.0f MB snapshot: document form against encode\n\n",
              double(json.size()) / 1e6);
  std::printf("| %-24s | %9s | %9s | %10s |\n", "run", "MB out", "ms", "vs encode");
  std::printf("|%s|%s|%s|%s|\n", std::string(26, '-').c_str(), std::string(11, '-').c_str(),
              std::string(11, '-').c_str(), std::string(12, '-').c_str());
  std::printf("| %-24s | %9.1f | %9.2f | %9.2fx |\n", "encode", double(encoded) / 1e6, encode * 1e3,
              1.0);
  std::printf("| %-24s | %9.1f | %9.2f | %9.2fx |\n", "document form", double(out.size()) / 1e6,
              document * 1e3, document / encode);
}

// The people's questions of a large project against decoding it: what is in it, how far apart
// two layers are, what changed between two versions of a screen.
void measurePeoplesQuestions(std::size_t megabytes) {
  std::string json = orvane::bench::generateProject(megabytes * 1000 * 1000);
  simdjson::padded_string padded(json);
  std::string_view view(padded.data(), padded.size());
  orvane::JsonDecoder decoder;
  orvane::Ref<orvane::Project> project;
  double decode =
      bestSeconds([&] { project = decoder.decodePadded<orvane::Ref<orvane::Project>>(view); },
                  [&] { project.reset(); });
  project = decoder.decodePadded<orvane::Ref<orvane::Project>>(view);
  std::printf("\n### Inspect, measure and diff of a %.0f MB project\n\n", double(json.size()) / 1e6);
  std::printf("| %-40s | %10s | %10s |\n", "run", "ms", "vs decode");
  std::printf("|%s|%s|%s|\n", std::string(42, '-').c_str(), std::string(12, '-').c_str(),
              std::string(12, '-').c_str());
  auto row = [&](const char* name, double seconds) {
    std::printf("| %-40s | %10.2f | %9.2fx |\n", name, seconds * 1e3, seconds / decode);
  };
  row("decode (wired project)", decode);
  std::size_t textBytes = 0, jsonBytes = 0;
  row("inspect (tree and its text)", bestSeconds([&] {
        textBytes = orvane::handoff::inspectText(orvane::handoff::inspectProject(*project)).size();
      }));
  row("inspect --json", bestSeconds([&] {
        jsonBytes = orvane::handoff::inspectJson(orvane::handoff::inspectProject(*project)).size();
      }));
  // A screen with two versions, as the generator makes most of them.
  orvane::Ref<orvane::Version> older, newer;
  for (const auto& [id, screen] : *project->screensByIdentifier()) {
    if (screen->versions() && screen->versions()->size() >= 2) {
      older = screen->versions()->front();
      newer = screen->versions()->back();
      break;
    }
  }
  if (older) {
    auto layers = orvane::handoff::allLayers(*newer->snapshot());
    std::string a(layers.front()->identifier().rawValue());
    std::string b(layers.back()->identifier().rawValue());
    row("measure (find two layers, measure)", bestSeconds([&] {
          auto la = orvane::handoff::findLayer(*newer->snapshot(), a).layer;
          auto lb = orvane::handoff::findLayer(*newer->snapshot(), b).layer;
          benchmark::DoNotOptimize(
              orvane::handoff::measure(la->absoluteFrame(), lb->absoluteFrame()).relation);
        }));
    row("diff of two versions of a screen", bestSeconds([&] {
          benchmark::DoNotOptimize(
              orvane::handoff::diffSnapshots(*older->snapshot(), *newer->snapshot()).empty());
        }));
  }
  std::printf("\nThe tree's text: %.1f MB, its JSON: %.1f MB.\n", double(textBytes) / 1e6,
              double(jsonBytes) / 1e6);
}


// One snapshot read into the wired graph against a hand-written On-Demand reader of the same
// fields into plain structs (bench/binder.cpp), at two sizes.
void measureBinder() {
  std::printf("\n### One snapshot: decode against a hand-written On-Demand binder\n\n");
  std::printf("| %9s | %8s | %11s | %11s | %12s |\n", "JSON MB", "layers", "binder MB/s",
              "Orvane MB/s", "Orvane/binder");
  std::printf("|%s|%s|%s|%s|%s|\n", std::string(11, '-').c_str(), std::string(10, '-').c_str(),
              std::string(13, '-').c_str(), std::string(13, '-').c_str(),
              std::string(14, '-').c_str());
  const double perLayer = double(orvane::bench::generateSnapshot(2000).size()) / 2000;
  for (double megabytes : {2.5, 25.0}) {
    simdjson::padded_string padded(
        orvane::bench::generateSnapshot(int(megabytes * 1e6 / perLayer)));
    std::string_view view(padded.data(), padded.size());
    simdjson::ondemand::parser parser;
    std::size_t layers = 0;
    double bound = bestSeconds([&] {
      auto snapshot = orvane::bench::binder::bind(parser, padded);
      layers = snapshot.flattened.size();
    });
    orvane::JsonDecoder decoder;
    orvane::Ref<orvane::Snapshot> snapshot;
    double decode =
        bestSeconds([&] { snapshot = decoder.decodePadded<orvane::Ref<orvane::Snapshot>>(view); },
                    [&] { snapshot.reset(); });
    const double bytes = double(padded.size());
    std::printf("| %9.1f | %8zu | %11.1f | %11.1f | %11.2fx |\n", bytes / 1e6, layers,
                bytes / bound / 1e6, bytes / decode / 1e6, decode / bound);
  }
}

// One run of a whole process: its wall time and peak resident memory.
struct ProcessRun {
  double seconds;
  long peak;
};

// The median of three runs (by time; the peak is the largest seen) of `child`, run in a fresh
// process with standard output on /dev/null.
ProcessRun medianRun(const std::function<void()>& child) {
  std::vector<double> times;
  long peak = 0;
  for (int i = 0; i < 3; ++i) {
    std::fflush(stdout);
    auto start = Clock::now();
    pid_t pid = fork();
    if (pid == 0) {
      int devnull = open("/dev/null", O_WRONLY);
      dup2(devnull, 1);
      child();
      _exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    times.push_back(std::chrono::duration<double>(Clock::now() - start).count());
    peak = std::max(peak, usage.ru_maxrss * 1024L);
  }
  std::sort(times.begin(), times.end());
  return {times[1], peak};
}

// `orvane decode TYPE FILE > /dev/null`, as a user runs it; ORVANE_BENCH_TOOL names another
// build of the tool, to compare with.
ProcessRun toolRun(const char* type, const std::string& file) {
  const char* other = std::getenv("ORVANE_BENCH_TOOL");
  const char* tool = other && *other ? other : ORVANE_TOOL;
  return medianRun([&] {
    execlp(tool, tool, "decode", type, file.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  });
}

void processRow(const char* name, const ProcessRun& run, double bytes, const ProcessRun& reference) {
  std::printf("| %-44s | %7.2f | %8.1f | %6.2fx | %6.2fx |\n", name, run.seconds, run.peak / 1e6,
              run.peak / bytes, run.seconds / reference.seconds);
}

// Whole processes on a 25 MB snapshot and a project of `projectMegabytes`: the tool against
// simdjson's DOM in a program of a few lines (parse, and for the snapshot write the same bytes
// back), each reading its file whole.
void measureWholeProcess(std::size_t projectMegabytes) {
  const double perLayer = double(orvane::bench::generateSnapshot(2000).size()) / 2000;
  const std::string snapshot = "/tmp/orvane-bench-snapshot.json";
  const std::string project = "/tmp/orvane-bench-project.json";
  std::size_t snapshotBytes = 0, projectBytes = 0;
  {
    std::string json = orvane::bench::generateSnapshot(int(25'000'000 / perLayer));
    snapshotBytes = json.size();
    std::FILE* f = std::fopen(snapshot.c_str(), "wb");
    std::fwrite(json.data(), 1, json.size(), f);
    std::fclose(f);
    json = orvane::bench::generateProject(projectMegabytes * 1000 * 1000);
    projectBytes = json.size();
    f = std::fopen(project.c_str(), "wb");
    std::fwrite(json.data(), 1, json.size(), f);
    std::fclose(f);
  }
  std::printf("\n### Whole processes (median of three; peak resident memory)\n\n");
  std::printf("| %-44s | %7s | %8s | %7s | %7s |\n", "run", "s", "peak MB", "x doc", "vs ref");
  std::printf("|%s|%s|%s|%s|%s|\n", std::string(46, '-').c_str(), std::string(9, '-').c_str(),
              std::string(10, '-').c_str(), std::string(9, '-').c_str(),
              std::string(9, '-').c_str());
  ProcessRun rewrite = medianRun([&] {
    auto text = simdjson::padded_string::load(snapshot);
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    if (text.error() || parser.parse(text.value()).get(root)) _exit(1);
    std::string out = simdjson::minify(root);
    if (std::fwrite(out.data(), 1, out.size(), stdout) != out.size()) _exit(1);
    std::fflush(stdout);
  });
  char label[96];
  std::snprintf(label, sizeof label, "simdjson DOM parse + write, %.1f MB snapshot",
                snapshotBytes / 1e6);
  processRow(label, rewrite, double(snapshotBytes), rewrite);
  processRow("orvane decode Snapshot", toolRun("Snapshot", snapshot), double(snapshotBytes),
             rewrite);
  ProcessRun parse = medianRun([&] {
    auto text = simdjson::padded_string::load(project);
    simdjson::dom::parser parser;
    if (text.error() || parser.parse(text.value()).error()) _exit(1);
  });
  std::snprintf(label, sizeof label, "simdjson DOM parse, %.1f MB project", projectBytes / 1e6);
  processRow(label, parse, double(projectBytes), parse);
  processRow("orvane decode Project", toolRun("Project", project), double(projectBytes), parse);
  std::remove(snapshot.c_str());
  std::remove(project.c_str());
}

}  // namespace

// One decode of a large document in a fresh process: its time and peak resident memory.
void large(std::size_t megabytes) {
  std::string json = orvane::bench::generateSnapshots(megabytes * 1000 * 1000);
  simdjson::padded_string padded(json);
  json = std::string();
  std::string_view view(padded.data(), padded.size());
  long peak = peakResident([&] {
    auto start = Clock::now();
    orvane::JsonDecoder decoder;
    auto graph = decoder.decodePadded<Snapshots>(view);
    double s = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("Decoded %.1f MB into %zu snapshots in %.2f s\n", double(view.size()) / 1e6,
                graph.size(), s);
  });
  std::printf("Peak resident memory: %.1f MB\n", double(peak) / 1e6);
}

// One operation repeated, so that a profiler sees little else.
void only(const std::string& what, std::size_t megabytes, int count) {
  const std::size_t bytes = megabytes * 1000 * 1000;
  std::string json = what == "project" ? orvane::bench::generateProject(bytes)
                                       : orvane::bench::generateSnapshots(bytes);
  simdjson::padded_string padded(json);
  std::string_view view(padded.data(), padded.size());
  orvane::JsonDecoder decoder;
  if (what == "project") {
    for (int i = 0; i < count; ++i) {
      auto project = decoder.decodePadded<orvane::Ref<orvane::Project>>(view);
      benchmark::DoNotOptimize(project.get());
    }
    return;
  }
  if (what == "decode") {
    for (int i = 0; i < count; ++i) {
      auto graph = decoder.decodePadded<Snapshots>(view);
      benchmark::DoNotOptimize(graph.size());
    }
    return;
  }
  auto graph = decoder.decodePadded<Snapshots>(view);
  std::string out;
  orvane::JsonEncoderOptions options;
  if (what == "document") options.form = orvane::EncodingForm::document;
  for (int i = 0; i < count; ++i) {
    out.clear();
    orvane::JsonEncoder(options).encodeInto(out, graph);
    benchmark::DoNotOptimize(out.data());
  }
}

int main(int argc, char** argv) {
  if (argc == 3 && std::string(argv[1]) == "--large") {
    large(std::strtoul(argv[2], nullptr, 10));
    return 0;
  }
  if (argc == 2 && std::string(argv[1]) == "--binder") {
    measureBinder();
    return 0;
  }
  if (argc == 3 && std::string(argv[1]) == "--process") {
    measureWholeProcess(std::strtoul(argv[2], nullptr, 10));
    return 0;
  }
  if (argc == 5 && std::string(argv[1]) == "--only") {
    only(argv[2], std::strtoul(argv[3], nullptr, 10), std::atoi(argv[4]));
    return 0;
  }
  std::vector<std::size_t> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::strtoul(argv[i], nullptr, 10));
  if (sizes.empty()) sizes = {1, 10, 100};
  for (auto mb : sizes) measure(mb);
  measureDocumentForm();
  measureRender();
  measurePeoplesQuestions(*std::max_element(sizes.begin(), sizes.end()));
  measureBinder();
  measureWholeProcess(*std::max_element(sizes.begin(), sizes.end()));
}
