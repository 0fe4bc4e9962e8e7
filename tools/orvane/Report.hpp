// How the tool reports what went wrong: error lines, the error JSON, the lines of `check`, and
// the values that decoding dropped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/CodingError.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/internal/JsonWriter.hpp>

namespace orvane::tool {

/// `text` on one line: control characters written as JSON escapes them (`\n`, `\u0001`), so that
/// a description quoting the document, or a file name, cannot break a line-oriented report.
std::string oneLine(std::string_view text);

/// The inner object of the error JSON: kind, codingPath, key and description, then line and
/// column when the error is placed in the text, then reason when the error has one.
void writeErrorObject(JsonWriter& writer, const DecodingError& error);

/// The error JSON of `decode` and `dump`: `{"error":{...}}`.
std::string errorJson(const DecodingError& error);

/// Why a file given to `check` could not even be decoded: it could not be read, or not held.
struct FileFailure {
  std::string kind;  // "unreadable" or "outOfMemory"
  std::string description;
};

/// A line of `check` for one file, without its newline: `FILE: ok`, `FILE: ` + the error, or
/// with `json` one JSON object, `{"file":FILE,"ok":true}` or `{"file":FILE,"error":{...}}`.
std::string checkLine(std::string_view file, bool json);
std::string checkLine(std::string_view file, bool json, const DecodingError& error);
std::string checkLine(std::string_view file, bool json, const FileFailure& failure);

/// Hears of the values a tolerant key dropped and keeps their lines,
/// `warning: dropped at PATH: REASON`, for after the decode (they are shown only if it succeeds).
class WarningLines final : public DecodingWarnings {
 public:
  void dropped(const CodingPath& path, const std::string& reason) override;
  const std::vector<std::string>& lines() const { return lines_; }
  void clear() { lines_.clear(); }

 private:
  std::vector<std::string> lines_;
};

}  // namespace orvane::tool
