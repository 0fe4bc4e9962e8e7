// Coding paths and the errors that coders raise.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// One step of a coding path: a member key, or the index of an array element.
class CodingPathEntry {
 public:
  static CodingPathEntry key(std::string name) { return CodingPathEntry(std::move(name), npos); }
  static CodingPathEntry index(std::size_t i) { return CodingPathEntry({}, i); }

  bool isIndex() const { return index_ != npos; }
  /// The key's string; empty for an index.
  const std::string& stringValue() const { return key_; }
  /// The element's index, if this entry is one.
  std::optional<std::size_t> intValue() const {
    return isIndex() ? std::optional<std::size_t>(index_) : std::nullopt;
  }
  bool operator==(const CodingPathEntry&) const = default;

 private:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  CodingPathEntry(std::string k, std::size_t i) : key_(std::move(k)), index_(i) {}
  std::string key_;
  std::size_t index_;
};

using CodingPath = std::vector<CodingPathEntry>;

/// Renders a path as `layers[2].rect`, or `<root>` when it is empty.
std::string formatCodingPath(const CodingPath& path);

/// A link of a coding path as the coders carry it: it lives on the stack of the call that
/// descended into a value, so descending costs nothing until an error needs the whole path.
struct CodingPathLink {
  const CodingPathLink* parent = nullptr;
  std::string_view key;
  std::size_t index = 0;
  bool isIndex = false;

  /// The whole path from the root to `link` (null for the root itself).
  static CodingPath materialize(const CodingPathLink* link);
};

/// Where in a document's text something is: 1-based line, and column counted in bytes.
struct TextLocation {
  std::size_t line = 1;
  std::size_t column = 1;
  bool operator==(const TextLocation&) const = default;
};

/// The error raised when a document does not decode as the requested type.
class DecodingError : public std::exception {
 public:
  enum class Kind : std::uint8_t { keyNotFound, valueNotFound, typeMismatch, dataCorrupted };

  DecodingError(Kind kind, CodingPath codingPath, std::string description,
                std::optional<std::string> key = std::nullopt,
                std::exception_ptr underlying = nullptr);

  static DecodingError dataCorrupted(const CodingPathLink* path, std::string description) {
    return DecodingError(Kind::dataCorrupted, CodingPathLink::materialize(path),
                         std::move(description));
  }

  Kind kind() const { return kind_; }
  /// For keyNotFound, the path of the container in which the key was missing; otherwise the
  /// path of the value that failed.
  const CodingPath& codingPath() const { return codingPath_; }
  /// The missing key, for keyNotFound only.
  const std::optional<std::string>& key() const { return key_; }
  const std::string& description() const { return description_; }
  /// The error that caused this one (for example the parser's reason for invalid JSON).
  std::exception_ptr underlyingError() const { return underlying_; }
  /// Where the failure is in the document's text, when the coder could place it: the value at
  /// the coding path (for keyNotFound, the object that lacks the key), or for invalid JSON the
  /// first byte where the text stops being JSON.
  const std::optional<TextLocation>& location() const { return location_; }
  /// For invalid JSON, the parser's own reason.
  const std::optional<std::string>& reason() const { return reason_; }
  /// Places the error in the text; `what()` then ends with ` (line L, column C)`.
  void setLocation(std::optional<TextLocation> location);
  /// Adds the parser's reason; `what()` then carries it after the description, in parentheses.
  void setReason(std::optional<std::string> reason);
  /// Both of the above in one step.
  void setReasonAndLocation(std::optional<std::string> reason,
                            std::optional<TextLocation> location);
  /// `kind at path: description`, then ` (reason)` and ` (line L, column C)` when known.
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  Kind kind_;
  CodingPath codingPath_;
  std::optional<std::string> key_;
  std::string description_;
  std::exception_ptr underlying_;
  std::optional<TextLocation> location_;
  std::optional<std::string> reason_;
  std::string what_;

  void describe();
};

std::string_view kindName(DecodingError::Kind kind);

/// The error raised when a value cannot be written (a non-finite number).
class EncodingError : public std::runtime_error {
 public:
  EncodingError(CodingPath codingPath, std::string description);
  const CodingPath& codingPath() const { return codingPath_; }
  const std::string& description() const { return description_; }

 private:
  CodingPath codingPath_;
  std::string description_;
};

}  // namespace orvane
