#include "Report.hpp"

#include <cstdint>

namespace orvane::tool {

std::string oneLine(std::string_view text) {
  std::string line;
  line.reserve(text.size());
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x20) {
      line += c;
      continue;
    }
    // The escapes of a JSON string, without its quotes.
    std::string escaped;
    appendJsonString(escaped, std::string_view(&c, 1));
    line.append(escaped, 1, escaped.size() - 2);
  }
  return line;
}

void writeErrorObject(JsonWriter& w, const DecodingError& e) {
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
  if (const auto& location = e.location()) {
    w.key("line");
    w.integer(static_cast<std::int64_t>(location->line));
    w.key("column");
    w.integer(static_cast<std::int64_t>(location->column));
  }
  if (const auto& reason = e.reason()) {
    w.key("reason");
    w.string(*reason);
  }
  w.endObject();
}

std::string errorJson(const DecodingError& error) {
  std::string out;
  JsonWriter w(out);
  w.beginObject();
  w.key("error");
  writeErrorObject(w, error);
  w.endObject();
  return out;
}

namespace {

// `{"file":FILE,"error":` and what `error` writes, then `}`.
template <class WriteError>
std::string jsonLine(std::string_view file, WriteError writeError) {
  std::string out;
  JsonWriter w(out);
  w.beginObject();
  w.key("file");
  w.string(file);
  writeError(w);
  w.endObject();
  return out;
}

}  // namespace

std::string checkLine(std::string_view file, bool json) {
  if (!json) return oneLine(file) + ": ok";
  return jsonLine(file, [](JsonWriter& w) {
    w.key("ok");
    w.boolean(true);
  });
}

std::string checkLine(std::string_view file, bool json, const DecodingError& error) {
  if (!json) return oneLine(std::string(file) + ": " + error.what());
  return jsonLine(file, [&](JsonWriter& w) {
    w.key("error");
    writeErrorObject(w, error);
  });
}

std::string checkLine(std::string_view file, bool json, const FileFailure& failure) {
  if (!json) return oneLine(std::string(file) + ": " + failure.kind + ": " + failure.description);
  // The members of every error object, so that a reader of the lines needs no second shape.
  return jsonLine(file, [&](JsonWriter& w) {
    w.key("error");
    w.beginObject();
    w.key("kind");
    w.string(failure.kind);
    w.key("codingPath");
    w.beginArray();
    w.endArray();
    w.key("key");
    w.null();
    w.key("description");
    w.string(failure.description);
    w.endObject();
  });
}

void WarningLines::dropped(const CodingPath& path, const std::string& reason) {
  lines_.push_back(oneLine("warning: dropped at " + formatCodingPath(path) + ": " + reason));
}

}  // namespace orvane::tool
