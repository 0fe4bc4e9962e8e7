// Reads the PNG screenshots the browser takes: 8-bit RGB or RGBA, not interlaced.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orvane::test {

struct Pixel {
  int red, green, blue;
};

struct Image {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> rgb;  // three bytes a pixel, rows top down

  Pixel at(int x, int y) const;
};

/// The image in `path`; throws std::runtime_error for anything else than the kinds above.
Image readPng(const std::string& path);

}  // namespace orvane::test
