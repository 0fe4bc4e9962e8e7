// The identity of the records the service names.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/SingleValueCodable.hpp>

namespace orvane {

/// Wraps the string that the service assigns. Equality and hashing follow Unicode canonical
/// equivalence, so two spellings of one accented identifier are the same identifier; plain
/// ASCII identifiers (nearly all of them) compare as bytes with no extra work.
class Identifier {
 public:
  static constexpr std::string_view typeName = "Identifier";

  Identifier() : Identifier(std::string()) {}
  /// Accepts any string, the empty one included.
  explicit Identifier(std::string rawValue);
  static std::optional<Identifier> fromRawValue(std::string rawValue) {
    return Identifier(std::move(rawValue));
  }

  /// A fresh local identifier: "MACOS-" and a random UUID's upper-case text (42 characters).
  static Identifier local();

  const std::string& rawValue() const { return raw_; }
  const std::string& description() const { return raw_; }
  /// True when the raw value begins with "MACOS" (case-sensitive, hyphen not required).
  bool isLocal() const { return std::string_view(raw_).starts_with("MACOS"); }

  bool operator==(const Identifier& other) const;
  std::size_t hash() const;

 private:
  std::string raw_;
};

}  // namespace orvane

template <>
struct std::hash<orvane::Identifier> {
  std::size_t operator()(const orvane::Identifier& id) const noexcept { return id.hash(); }
};
