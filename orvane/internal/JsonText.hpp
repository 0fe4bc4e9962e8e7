// Scans of JSON text that the parser's tape cannot answer (internal): where a document stops
// being JSON, where the value at a coding path starts, and which numbers are beyond what a
// 64-bit integer or a double holds. None of this runs while a document decodes; only when
// something went wrong. Every scan takes arbitrary bytes, reads nothing past the text and
// nests no deeper than the text does, without recursion.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include <orvane/coding/CodingError.hpp>

namespace orvane {

/// A number that the grammar allows but the parser refuses: an integer beyond 64 bits, or a
/// number beyond the double range.
struct OutOfRangeNumber {
  std::size_t offset = 0;
  std::size_t length = 0;
  /// Its place among the document's scalars (keys, strings, numbers, literals) in text order.
  std::size_t ordinal = 0;
  /// Correctly rounded; infinite when beyond the double range.
  double value = 0;
};

struct JsonTextScan {
  /// The first byte at which the text stops being JSON: no text that starts with the bytes
  /// before it and this one is JSON. The text's size when it is JSON so far but ends too early.
  std::optional<std::size_t> invalidAt;
  /// In text order; only those before `invalidAt`.
  std::vector<OutOfRangeNumber> outOfRange;
};

/// Validates `text` as one JSON document nested at most `maxDepth` arrays and objects deep
/// (empty ones aside, as the parser counts): structure, strings and their escapes (surrogates
/// in pairs), numbers, literals, UTF-8.
JsonTextScan scanJsonText(std::string_view text, std::size_t maxDepth);

/// Where the value at `path` starts in `text`: keys name object members (the last one, where a
/// key repeats), indices array elements. None when the path cannot be followed.
std::optional<std::size_t> findJsonValue(std::string_view text, const CodingPath& path);

/// The line (1-based, after each '\n') and column (1-based, in bytes) of `offset`, which may be
/// the text's size.
TextLocation textLocation(std::string_view text, std::size_t offset);

}  // namespace orvane
