#include <orvane/values/Identifier.hpp>

#include <cstdint>
#include <cstdlib>
#include <random>

#include <orvane/values/CanonicalText.hpp>

namespace orvane {

// Nothing is worked out up front: identifiers are decoded by the thousand and nearly all are
// ASCII, which compares and hashes as bytes.
void Identifier::assign(std::string_view raw) {
  if (raw.size() <= inlineCapacity) {
    if (!raw.empty()) std::memcpy(bytes_, raw.data(), raw.size());
    bytes_[inlineCapacity] = static_cast<char>(raw.size());
    return;
  }
  char* data = new char[raw.size()];
  std::memcpy(data, raw.data(), raw.size());
  std::size_t size = raw.size();
  std::memcpy(bytes_, &data, sizeof data);
  std::memcpy(bytes_ + sizeof data, &size, sizeof size);
  bytes_[inlineCapacity] = static_cast<char>(heapTag);
}

Identifier Identifier::local() {
  // One engine per thread: local identifiers are made by the thousand when an imported document
  // is decoded, and a system call for each would dominate.
  thread_local std::mt19937_64 engine{[] {
    std::random_device device;
    std::seed_seq seq{device(), device(), device(), device()};
    return std::mt19937_64(seq);
  }()};
  std::uint64_t hi = engine(), lo = engine();
  hi = (hi & ~0xF000ull) | 0x4000ull;              // version 4
  lo = (lo & ~(0xC0ull << 56)) | (0x80ull << 56);  // RFC 4122 variant
  static constexpr char hex[] = "0123456789ABCDEF";
  char text[42] = {'M', 'A', 'C', 'O', 'S', '-'};
  std::size_t at = 6;
  auto put = [&](std::uint64_t v, int nibbles) {
    for (int i = nibbles - 1; i >= 0; --i) text[at++] = hex[(v >> (4 * i)) & 0xF];
  };
  put(hi >> 32, 8);
  text[at++] = '-';
  put(hi >> 16, 4);
  text[at++] = '-';
  put(hi, 4);
  text[at++] = '-';
  put(lo >> 48, 4);
  text[at++] = '-';
  put(lo, 12);
  return Identifier(std::string_view(text, at));
}

bool Identifier::canonicallyEqual(std::string_view a, std::string_view b) {
  return canonicallyEquivalent(a, b);
}

std::size_t Identifier::hash() const {
  return canonicalHash(rawValue());
}

}  // namespace orvane
