#include <orvane/coding/RawEnum.hpp>

namespace orvane {

std::string invalidRawValueMessage(std::string_view typeName, std::string_view raw) {
  std::string s = "Cannot initialize ";
  s += typeName;
  s += " from invalid String value ";
  s += raw;
  return s;
}

}  // namespace orvane
