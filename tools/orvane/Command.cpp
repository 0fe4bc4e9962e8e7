#include "Command.hpp"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>

#include "Suggest.hpp"

namespace orvane::tool {

int usageError(const std::string& reason) {
  std::cerr << "orvane: " << oneLine(reason) << "\nRun with --help for more information.\n";
  return kUsage;
}

bool readInput(const std::string& file, std::vector<char>& buffer, std::size_t& size,
               std::string& error) {
  std::FILE* in = stdin;
  if (!file.empty() && file != "-") {
    in = std::fopen(file.c_str(), "rb");
    if (!in) {
      error = std::strerror(errno);
      return false;
    }
  }
  // A file is read into a buffer of its size, with one byte over to see its end without
  // growing; only a stream whose size is not known grows the buffer as it comes.
  struct stat status;
  const bool sized = ::fstat(::fileno(in), &status) == 0 && S_ISREG(status.st_mode) &&
                     status.st_size > 0;
  const std::size_t ahead = sized ? JsonDecoder::kPadding + 1 : JsonDecoder::kPadding + 4096;
  size = 0;
  if (sized) {
    buffer.resize(static_cast<std::size_t>(status.st_size) + ahead);
  } else if (buffer.size() < (1 << 16)) {
    buffer.resize(1 << 16);
  }
  errno = 0;
  for (;;) {
    if (buffer.size() - size < ahead) buffer.resize(buffer.size() * 2);
    std::size_t n =
        std::fread(buffer.data() + size, 1, buffer.size() - size - JsonDecoder::kPadding, in);
    size += n;
    if (n == 0) break;
  }
  bool failed = std::ferror(in);
  int reason = errno != 0 ? errno : EIO;
  if (in != stdin)
    std::fclose(in);
  else
    std::clearerr(in);
  if (failed) error = std::strerror(reason);
  return !failed;
}

std::string inputName(const std::string& file) {
  return file.empty() || file == "-" ? "standard input" : file;
}

void addDocumentOptions(CLI::App& command, Request& request, bool manyFiles) {
  command.add_option("TYPE", request.type, "The record's qualified name (see `orvane types`)")
      ->required();
  if (manyFiles) {
    command.add_option("FILE", request.files, "The documents; - for standard input")->required();
  } else {
    command.add_option("FILE", request.file, "The document; standard input when absent or -");
  }
  command.add_flag("--import-source", request.importSource,
                   "Decode as a document from an import source (fromImportSource = true)");
  command.add_option("--dates", request.dates, "Date strategy for reading and writing")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  command.add_flag("--json-errors", request.jsonErrors,
                   manyFiles ? "Print each file's line as a JSON object"
                             : "On a decoding failure, print the error as JSON on standard output");
  command.add_flag("--pretty", request.pretty,
                   manyFiles ? "Accepted as for decode; check prints no document"
                             : "Indent the output by two spaces");
  command.add_flag("--warnings", request.warnings,
                   "After a successful decode, list on standard error every value that a "
                   "tolerant key dropped");
}

const TypeEntry* lookUpType(const std::string& name) {
  if (const TypeEntry* type = findType(name)) return type;
  std::vector<std::string_view> names;
  for (const auto& type : registeredTypes()) names.push_back(type.name);
  usageError("unknown TYPE: " + name + didYouMean(closestNames(name, names)));
  return nullptr;
}

Settings settingsFor(const Request& request, WarningLines* warnings) {
  Settings settings;
  DateStrategy dates = request.dates == "seconds"        ? DateStrategy::seconds
                       : request.dates == "milliseconds" ? DateStrategy::milliseconds
                       : request.dates == "deferred"     ? DateStrategy::deferred
                                                         : DateStrategy::iso8601;
  settings.decoding.dates = dates;
  settings.encoding.dates = dates;
  settings.encoding.pretty = request.pretty;
  settings.decoding.warnings = warnings;
  if (request.importSource) {
    settings.decoding.userInfo[CodingUserInfoKey::fromImportSource()] = true;
  }
  return settings;
}

void printWarnings(const WarningLines& warnings, std::string_view prefix) {
  for (const auto& line : warnings.lines()) std::cerr << prefix << line << '\n';
}

}  // namespace orvane::tool
