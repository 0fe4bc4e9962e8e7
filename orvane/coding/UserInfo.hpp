// The user-info map that callers hand to a decoder.
#pragma once

#include <any>
#include <functional>
#include <string>
#include <unordered_map>

namespace orvane {

/// A key of the user-info map: a wrapper around one string, compared by that string.
class CodingUserInfoKey {
 public:
  /// A key named `rawValue`; keys with the same name are the same key.
  explicit CodingUserInfoKey(std::string rawValue) : rawValue_(std::move(rawValue)) {}
  /// The key's name.
  const std::string& rawValue() const { return rawValue_; }
  /// Equal when the names are byte for byte.
  bool operator==(const CodingUserInfoKey&) const = default;

  /// "fromImportSource": a Boolean true under it marks a document that came from an import
  /// source. Created once, on first use.
  static const CodingUserInfoKey& fromImportSource();

 private:
  std::string rawValue_;
};

/// Hashes a key by its name, for `UserInfo`.
struct CodingUserInfoKeyHash {
  /// The hash of the name.
  std::size_t operator()(const CodingUserInfoKey& k) const noexcept {
    return std::hash<std::string>{}(k.rawValue());
  }
};

/// What a caller hands every record of a decode: any values under named keys. The library
/// reads only a `bool` under `CodingUserInfoKey::fromImportSource()`.
using UserInfo = std::unordered_map<CodingUserInfoKey, std::any, CodingUserInfoKeyHash>;

/// The import-source flag of a user-info map: true only for a `bool` true under the key.
bool isFromImportSource(const UserInfo& userInfo);

}  // namespace orvane
