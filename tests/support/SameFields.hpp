// Structural comparison of decoded values, field by field, through the listing that every record
// gives of itself (visitFields): the same listing that `dump` prints.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/internal/JsonWriter.hpp>

namespace orvane::test {

/// Every field of `value`, nested records and derived values included, as compact text. Numbers
/// are in their shortest round-trip form, so two values list the same text exactly when they
/// are equal field by field (-0 and 0 differ).
template <class T>
std::string fieldsOf(const T& value) {
  std::string out;
  {
    JsonWriter writer(out);
    JsonFieldWriter fields(writer);
    describe(fields, value);
  }
  return out;
}

/// The path of the field at `offset` in a listing: keys joined by `.`, elements as `[N]`.
inline std::string pathAt(std::string_view listing, std::size_t offset) {
  struct Level {
    bool object;
    std::string key;
    std::size_t index = 0;
  };
  std::vector<Level> levels;
  bool expectKey = false;
  for (std::size_t i = 0; i < listing.size() && i < offset; ++i) {
    char c = listing[i];
    if (c == '"') {
      std::size_t start = ++i;
      while (i < listing.size() && listing[i] != '"') i += listing[i] == '\\' ? 2 : 1;
      if (expectKey && !levels.empty()) levels.back().key = listing.substr(start, i - start);
      expectKey = false;
    } else if (c == '{' || c == '[') {
      levels.push_back({c == '{', {}, 0});
      expectKey = c == '{';
    } else if (c == '}' || c == ']') {
      if (!levels.empty()) levels.pop_back();
    } else if (c == ',' && !levels.empty()) {
      if (levels.back().object)
        expectKey = true;
      else
        ++levels.back().index;
    }
  }
  std::string path;
  for (const auto& level : levels) {
    if (level.object) {
      if (!path.empty()) path += '.';
      path += level.key;
    } else {
      path += "[" + std::to_string(level.index) + "]";
    }
  }
  return path.empty() ? "<root>" : path;
}

/// Whether two listings are the same; when not, says at which field and what each holds there.
inline ::testing::AssertionResult sameFields(std::string_view expected, std::string_view actual) {
  if (expected == actual) return ::testing::AssertionSuccess();
  auto first = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end()).first;
  auto at = static_cast<std::size_t>(first - expected.begin());
  auto excerpt = [at](std::string_view text) {
    return std::string(text.substr(at >= 20 ? at - 20 : 0, 60));
  };
  return ::testing::AssertionFailure()
         << "fields differ at " << pathAt(expected, at) << ": expected ..." << excerpt(expected)
         << "..., got ..." << excerpt(actual) << "...";
}

}  // namespace orvane::test
