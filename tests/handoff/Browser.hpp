// Headless Chromium, to see a drawing as a person would: screenshots and parsed documents.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Png.hpp"

namespace orvane::test {

/// The browser to run: $ORVANE_CHROMIUM, else `chromium` on the PATH; none when absent.
std::optional<std::string> chromium();

/// A scratch folder for one test run, removed with the object.
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;
  std::string file(const std::string& name) const { return path_ + "/" + name; }
  void write(const std::string& name, const std::string& text) const;

 private:
  std::string path_;
};

/// A page showing each document at its own place, top to bottom, screenshot in one run.
struct Sheet {
  struct Entry {
    std::string file;  // an SVG drawing or an HTML page in the scratch folder
    int width;
    int height;
    int top = 0;  // where the screenshot shows it
  };
  std::vector<Entry> entries;

  /// Lays the entries out, shoots the page and returns the screenshot.
  Image shoot(const std::string& browser, const ScratchDir& dir);
};

/// The document's DOM after loading, as the browser serializes it.
std::string dumpDom(const std::string& browser, const std::string& file);

}  // namespace orvane::test
