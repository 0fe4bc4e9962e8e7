// Names close to one that was mistyped, for "did you mean ...?".
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::tool {

/// The edit distance between `a` and `b`, ignoring ASCII case: insertions, deletions,
/// substitutions and swaps of two neighbouring characters count one each.
std::size_t editDistance(std::string_view a, std::string_view b);

/// Up to three of `names` (in their order) that are equally closest to `name`, or none when
/// nothing is close: within a third of the length of `name` (at least one edit). A qualified
/// name is also as close as its last parts are (`Alignment` finds `TextStyle.Alignment`).
std::vector<std::string_view> closestNames(std::string_view name,
                                           std::span<const std::string_view> names);

/// ` (did you mean A, B or C?)`, or nothing without suggestions.
std::string didYouMean(const std::vector<std::string_view>& suggestions);

}  // namespace orvane::tool
