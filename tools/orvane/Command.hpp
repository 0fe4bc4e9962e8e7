// What every command of the tool shares: exit statuses, reading the input, the document
// options and the decoder settings they make.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <CLI/CLI.hpp>

#include "Report.hpp"
#include "Types.hpp"

namespace orvane::tool {

constexpr int kDecodingFailed = 1;
constexpr int kUsage = 2;
constexpr int kWriteFailed = 3;

/// Reports a usage error on standard error (with the hint to --help) and returns kUsage.
int usageError(const std::string& reason);

/// Reads the whole input into a buffer followed by the padding the parser needs. On failure,
/// returns false with the system's reason in `error`.
bool readInput(const std::string& file, std::vector<char>& buffer, std::size_t& size,
               std::string& error);

/// "standard input" for no file or `-`, else the file's name.
std::string inputName(const std::string& file);

/// A command's document and how to decode it.
struct Request {
  std::string type;
  std::string file;                // decode and dump
  std::vector<std::string> files;  // check
  bool importSource = false;
  std::string dates = "iso8601";
  bool jsonErrors = false;
  bool pretty = false;
  bool warnings = false;
  bool document = false;  // decode: the document form; schema: the document form's schema
};

/// TYPE, FILE (or FILE... for `manyFiles`) and the decoding options.
void addDocumentOptions(CLI::App& command, Request& request, bool manyFiles);

/// The TYPE's entry, or null with the usage error already reported.
const TypeEntry* lookUpType(const std::string& name);

/// The decoder's and encoder's settings the request asks for; `warnings` observes what
/// tolerant keys drop, when given.
Settings settingsFor(const Request& request, WarningLines* warnings);

/// Each warning line on standard error, after `prefix`.
void printWarnings(const WarningLines& warnings, std::string_view prefix);

}  // namespace orvane::tool
