#include <orvane/people/User.hpp>

#include <array>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

namespace {
#define ORVANE_USER_EMOTAR_EMOJI(name, raw, emoji) emoji,
constexpr auto kEmoji =
    std::to_array<std::string_view>({ORVANE_USER_EMOTAR(ORVANE_USER_EMOTAR_EMOJI)});
}  // namespace

std::string_view emoji(User::Emotar emotar) {
  return kEmoji[static_cast<std::size_t>(emotar)];
}

ORVANE_PLAIN_RECORD_DEFINE(User, ORVANE_USER_FIELDS)

}  // namespace orvane
