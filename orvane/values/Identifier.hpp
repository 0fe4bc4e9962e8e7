// The identity of the records the service names.
#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/SingleValueCodable.hpp>

namespace orvane {

/// Wraps the string that the service assigns. Equality and hashing follow Unicode canonical
/// equivalence, so two spellings of one accented identifier are the same identifier; plain
/// ASCII identifiers (nearly all of them) compare as bytes with no extra work.
///
/// Storage: a decoded graph holds one or two identifiers per record, so they are kept inline.
/// Raw values of up to `inlineCapacity` bytes live in the object itself, which covers the
/// 24-character hexadecimal object ids and the 31-character source ids documents carry; longer
/// values (full UUID text, the 42-character local identifiers) take one heap block. The object
/// stays the size of a `std::string`, so records holding identifiers do not grow, and decoded
/// service documents make no allocation for their identifiers. A 48-byte object would hold
/// local identifiers too (imports make one per record), but adds to every service document
/// about what it saves an import, and those are decoded far more often. Any byte string is
/// kept exactly, the empty one and those with NUL bytes or invalid UTF-8 included.
class Identifier {
 public:
  /// How messages name the type ("Decoding Identifier from ... failed.").
  static constexpr std::string_view typeName = "Identifier";
  /// The longest raw value held without a heap block.
  static constexpr std::size_t inlineCapacity = 31;

  Identifier() noexcept : bytes_{} {}
  /// Accepts any string, the empty one included.
  explicit Identifier(std::string_view rawValue) : bytes_{} { assign(rawValue); }
  /// Never refuses: every string, the empty one included, is an identifier. Single-value coding
  /// reads identifiers through it.
  static std::optional<Identifier> fromRawValue(std::string_view rawValue) {
    return Identifier(rawValue);
  }

  /// Copies the value; a long one gets a heap block of its own.
  Identifier(const Identifier& other) : bytes_{} {
    if (other.isInline())
      std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    else
      assign(other.rawValue());
  }
  /// Leaves `other` empty (and valid).
  Identifier(Identifier&& other) noexcept {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    other.clear();
  }
  /// Copies the value, releasing the old one's heap block, if any.
  Identifier& operator=(const Identifier& other) {
    if (this != &other) *this = Identifier(other);
    return *this;
  }
  /// Takes over the value, releasing the old one's heap block, if any; leaves `other` empty.
  Identifier& operator=(Identifier&& other) noexcept {
    if (this != &other) {
      release();
      std::memcpy(bytes_, other.bytes_, sizeof bytes_);
      other.clear();
    }
    return *this;
  }
  ~Identifier() { release(); }

  /// A fresh local identifier: "MACOS-" and a random UUID's upper-case text (42 characters).
  static Identifier local();

  /// The raw value; valid while this identifier lives unchanged.
  std::string_view rawValue() const noexcept {
    if (isInline()) return {bytes_, tag()};
    return {heapData(), heapSize()};
  }
  /// The raw value, as debug output shows an identifier.
  std::string_view description() const noexcept { return rawValue(); }
  /// True when the raw value begins with "MACOS" (case-sensitive, hyphen not required).
  bool isLocal() const noexcept { return rawValue().starts_with("MACOS"); }

  /// Equal when the raw values are canonically equivalent; byte-equal values answer at once.
  bool operator==(const Identifier& other) const {
    // Inline values keep their unused bytes zero, so equal inline values are equal objects.
    if (isInline() && other.isInline()) {
      if (std::memcmp(bytes_, other.bytes_, sizeof bytes_) == 0) return true;
    } else if (rawValue() == other.rawValue()) {
      return true;
    }
    return canonicallyEqual(rawValue(), other.rawValue());
  }
  /// Agrees with `==`: canonically equivalent values hash alike.
  std::size_t hash() const;

 private:
  // Inline: the bytes of the value, zero padding, and its length in the last byte. Heap: a
  // pointer to the value and its length at the front, and `heapTag` in the last byte.
  static constexpr std::size_t storageBytes = inlineCapacity + 1;
  static constexpr unsigned char heapTag = 0xFF;
  static_assert(inlineCapacity < heapTag && storageBytes >= sizeof(char*) + sizeof(std::size_t));

  unsigned char tag() const noexcept { return static_cast<unsigned char>(bytes_[inlineCapacity]); }
  bool isInline() const noexcept { return tag() != heapTag; }
  const char* heapData() const noexcept {
    const char* p;
    std::memcpy(&p, bytes_, sizeof p);
    return p;
  }
  std::size_t heapSize() const noexcept {
    std::size_t n;
    std::memcpy(&n, bytes_ + sizeof(char*), sizeof n);
    return n;
  }
  // Expects empty inline storage.
  void assign(std::string_view raw);
  void release() noexcept {
    if (!isInline()) delete[] heapData();
  }
  void clear() noexcept { std::memset(bytes_, 0, sizeof bytes_); }
  static bool canonicallyEqual(std::string_view a, std::string_view b);

  alignas(std::size_t) char bytes_[storageBytes];
};

}  // namespace orvane

/// Lets identifiers key unordered containers (a project's screens by identifier).
template <>
struct std::hash<orvane::Identifier> {
  /// `id.hash()`.
  std::size_t operator()(const orvane::Identifier& id) const noexcept { return id.hash(); }
};
