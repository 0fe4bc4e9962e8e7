#include "Browser.hpp"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace orvane::test {

namespace fs = std::filesystem;

std::optional<std::string> chromium() {
  if (const char* given = std::getenv("ORVANE_CHROMIUM"); given && *given) return given;
  const char* path = std::getenv("PATH");
  std::stringstream dirs(path ? path : "");
  for (std::string dir; std::getline(dirs, dir, ':');) {
    for (const char* name : {"chromium", "chromium-browser"}) {
      fs::path candidate = fs::path(dir) / name;
      if (access(candidate.c_str(), X_OK) == 0) return candidate.string();
    }
  }
  return std::nullopt;
}

ScratchDir::ScratchDir() {
  std::string pattern = (fs::temp_directory_path() / "orvane-browser-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot make a scratch folder");
  path_ = pattern;
}

ScratchDir::~ScratchDir() {
  // ORVANE_KEEP_SCRATCH keeps the pages and screenshots to look at.
  if (std::getenv("ORVANE_KEEP_SCRATCH")) return;
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

void ScratchDir::write(const std::string& name, const std::string& text) const {
  std::ofstream out(file(name), std::ios::binary);
  out << text;
  if (!out) throw std::runtime_error("cannot write " + file(name));
}

namespace {

// Runs the browser headless on `url` with `flags`; its chatter goes to a log in the folder.
void runBrowser(const std::string& browser, const std::string& flags, const std::string& url,
                const std::string& output, const std::string& log) {
  std::string command = "timeout 120 '" + browser +
                        "' --headless --no-sandbox --disable-gpu --hide-scrollbars "
                        "--force-device-scale-factor=1 --no-first-run " +
                        flags + " 'file://" + url + "' >" + output + " 2>" + log;
  if (std::system(command.c_str()) != 0) {
    std::ifstream in(log);
    std::stringstream text;
    text << in.rdbuf();
    throw std::runtime_error("the browser failed: " + command + "\n" + text.str());
  }
}

}  // namespace

Image Sheet::shoot(const std::string& browser, const ScratchDir& dir) {
  int width = 1, height = 0;
  std::string page =
      "<!DOCTYPE html><html><head><style>html,body{margin:0;background:#fff}"
      "img,iframe{position:absolute;left:0;display:block;border:0}</style></head><body>";
  for (auto& entry : entries) {
    entry.top = height;
    // Pages go in frames of their own, drawings in images.
    bool isPage = entry.file.ends_with(".html");
    page += std::string(isPage ? "<iframe" : "<img") + " src=\"" + entry.file +
            "\" style=\"top:" + std::to_string(entry.top) +
            "px;width:" + std::to_string(entry.width) +
            "px;height:" + std::to_string(entry.height) + "px\">" + (isPage ? "</iframe>" : "");
    width = std::max(width, entry.width);
    height += entry.height + 10;
  }
  page += "</body></html>";
  dir.write("sheet.html", page);
  runBrowser(browser,
             "--screenshot=" + dir.file("sheet.png") + " --window-size=" + std::to_string(width) +
                 "," + std::to_string(std::max(height, 1)),
             dir.file("sheet.html"), "/dev/null", dir.file("browser.log"));
  return readPng(dir.file("sheet.png"));
}

std::string dumpDom(const std::string& browser, const std::string& file) {
  std::string output = file + ".dom";
  runBrowser(browser, "--dump-dom", file, output, file + ".log");
  std::ifstream in(output);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace orvane::test
