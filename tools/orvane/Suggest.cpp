#include "Suggest.hpp"

#include <algorithm>
#include <limits>

namespace orvane::tool {

namespace {

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::size_t editDistance(std::string_view a, std::string_view b) {
  // Three rows of the usual table: a swap looks two rows back.
  const std::size_t n = b.size();
  std::vector<std::size_t> before(n + 1), previous(n + 1), current(n + 1);
  for (std::size_t j = 0; j <= n; ++j) previous[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    current[0] = i;
    for (std::size_t j = 1; j <= n; ++j) {
      bool same = lower(a[i - 1]) == lower(b[j - 1]);
      current[j] = std::min({previous[j] + 1, current[j - 1] + 1, previous[j - 1] + !same});
      if (i > 1 && j > 1 && lower(a[i - 1]) == lower(b[j - 2]) &&
          lower(a[i - 2]) == lower(b[j - 1])) {
        current[j] = std::min(current[j], before[j - 2] + 1);
      }
    }
    std::swap(before, previous);
    std::swap(previous, current);
  }
  return previous[n];
}

std::vector<std::string_view> closestNames(std::string_view name,
                                           std::span<const std::string_view> names) {
  const std::size_t limit = std::max<std::size_t>(1, name.size() / 3);
  std::size_t best = std::numeric_limits<std::size_t>::max();
  std::vector<std::string_view> found;
  for (std::string_view candidate : names) {
    std::size_t distance = editDistance(name, candidate);
    for (std::size_t dot = candidate.find('.'); dot != std::string_view::npos;
         dot = candidate.find('.', dot + 1)) {
      distance = std::min(distance, editDistance(name, candidate.substr(dot + 1)));
    }
    if (distance > limit || distance > best) continue;
    if (distance < best) {
      best = distance;
      found.clear();
    }
    if (found.size() < 3) found.push_back(candidate);
  }
  return found;
}

std::string didYouMean(const std::vector<std::string_view>& suggestions) {
  if (suggestions.empty()) return {};
  std::string text = " (did you mean ";
  for (std::size_t i = 0; i < suggestions.size(); ++i) {
    if (i > 0) text += i + 1 == suggestions.size() ? " or " : ", ";
    text += suggestions[i];
  }
  return text + "?)";
}

}  // namespace orvane::tool
