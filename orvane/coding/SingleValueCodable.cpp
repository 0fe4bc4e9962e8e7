#include <orvane/coding/SingleValueCodable.hpp>

namespace orvane {

std::string refusedSingleValueMessage(std::string_view typeName, std::string_view raw) {
  std::string s = "Decoding ";
  s += typeName;
  s += " from \u201C";
  s += raw;
  s += "\u201D failed.";
  return s;
}

}  // namespace orvane
