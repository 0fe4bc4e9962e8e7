#include <orvane/values/CanonicalText.hpp>

#include <cstdlib>
#include <optional>
#include <string>

#include <utf8proc.h>

namespace orvane {

namespace {

bool isAscii(std::string_view s) {
  for (unsigned char c : s) {
    if (c & 0x80) return false;
  }
  return true;
}

std::optional<std::string> nfc(std::string_view s) {
  utf8proc_uint8_t* out = nullptr;
  utf8proc_ssize_t n = utf8proc_map(
      reinterpret_cast<const utf8proc_uint8_t*>(s.data()), static_cast<utf8proc_ssize_t>(s.size()),
      &out, static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE));
  if (n < 0) return std::nullopt;
  std::string result(reinterpret_cast<char*>(out), static_cast<std::size_t>(n));
  std::free(out);
  return result;
}

}  // namespace

bool canonicallyEquivalent(std::string_view a, std::string_view b) {
  if (a == b) return true;
  // Two different ASCII strings are never equivalent; only composed characters can be.
  if (isAscii(a) && isAscii(b)) return false;
  auto na = nfc(a), nb = nfc(b);
  if (!na || !nb) return false;
  return *na == *nb;
}

// ASCII is its own normal form, and nearly all text is ASCII: hashed as bytes without a copy.
std::size_t canonicalHash(std::string_view text) {
  if (isAscii(text)) return std::hash<std::string_view>{}(text);
  auto normal = nfc(text);
  return std::hash<std::string_view>{}(normal ? std::string_view(*normal) : text);
}

}  // namespace orvane
