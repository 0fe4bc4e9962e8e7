// orvane: decode, check and look into the service's documents from the command line.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "Types.hpp"

namespace {

using namespace orvane;
using namespace orvane::tool;

constexpr int kDecodingFailed = 1;
constexpr int kUsage = 2;

int usageError(const std::string& reason) {
  std::cerr << "orvane: " << reason << "\nRun with --help for more information.\n";
  return kUsage;
}

// Reads the whole input into a buffer followed by the padding the parser needs.
bool readInput(const std::string& file, std::vector<char>& buffer, std::size_t& size,
               std::string& error) {
  std::FILE* in = stdin;
  if (!file.empty() && file != "-") {
    in = std::fopen(file.c_str(), "rb");
    if (!in) {
      error = "cannot read " + file + ": " + std::strerror(errno);
      return false;
    }
  }
  size = 0;
  buffer.resize(1 << 16);
  for (;;) {
    if (buffer.size() - size < JsonDecoder::kPadding + 4096) buffer.resize(buffer.size() * 2);
    std::size_t n =
        std::fread(buffer.data() + size, 1, buffer.size() - size - JsonDecoder::kPadding, in);
    size += n;
    if (n == 0) break;
  }
  bool failed = std::ferror(in);
  if (in != stdin) std::fclose(in);
  if (failed) {
    error = "cannot read " + (file.empty() ? std::string("standard input") : file);
    return false;
  }
  return true;
}

std::string errorJson(const DecodingError& e) {
  std::string out;
  JsonWriter w(out);
  w.beginObject();
  w.key("error");
  w.beginObject();
  w.key("kind");
  w.string(kindName(e.kind()));
  w.key("codingPath");
  w.beginArray();
  for (const auto& entry : e.codingPath()) {
    if (entry.isIndex())
      w.integer(static_cast<std::int64_t>(*entry.intValue()));
    else
      w.string(entry.stringValue());
  }
  w.endArray();
  w.key("key");
  if (e.key())
    w.string(*e.key());
  else
    w.null();
  w.key("description");
  w.string(e.description());
  w.endObject();
  w.endObject();
  return out;
}

struct Request {
  std::string type;
  std::string file;
  bool importSource = false;
  std::string dates = "iso8601";
  bool jsonErrors = false;
  bool pretty = false;
};

void addDocumentOptions(CLI::App& command, Request& request) {
  command.add_option("TYPE", request.type, "The record's qualified name (see `orvane types`)")
      ->required();
  command.add_option("FILE", request.file, "The document; standard input when absent or -");
  command.add_flag("--import-source", request.importSource,
                   "Decode as a document from an import source (fromImportSource = true)");
  command.add_option("--dates", request.dates, "Date strategy for reading and writing")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  command.add_flag("--json-errors", request.jsonErrors,
                   "On a decoding failure, print the error as JSON on standard output");
  command.add_flag("--pretty", request.pretty, "Indent the output by two spaces");
}

int runDocumentCommand(const Request& request, bool dump) {
  const TypeEntry* type = findType(request.type);
  if (!type) return usageError("unknown TYPE: " + request.type);
  if (!dump && !type->decode) {
    return usageError(request.type + " is decode-only: it has no encoding to print");
  }

  Settings settings;
  DateStrategy dates = request.dates == "seconds"        ? DateStrategy::seconds
                       : request.dates == "milliseconds" ? DateStrategy::milliseconds
                       : request.dates == "deferred"     ? DateStrategy::deferred
                                                         : DateStrategy::iso8601;
  settings.decoding.dates = dates;
  settings.encoding.dates = dates;
  settings.encoding.pretty = request.pretty;
  if (request.importSource) {
    settings.decoding.userInfo[CodingUserInfoKey::fromImportSource()] = true;
  }

  std::vector<char> buffer;
  std::size_t size = 0;
  std::string readError;
  if (!readInput(request.file, buffer, size, readError)) return usageError(readError);

  try {
    std::string_view json(buffer.data(), size);
    std::string out = dump ? type->dump(json, settings) : type->decode(json, settings);
    out += '\n';
    std::fwrite(out.data(), 1, out.size(), stdout);
    return 0;
  } catch (const DecodingError& e) {
    if (request.jsonErrors) std::cout << errorJson(e) << '\n';
    std::cerr << "error: " << e.what() << '\n';
    return kDecodingFailed;
  } catch (const EncodingError& e) {
    std::cerr << "error: " << e.what() << '\n';
    return kDecodingFailed;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Decode, check and look into documents of the service."};
  app.name("orvane");
  app.require_subcommand(1);

  Request decodeRequest, dumpRequest;
  auto* decode =
      app.add_subcommand("decode", "Decode a document as TYPE and print what it writes back");
  addDocumentOptions(*decode, decodeRequest);
  auto* dump =
      app.add_subcommand("dump", "Decode a document as TYPE and print every field it holds");
  addDocumentOptions(*dump, dumpRequest);
  auto* types = app.add_subcommand("types", "List every TYPE name, one a line");

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    return usageError(e.what());
  }

  if (types->parsed()) {
    for (const auto& type : registeredTypes()) std::cout << type.name << '\n';
    return 0;
  }
  if (decode->parsed()) return runDocumentCommand(decodeRequest, false);
  return runDocumentCommand(dumpRequest, true);
}
