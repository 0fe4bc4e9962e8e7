// Small layer trees and snapshots built in code, for the tests that need records without
// documents.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <orvane/orvane.hpp>

namespace orvane::test {

inline Ref<Layer> layer(const char* id, Layer::Kind kind, Rect frame) {
  return Layer::make({.identifier = Identifier(id),
                      .name = id,
                      .sourceIdentifier = Identifier(id),
                      .kind = std::move(kind),
                      .frame = frame,
                      .rotation = std::nullopt,
                      .cornerRadius = 0,
                      .opacity = 1,
                      .blendMode = std::nullopt,
                      .blur = nullptr,
                      .isExportable = false,
                      .fills = std::nullopt,
                      .borders = std::nullopt,
                      .shadows = std::nullopt});
}

inline Ref<Layer> shape(const char* id, Rect frame = {}) {
  return layer(id, Layer::Kind::shape(), frame);
}

inline Ref<Layer> group(const char* id, std::vector<Ref<Layer>> children,
                        std::optional<Layer::InteractionLevel> level, Rect frame = {},
                        std::optional<std::string> componentName = std::nullopt) {
  return layer(id, Layer::Kind::group(std::move(children), std::move(componentName), level), frame);
}

/// The identifiers of `layers`, run together.
inline std::string ids(const std::vector<Ref<Layer>>& layers) {
  std::string out;
  for (const auto& l : layers) out += l->identifier().rawValue();
  return out;
}

/// A 1 x 1 snapshot with a local identifier and nothing else unless given.
inline Ref<Snapshot> makeSnapshot(std::optional<std::vector<Ref<Layer>>> layers = std::nullopt,
                                  Ref<Grid> grid = nullptr) {
  return Snapshot::make({.size = Size{1, 1},
                         .url = std::nullopt,
                         .density = std::nullopt,
                         .source = std::nullopt,
                         .backgroundColor = nullptr,
                         .grid = std::move(grid),
                         .assets = std::nullopt,
                         .layers = std::move(layers),
                         .links = std::nullopt});
}

}  // namespace orvane::test
