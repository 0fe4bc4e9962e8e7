// orvane: decode, check and look into the service's documents from the command line.
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <new>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <orvane/version.hpp>

#include "Command.hpp"
#include "Handoff.hpp"
#include "Output.hpp"
#include "Report.hpp"
#include "Suggest.hpp"
#include "Types.hpp"
#include "Viewer.hpp"

namespace {

using namespace orvane;
using namespace orvane::tool;

int runDocumentCommand(const Request& request, bool dump, Output& out) {
  const TypeEntry* type = lookUpType(request.type);
  if (!type) return kUsage;
  if (!dump && !request.document && !type->decode) {
    return usageError(request.type +
                      " is decode-only: it has no encoding to print (--document prints its "
                      "document form)");
  }
  WarningLines warnings;
  Settings settings = settingsFor(request, request.warnings ? &warnings : nullptr);

  try {
    std::vector<char> buffer;
    std::size_t size = 0;
    std::string reason;
    if (!readInput(request.file, buffer, size, reason)) {
      return usageError("cannot read " + inputName(request.file) + ": " + reason);
    }
    JsonDecoder decoder(settings.decoding);
    OutputSink sink(out);
    // Once decoded, the text and the parser's buffers go before the output is made.
    const Conversion run{decoder, std::string_view(buffer.data(), size), settings, sink, [&] {
                           decoder.releaseBuffers();
                           std::vector<char>().swap(buffer);
                         }};
    if (dump)
      type->dump(run);
    else if (request.document)
      type->document(run, nullptr);
    else
      type->decode(run);
    out.write("\n");
    printWarnings(warnings, "");
    return 0;
  } catch (const DecodingError& e) {
    if (request.jsonErrors) out.write(errorJson(e) + '\n');
    std::cerr << "error: " << oneLine(e.what()) << '\n';
    return kDecodingFailed;
  } catch (const EncodingError& e) {
    std::cerr << "error: " << oneLine(e.what()) << '\n';
    return kDecodingFailed;
  } catch (const std::bad_alloc&) {
    std::cerr << "error: out of memory\n";
    return kDecodingFailed;
  }
}

int runCheck(const Request& request, Output& out) {
  const TypeEntry* type = lookUpType(request.type);
  if (!type) return kUsage;
  WarningLines warnings;
  Settings settings = settingsFor(request, request.warnings ? &warnings : nullptr);
  std::vector<char> buffer;
  // Shared by the files, so that each reuses the parser's buffers and record chunks; let go,
  // like the buffer, when memory runs out.
  std::optional<JsonDecoder> decoder;
  int status = 0;
  for (const auto& file : request.files) {
    if (!out.ok()) break;  // nothing more can be reported
    warnings.clear();
    std::string line;
    bool decoded = false;
    try {
      std::size_t size = 0;
      std::string reason;
      if (!readInput(file, buffer, size, reason)) {
        line = checkLine(file, request.jsonErrors, FileFailure{"unreadable", reason});
      } else {
        if (!decoder) decoder.emplace(settings.decoding);
        type->check(*decoder, std::string_view(buffer.data(), size), settings);
        decoded = true;
        line = checkLine(file, request.jsonErrors);
        printWarnings(warnings, oneLine(file) + ": ");
      }
    } catch (const DecodingError& e) {
      line = checkLine(file, request.jsonErrors, e);
    } catch (const std::bad_alloc&) {
      buffer = {};
      decoder.reset();
      decoded = false;
      line = checkLine(file, request.jsonErrors,
                       FileFailure{"outOfMemory", "the document does not fit in memory"});
    }
    if (!decoded) status = kDecodingFailed;
    out.write(line + '\n');
  }
  return status;
}

int runSchema(const Request& request, Output& out) {
  const TypeEntry* type = lookUpType(request.type);
  if (!type) return kUsage;
  JsonSchemaOptions options = schemaOptions();
  options.dates = settingsFor(request, nullptr).decoding.dates;
  options.documentForm = request.document;
  options.pretty = request.pretty;
  out.write(type->schema(options) + '\n');
  return 0;
}

int run(int argc, char** argv, Output& out) {
  CLI::App app{"Decode, check and look into documents of the service."};
  app.name("orvane");
  app.require_subcommand(1);
  app.set_version_flag("--version", std::string("orvane ") + ORVANE_VERSION_STRING,
                       "Print the version and exit");
  app.footer(
      "Exit status: 0 on success, 1 when a document does not decode, 2 for a usage error, 3 when "
      "the output cannot be written.");

  Request decodeRequest, dumpRequest, checkRequest, schemaRequest;
  auto* decode =
      app.add_subcommand("decode", "Decode a document as TYPE and print what it writes back");
  addDocumentOptions(*decode, decodeRequest, false);
  decode->add_flag("--document", decodeRequest.document,
                   "Print the document form instead: every member that decoding reads, so that "
                   "the output decodes again as TYPE into the same values");
  decode->footer(
      "Prints one line of compact JSON (indented with --pretty): what the record's encoding "
      "writes back to the service, or with --document the document form, which decode-only "
      "TYPEs have too. What the document form loses: members the model does not read, values "
      "that a tolerant key dropped (--warnings names them) and a screen replaced by a later one "
      "with its identifier. Exit status: 0 on success, 1 when the document does not decode, 2 "
      "for a usage error or a decode-only TYPE without --document, 3 when the output cannot be "
      "written.");
  auto* dump =
      app.add_subcommand("dump", "Decode a document as TYPE and print every field it holds");
  addDocumentOptions(*dump, dumpRequest, false);
  dump->footer(
      "Prints one JSON value with a member per stored field. Exit status: 0 on success, 1 when "
      "the document does not decode, 2 for a usage error, 3 when the output cannot be written.");
  auto* check = app.add_subcommand("check", "Decode each FILE as TYPE; one status line per file");
  addDocumentOptions(*check, checkRequest, true);
  check->footer(
      "Prints `FILE: ok` or `FILE: ` and the error, one line per file in order. Exit status: 0 "
      "when every file decodes, 1 when any does not (an unreadable file counts), 2 for a usage "
      "error, 3 when the output cannot be written.");
  auto* types = app.add_subcommand("types", "List every TYPE name, one a line");
  auto* schema = app.add_subcommand(
      "schema", "Print the JSON Schema (draft 2020-12) of the documents that decode as TYPE");
  schema->add_option("TYPE", schemaRequest.type, "The record's qualified name (see `orvane types`)")
      ->required();
  schema->add_flag("--document", schemaRequest.document,
                   "The schema of the document form (what decode --document prints) instead");
  schema->add_option("--dates", schemaRequest.dates, "Date strategy of the documents")
      ->check(CLI::IsMember({"iso8601", "seconds", "milliseconds", "deferred"}));
  schema->add_flag("--pretty", schemaRequest.pretty, "Indent the output by two spaces");
  schema->footer(
      "Prints one line of compact JSON (indented with --pretty): the record's own schema at the "
      "root, the records and enumerations it holds under $defs by TYPE name. Every property "
      "says how it is read and which field it fills; unknown members are allowed, as decoding "
      "ignores them, and a tolerant member constrains nothing. Exit status: 0 on success, 2 for "
      "a usage error, 3 when the output cannot be written.");

  HandoffCommands handoff(app);
  ViewerCommands viewer(app);

  // A mistyped command would reach the parser as a stray argument; name it, and what was meant.
  if (argc > 1 && argv[1][0] != '-') {
    std::string typed = argv[1];
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](CLI::App*) { return true; })) {
      names.push_back(command->get_name());
    }
    if (std::find(names.begin(), names.end(), typed) == names.end()) {
      std::vector<std::string_view> views(names.begin(), names.end());
      std::vector<std::string_view> close = closestNames(typed, views);
      std::string hint;
      for (std::size_t i = 0; i < close.size(); ++i) {
        hint += (i == 0 ? "; did you mean " : i + 1 == close.size() ? " or " : ", ");
        hint += close[i];
      }
      return usageError("unknown command " + typed + (hint.empty() ? "" : hint + "?"));
    }
  }

  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& e) {
    // --help or --version: their text is output like any other.
    std::ostringstream text, errors;
    int status = app.exit(e, text, errors);
    out.write(text.str());
    std::cerr << errors.str();
    return status;
  } catch (const CLI::ParseError& e) {
    return usageError(e.what());
  }

  if (types->parsed()) {
    std::string list;
    for (const auto& type : registeredTypes()) {
      list += type.name;
      list += '\n';
    }
    out.write(list);
    return 0;
  }
  if (check->parsed()) return runCheck(checkRequest, out);
  if (schema->parsed()) return runSchema(schemaRequest, out);
  if (auto status = handoff.run(out)) return *status;
  if (auto status = viewer.run(out)) return *status;
  if (decode->parsed()) return runDocumentCommand(decodeRequest, false, out);
  return runDocumentCommand(dumpRequest, true, out);
}

}  // namespace

int main(int argc, char** argv) {
  // A reader that went away is a write error to report, not a signal that ends the tool.
  std::signal(SIGPIPE, SIG_IGN);
  // Standard error must not flush standard output as it prints: a failed write would then be
  // seen first by the stream, which keeps no reason, instead of by `out`.
  std::cerr.tie(nullptr);
  Output out;
  int status = run(argc, argv, out);
  if (int error = out.close()) {
    std::cerr << "error: cannot write output: " << std::strerror(error) << '\n';
    return kWriteFailed;
  }
  return status;
}
