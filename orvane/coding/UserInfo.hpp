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
  explicit CodingUserInfoKey(std::string rawValue) : rawValue_(std::move(rawValue)) {}
  const std::string& rawValue() const { return rawValue_; }
  bool operator==(const CodingUserInfoKey&) const = default;

  /// "fromImportSource": a Boolean true under it marks a document that came from an import
  /// source. Created once, on first use.
  static const CodingUserInfoKey& fromImportSource();

 private:
  std::string rawValue_;
};

struct CodingUserInfoKeyHash {
  std::size_t operator()(const CodingUserInfoKey& k) const noexcept {
    return std::hash<std::string>{}(k.rawValue());
  }
};

using UserInfo = std::unordered_map<CodingUserInfoKey, std::any, CodingUserInfoKeyHash>;

/// The import-source flag of a user-info map: true only for a `bool` true under the key.
bool isFromImportSource(const UserInfo& userInfo);

}  // namespace orvane
