#include <orvane/people/User.hpp>

#include <array>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

std::string_view emoji(User::Emotar emotar) {
  return EnumTraits<User::Emotar>::emoji[static_cast<std::size_t>(emotar)];
}

ORVANE_PLAIN_RECORD_DEFINE(User, ORVANE_USER_FIELDS)

}  // namespace orvane
