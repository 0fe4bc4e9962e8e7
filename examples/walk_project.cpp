// Decodes a project document and walks it: each section with the screens it names, each
// screen's versions, and the latest version's layers flattened in drawing order with their
// absolute frames.
//   walk_project PROJECT.json
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/orvane.hpp>

using namespace orvane;

namespace {

void printScreen(const Screen& screen) {
  std::printf("  screen %s \"%s\": %zu versions, at %s\n", std::string(screen.identifier().rawValue()).c_str(),
              screen.name().c_str(), screen.versions() ? screen.versions()->size() : 0,
              screen.versionsPath().c_str());
  for (const auto& version : screen.versions().value_or(std::vector<Ref<Version>>{})) {
    std::printf("    version %s, made %s by %s\n", std::string(version->identifier().rawValue()).c_str(),
                formatDateMillis(version->createDate()).c_str(),
                version->creator() ? version->creator()->email().c_str() : "nobody known");
  }
  const auto& snapshot = screen.latestVersion()->snapshot();
  for (const auto& layer : snapshot->flattenedLayers().value_or(std::vector<Ref<Layer>>{})) {
    Rect frame = layer->absoluteFrame();
    std::printf("    layer %-14s at (%g, %g), %g x %g\n", layer->name().c_str(), frame.origin.x,
                frame.origin.y, frame.size.width, frame.size.height);
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: walk_project PROJECT.json\n");
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::string json{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) {
    std::fprintf(stderr, "walk_project: cannot read %s\n", argv[1]);
    return 2;
  }
  try {
    auto project = JsonDecoder().decode<Ref<Project>>(json);
    std::printf("project \"%s\"\n", project->name().c_str());
    const auto& screens = project->screensByIdentifier();
    for (const auto& section : project->sections().value_or(std::vector<Ref<Section>>{})) {
      std::printf("section \"%s\"\n", section->name().c_str());
      for (const auto& id : section->screenIdentifiers()) {
        auto found = screens ? screens->find(id) : decltype(screens->end()){};
        if (screens && found != screens->end()) printScreen(*found->second);
      }
    }
  } catch (const DecodingError& error) {
    std::fprintf(stderr, "walk_project: %s\n", error.what());
    return 1;
  }
  return 0;
}
