// Builds a screen with two versions through `make` and prints the JSON the screen writes.
#include <cstdio>

#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

using namespace orvane;

namespace {

Ref<Version> version(const char* message, double buttonY) {
  auto green = [] { return Color::make({.red = 0.13, .green = 0.55, .blue = 0.33, .alpha = 1}); };
  auto button = Layer::make({
      .name = "Start button",
      .sourceIdentifier = Identifier("12:40"),
      .kind = Layer::Kind::shape(),
      .frame = Rect(16, buttonY, 343, 52),
      .rotation = std::nullopt,
      .cornerRadius = 26,
      .opacity = 1,
      .blendMode = std::nullopt,
      .blur = nullptr,
      .isExportable = false,
      .fills = std::vector{Fill::make({.kind = Fill::Kind::color(green()),
                                       .opacity = 1,
                                       .blendMode = std::nullopt})},
      .borders = std::nullopt,
      .shadows = std::nullopt,
  });
  auto snapshot = Snapshot::make({
      .size = Size{375, 812},
      .url = std::nullopt,
      .density = Density::_3x,
      .source = std::nullopt,
      .backgroundColor = nullptr,
      .grid = nullptr,
      .assets = std::nullopt,
      .layers = std::vector{button},
      .links = std::nullopt,
  });
  return Version::make({
      .commit = Commit::make({.author = nullptr, .message = message, .color = green()}),
      .creator = nullptr,
      .snapshot = snapshot,
      .snapshotURL = std::nullopt,
  });
}

}  // namespace

int main() {
  auto first = version("First layout", 700);
  auto second = version("Button higher", 680);
  auto screen = Screen::make({
      .name = "Trails",
      .latestVersion = second,
      .sourceIdentifier = std::nullopt,
      .tags = std::vector<std::string>{"draft"},
      .versions = std::vector{first, second},
      .dots = std::nullopt,
  });
  // The screen's versions know their screen now: make wired them.
  std::printf("%s\n", JsonEncoder().encode(screen).c_str());
  return screen->versions()->front()->collection() == screen ? 0 : 1;
}
