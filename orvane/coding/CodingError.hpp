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
  /// The entry of a member `name`.
  static CodingPathEntry key(std::string name) { return CodingPathEntry(std::move(name), npos); }
  /// The entry of the element at `i` of an array, counted from 0.
  static CodingPathEntry index(std::size_t i) { return CodingPathEntry({}, i); }

  /// True for an array element, false for a member key.
  bool isIndex() const { return index_ != npos; }
  /// The key's string; empty for an index.
  const std::string& stringValue() const { return key_; }
  /// The element's index, if this entry is one.
  std::optional<std::size_t> intValue() const {
    return isIndex() ? std::optional<std::size_t>(index_) : std::nullopt;
  }
  /// Equal when both are the same key, or both the same index.
  bool operator==(const CodingPathEntry&) const = default;

 private:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  CodingPathEntry(std::string k, std::size_t i) : key_(std::move(k)), index_(i) {}
  std::string key_;
  std::size_t index_;
};

/// The steps from the document's root to a value, outermost first; empty for the root itself.
using CodingPath = std::vector<CodingPathEntry>;

/// Renders a path as `layers[2].rect`, or `<root>` when it is empty.
std::string formatCodingPath(const CodingPath& path);

/// A link of a coding path as the coders carry it: it lives on the stack of the call that
/// descended into a value, so descending costs nothing until an error needs the whole path.
struct CodingPathLink {
  /// The link of the enclosing value; null at the root's children.
  const CodingPathLink* parent = nullptr;
  /// The member's key, when `isIndex` is false. A view: the key's text must outlive the link.
  std::string_view key;
  /// The element's index, when `isIndex` is true.
  std::size_t index = 0;
  /// Whether this step is an array element rather than a member.
  bool isIndex = false;

  /// The whole path from the root to `link` (null for the root itself).
  static CodingPath materialize(const CodingPathLink* link);
};

/// Where in a document's text something is: 1-based line, and column counted in bytes.
struct TextLocation {
  /// 1 for the first line; lines end at each line feed.
  std::size_t line = 1;
  /// 1 for the line's first byte; a multi-byte character counts each of its bytes.
  std::size_t column = 1;
  /// Equal when both line and column are.
  bool operator==(const TextLocation&) const = default;
};

/// The error raised when a document does not decode as the requested type.
class DecodingError : public std::exception {
 public:
  /// What went wrong. The library itself raises only `dataCorrupted` (unknown enumeration
  /// strings, refused single values, a picker default that is none of its options); the others
  /// come from the coder's reads.
  enum class Kind : std::uint8_t {
    keyNotFound,    ///< a required key is absent
    valueNotFound,  ///< a required value is null, or an array has no further element
    typeMismatch,   ///< the value is of another kind than the one read
    dataCorrupted,  ///< the value is of the right kind but unusable, or the text is no document
  };

  /// `key` is the missing key, for keyNotFound only; `underlying` the error that caused this
  /// one. `what()` is composed here, and again by each setter below.
  DecodingError(Kind kind, CodingPath codingPath, std::string description,
                std::optional<std::string> key = std::nullopt,
                std::exception_ptr underlying = nullptr);

  /// The error that a record raises for a value it refuses, at the path `path` leads to.
  static DecodingError dataCorrupted(const CodingPathLink* path, std::string description) {
    return DecodingError(Kind::dataCorrupted, CodingPathLink::materialize(path),
                         std::move(description));
  }

  /// Which of the four failures this is.
  Kind kind() const { return kind_; }
  /// For keyNotFound, the path of the container in which the key was missing; otherwise the
  /// path of the value that failed.
  const CodingPath& codingPath() const { return codingPath_; }
  /// The missing key, for keyNotFound only.
  const std::optional<std::string>& key() const { return key_; }
  /// What failed, without path or location ("Cannot initialize Kind from invalid String value
  /// blurry"); a tolerant key reports this text for a value it dropped.
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

/// The case's name as `what()` spells it: "keyNotFound", "valueNotFound", ...
std::string_view kindName(DecodingError::Kind kind);

/// The error raised when a value cannot be written (a non-finite number).
class EncodingError : public std::runtime_error {
 public:
  /// `what()` is "invalidValue at <path>: <description>".
  EncodingError(CodingPath codingPath, std::string description);
  /// The path of the value that could not be written.
  const CodingPath& codingPath() const { return codingPath_; }
  /// Why, without the path.
  const std::string& description() const { return description_; }

 private:
  CodingPath codingPath_;
  std::string description_;
};

}  // namespace orvane
