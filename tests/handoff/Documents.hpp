// Small snapshot documents for the drawing and code checks, written as JSON text.
#pragma once

#include <string>
#include <vector>

namespace orvane::test {

// A layer document: `rest` adds or overrides members ("type", fills, styles...).
inline std::string layer(const std::string& id, double x, double y, double w, double h,
                         const std::string& rest = "") {
  return R"({"_id":")" + id + R"(","name":")" + id + R"(","sourceId":")" + id +
         R"(","type":"shape","rect":{"x":)" + std::to_string(x) + ",\"y\":" + std::to_string(y) +
         ",\"width\":" + std::to_string(w) + ",\"height\":" + std::to_string(h) +
         "},\"opacity\":1" + (rest.empty() ? "" : "," + rest) + "}";
}

inline std::string color(double r, double g, double b, double a = 1) {
  return "{\"r\":" + std::to_string(r) + ",\"g\":" + std::to_string(g) +
         ",\"b\":" + std::to_string(b) + ",\"a\":" + std::to_string(a) + "}";
}

inline std::string solid(double r, double g, double b, double a = 1, const std::string& rest = "") {
  return R"("fills":[{"fillType":"color","color":)" + color(r, g, b, a) +
         (rest.empty() ? "" : "," + rest) + "}]";
}

inline std::string gradient(const std::string& type, const std::string& from,
                            const std::string& to) {
  return R"("fills":[{"fillType":"gradient","gradient":{"type":")" + type + R"(","from":)" + from +
         R"(,"to":)" + to + R"(,"colorStops":[{"position":0,"color":)" + color(1, 0, 0) +
         R"(},{"position":1,"color":)" + color(0, 0, 1) + "}]}}]";
}

inline std::string border(const std::string& position) {
  return R"("borders":[{"position":")" + position +
         R"(","thickness":4,"fillType":"color","color":)" + color(0, 1, 0) + "}]";
}

inline std::string shadow(const std::string& type, int dx, int dy) {
  return R"("shadows":[{"type":")" + type + R"(","offsetX":)" + std::to_string(dx) +
         R"(,"offsetY":)" + std::to_string(dy) + R"(,"blurRadius":0,"color":)" + color(0, 0, 0) +
         "}]";
}

inline const std::string kMiddle = R"({"x":0.5,"y":0.5})";

/// A snapshot document of that size, white, with those layers (JSON objects, comma-joined)
/// and `extra` members.
inline std::string snapshotJson(int width, int height, const std::string& layers,
                                const std::string& extra = "") {
  return R"({"_id":"s","width":)" + std::to_string(width) +
         ",\"height\":" + std::to_string(height) + R"(,"backgroundColor":)" + color(1, 1, 1) +
         ",\"layers\":[" + layers + "]" + (extra.empty() ? "" : "," + extra) + "}";
}

/// The same with the layers given one by one.
inline std::string snapshotJson(int width, int height, const std::vector<std::string>& layers,
                                const std::string& extra = "") {
  std::string joined;
  for (const auto& l : layers) joined += (joined.empty() ? "" : ",") + l;
  return snapshotJson(width, height, joined, extra);
}

}  // namespace orvane::test
