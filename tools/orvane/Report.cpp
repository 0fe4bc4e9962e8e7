#include "Report.hpp"

#include <cstdint>
#include <optional>

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

namespace {

// The members that every error object starts with, so that a reader needs no second shape.
void writeErrorMembers(JsonWriter& w, std::string_view kind, const CodingPath& codingPath,
                       const std::optional<std::string>& key, std::string_view description) {
  w.key("kind");
  w.string(kind);
  w.key("codingPath");
  w.beginArray();
  for (const auto& entry : codingPath) {
    if (entry.isIndex())
      w.integer(static_cast<std::int64_t>(*entry.intValue()));
    else
      w.string(entry.stringValue());
  }
  w.endArray();
  w.key("key");
  if (key)
    w.string(*key);
  else
    w.null();
  w.key("description");
  w.string(description);
}

}  // namespace

void writeErrorObject(JsonWriter& w, const DecodingError& e) {
  w.beginObject();
  writeErrorMembers(w, kindName(e.kind()), e.codingPath(), e.key(), e.description());
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
  return jsonLine(file, [&](JsonWriter& w) {
    w.key("error");
    w.beginObject();
    writeErrorMembers(w, failure.kind, {}, std::nullopt, failure.description);
    w.endObject();
  });
}

void WarningLines::dropped(const CodingPath& path, const std::string& reason) {
  lines_.push_back(oneLine("warning: dropped at " + formatCodingPath(path) + ": " + reason));
}

}  // namespace orvane::tool
