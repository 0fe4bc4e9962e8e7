// What people records do that no document shows: a made organization's interval, which plan is
// free, the emoji of each emotar. What they read, write and derive is in the corpus.
#include <orvane/people/Organization.hpp>
#include <orvane/people/Plan.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;

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

}  // namespace

// Decoded, the interval is read in milliseconds (a corpus case); made, it is given in seconds.
TEST(Organization, AMadeOrganizationsIntervalIsInSecondsAndWrittenInMilliseconds) {
  auto made = Organization::make({.status = std::nullopt,
                                  .name = "n",
                                  .logoURL = std::nullopt,
                                  .transitionTimeInterval = 0.25,
                                  .planIdentifier = "team",
                                  .subscriptionStatus = std::nullopt});
  EXPECT_EQ(made->transitionTimeInterval(), 0.25);
  EXPECT_EQ(encodeJson(made), R"({"name":"n","transitionLeft":250,"paymentPlan":"team"})");
}

TEST(Plan, OnlyThePlanNamedExactlyFreeIsFree) {
  auto plan = Plan::make({.identifier = "free",
                          .name = "Free",
                          .status = Plan::Status::active,
                          .period = Plan::Period::eternal,
                          .price = 0,
                          .isMultiple = false,
                          .maxProjectCount = 1,
                          .maxVersionCount = 10,
                          .maxComponentCount = 10});
  EXPECT_TRUE(plan->isFree());
  for (const char* name : {"Free", "free ", "", "freedom"}) {
    plan->setIdentifier(name);
    EXPECT_FALSE(plan->isFree()) << '"' << name << '"';
  }
}

TEST(UserEmotar, EachShowsTwoUtf16Units) {
  for (auto e : allCases<User::Emotar>()) EXPECT_EQ(utf16Length(emoji(e)), 2u) << caseName(e);
  EXPECT_EQ(emoji(User::Emotar::whiteFrowningFace), "\u2639\uFE0F");
  EXPECT_EQ(codePoints(emoji(User::Emotar::darkSunglasses)), 1u);
  EXPECT_EQ(emoji(User::Emotar::pizza), "\U0001F355");
}
