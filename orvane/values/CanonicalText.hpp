// String comparison under Unicode canonical equivalence, where the model compares text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace orvane {

/// True when the two UTF-8 strings are canonically equivalent (equal in normalization form C).
/// ASCII text compares as bytes; text that is not valid UTF-8 compares as bytes too.
bool canonicallyEquivalent(std::string_view a, std::string_view b);

/// A hash that agrees with `canonicallyEquivalent`: equivalent strings hash alike.
std::size_t canonicalHash(std::string_view text);

/// `canonicalHash` as a function object, for unordered containers.
struct CanonicalHash {
  /// `canonicalHash(text)`.
  std::size_t operator()(std::string_view text) const { return canonicalHash(text); }
};
/// `canonicallyEquivalent` as a function object, for unordered containers.
struct CanonicalEqual {
  /// `canonicallyEquivalent(a, b)`.
  bool operator()(std::string_view a, std::string_view b) const {
    return canonicallyEquivalent(a, b);
  }
};

/// A set of strings in which canonically equivalent spellings are one member (the first
/// spelling inserted is kept).
using CanonicalStringSet = std::unordered_set<std::string, CanonicalHash, CanonicalEqual>;

}  // namespace orvane
