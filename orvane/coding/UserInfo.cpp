#include <orvane/coding/UserInfo.hpp>

namespace orvane {

const CodingUserInfoKey& CodingUserInfoKey::fromImportSource() {
  // A function-local static is initialised once, thread-safely.
  static const CodingUserInfoKey key("fromImportSource");
  return key;
}

bool isFromImportSource(const UserInfo& userInfo) {
  auto it = userInfo.find(CodingUserInfoKey::fromImportSource());
  if (it == userInfo.end()) return false;
  const bool* flag = std::any_cast<bool>(&it->second);
  return flag && *flag;
}

}  // namespace orvane
