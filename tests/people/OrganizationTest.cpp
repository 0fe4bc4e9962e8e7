#include <orvane/people/Organization.hpp>
#include <orvane/people/Plan.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

TEST(Organization, TransitionIsHeldInSecondsAndWrittenInMilliseconds) {
  auto org = decodeJson<Ref<Organization>>(R"({"_id":"o","name":"n","transitionLeft":1500})");
  EXPECT_EQ(org->transitionTimeInterval(), 1.5);
  EXPECT_EQ(encodeJson(org), R"({"name":"n","transitionLeft":1500,"paymentPlan":null})");

  // Made records store seconds unchanged.
  auto made = Organization::make({.status = std::nullopt,
                                  .name = "n",
                                  .logoURL = std::nullopt,
                                  .transitionTimeInterval = 0.25,
                                  .planIdentifier = "team",
                                  .subscriptionStatus = std::nullopt});
  EXPECT_EQ(made->transitionTimeInterval(), 0.25);
  EXPECT_EQ(encodeJson(made), R"({"name":"n","transitionLeft":250,"paymentPlan":"team"})");

  for (const char* json :
       {R"({"_id":"o","name":"n","transitionLeft":null})", R"({"_id":"o","name":"n"})"}) {
    EXPECT_FALSE(decodeJson<Ref<Organization>>(json)->transitionTimeInterval()) << json;
  }
  EXPECT_EQ(decodeError<Ref<Organization>>(R"({"_id":"o","name":"n","transitionLeft":"1"})").kind(),
            ErrorKind::typeMismatch);
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
