// A hand-written reader of one snapshot document into plain structs, on simdjson's On-Demand
// API: the reference a decoder is measured against. It reads the layer tree's fields and the
// snapshot's own scalars, skips what it does not read without checking it, and flattens the
// tree with absolute frames, as a decode does; it checks none of the model's rules.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <simdjson.h>

namespace orvane::bench::binder {

struct Color {
  double r = 0, g = 0, b = 0, a = 1;
};
struct Rect {
  double x = 0, y = 0, width = 0, height = 0;
};
struct Stop {
  Color color;
  double position = 0;
};
struct Gradient {
  std::string type;
  double fromX = 0, fromY = 0, toX = 0, toY = 0;
  std::vector<Stop> stops;
};
// A fill, or a border (which adds position and thickness).
struct Fill {
  std::string fillType, position;
  Color color;
  std::optional<Gradient> gradient;
  double opacity = 1, thickness = 0;
};
struct Shadow {
  std::string type;
  double offsetX = 0, offsetY = 0, blurRadius = 0, spread = 0;
  Color color;
};
struct TextStyle {
  std::string fontFace, textAlign;
  double fontSize = 0, lineHeight = 0, letterSpacing = 0;
  Color color;
};
struct StyledRange {
  std::size_t location = 0, length = 0;
  TextStyle style;
};
struct Layer {
  std::string identifier, name, sourceIdentifier, type, blendMode, content, componentName,
      interactionLevel, blurType;
  Rect frame, absoluteFrame;
  std::optional<double> rotation, blurRadius;
  double borderRadius = 0, opacity = 1;
  bool exportable = false;
  std::vector<Fill> fills, borders;
  std::vector<Shadow> shadows;
  std::vector<StyledRange> textStyles;
  std::vector<std::unique_ptr<Layer>> layers;
  Layer* parent = nullptr;
};
struct Snapshot {
  std::string identifier, url, density, source;
  double width = 0, height = 0;
  Color background;
  std::vector<std::string> componentNames;
  std::vector<std::unique_ptr<Layer>> layers;
  std::vector<Layer*> flattened;  // drawing order, with absolute frames
};

/// Reads one snapshot document; throws simdjson::simdjson_error on text it cannot read.
Snapshot bind(simdjson::ondemand::parser& parser, const simdjson::padded_string& json);

}  // namespace orvane::bench::binder
