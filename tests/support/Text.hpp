// Looking into text output without std::regex, whose GCC 12 headers do not build warning-free
// under the sanitizers.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane::test {

/// Whether `text` has `shape`'s form, character by character: `X` stands for an upper-case
/// hexadecimal digit, `x` for a lower-case one, anything else for itself.
inline bool fitsShape(std::string_view text, std::string_view shape) {
  if (text.size() != shape.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    bool digit = c >= '0' && c <= '9';
    if (shape[i] == 'X' ? !(digit || (c >= 'A' && c <= 'F'))
        : shape[i] == 'x' ? !(digit || (c >= 'a' && c <= 'f'))
                          : c != shape[i]) {
      return false;
    }
  }
  return true;
}

/// What follows each `prefix` in `text`, up to the first of `stops`.
inline std::vector<std::string> valuesAfter(std::string_view text, std::string_view prefix,
                                            std::string_view stops) {
  std::vector<std::string> out;
  for (std::size_t at = text.find(prefix); at != std::string_view::npos;
       at = text.find(prefix, at + 1)) {
    std::size_t start = at + prefix.size();
    std::size_t end = text.find_first_of(stops, start);
    out.emplace_back(text.substr(start, end == std::string_view::npos ? end : end - start));
  }
  return out;
}

}  // namespace orvane::test
