#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

using namespace orvane;

namespace {

// UTF-16 code units of a UTF-8 string: four-byte sequences need two.
std::size_t utf16Length(std::string_view s) {
  std::size_t units = 0;
  for (unsigned char c : s) {
    if ((c & 0xC0) == 0x80) continue;
    units += c >= 0xF0 ? 2 : 1;
  }
  return units;
}

std::size_t codePoints(std::string_view s) {
  std::size_t n = 0;
  for (unsigned char c : s) n += (c & 0xC0) != 0x80;
  return n;
}

Ref<User> decodeUser(std::string_view json) {
  return JsonDecoder().decode<Ref<User>>(json);
}

}  // namespace

TEST(UserEmotar, EachShowsTwoUtf16Units) {
  for (auto e : allCases<User::Emotar>()) EXPECT_EQ(utf16Length(emoji(e)), 2u) << caseName(e);
  EXPECT_EQ(emoji(User::Emotar::whiteFrowningFace), "\u2639\uFE0F");
  EXPECT_EQ(codePoints(emoji(User::Emotar::darkSunglasses)), 1u);
  EXPECT_EQ(emoji(User::Emotar::pizza), "\U0001F355");
}

TEST(User, HandlePrefersTheUsernameEvenWhenEmpty) {
  auto user = decodeUser(R"({"_id":"u1","email":"e@x"})");
  EXPECT_EQ(user->handle(), "e@x");
  user->setUsername("");
  EXPECT_EQ(user->handle(), "");
  user->setUsername("ann");
  EXPECT_EQ(user->handle(), "ann");
}
