#include <orvane/people/Organization.hpp>
#include <orvane/people/Plan.hpp>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;
using ErrorKind = DecodingError::Kind;

namespace {

constexpr const char* kPlan =
    R"({"_id":"pro","name":"Pro","status":"active","period":"annual","price":12.5,"multi":true,)"
    R"("limit":10,"allowedVersionCount":200,"allowedComponentCount":-1})";

}  // namespace

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

TEST(Organization, WritesEverythingButItsIdentifierAndAlwaysThePlan) {
  auto org = decodeJson<Ref<Organization>>(
      R"({"_id":"o1","status":"suspended","name":"Acme","logo":"https://x/l.png",)"
      R"("paymentPlan":"team","subscriptionStatus":"past_due","extra":1})");
  EXPECT_EQ(org->identifier(), Identifier("o1"));
  EXPECT_EQ(org->status(), Organization::Status::suspended);
  EXPECT_EQ(org->subscriptionStatus(), Organization::SubscriptionStatus::pastDue);
  auto written = encodeJson(org);
  EXPECT_EQ(written, R"({"status":"suspended","name":"Acme","logo":"https://x/l.png",)"
                     R"("paymentPlan":"team","subscriptionStatus":"past_due"})");
  // What it writes does not decode on its own: the receiver adds the identifier.
  EXPECT_EQ(decodeError<Ref<Organization>>(written).key(), "_id");

  org->setPlanIdentifier(std::nullopt);
  EXPECT_EQ(encodeJson(org), R"({"status":"suspended","name":"Acme","logo":"https://x/l.png",)"
                             R"("paymentPlan":null,"subscriptionStatus":"past_due"})");
}

TEST(Organization, HeaderEnumerationsAreTolerantRequiredKeysAreNot) {
  auto org = decodeJson<Ref<Organization>>(
      R"({"_id":"o","name":"n","status":"Active","subscriptionStatus":"pastDue"})");
  EXPECT_FALSE(org->status());
  EXPECT_FALSE(org->subscriptionStatus());
  org =
      decodeJson<Ref<Organization>>(R"({"_id":"o","name":"n","status":3,"subscriptionStatus":{}})");
  EXPECT_FALSE(org->status());

  const std::pair<const char*, ErrorKind> failures[] = {
      {R"({"name":"n"})", ErrorKind::keyNotFound},
      {R"({"_id":"o","name":null})", ErrorKind::valueNotFound},
      {R"({"_id":"o","name":"n","paymentPlan":7})", ErrorKind::typeMismatch},
      {R"({"_id":"o","name":"n","logo":""})", ErrorKind::dataCorrupted},
  };
  for (auto [json, kind] : failures) EXPECT_EQ(decodeError<Ref<Organization>>(json).kind(), kind);
}

TEST(OrganizationPartial, EveryKeyOptionalWithoutStatus) {
  auto empty = decodeJson<Organization::Partial>("{}");
  EXPECT_FALSE(empty.identifier() || empty.name() || empty.logoURL() ||
               empty.transitionTimeInterval() || empty.planIdentifier() ||
               empty.subscriptionStatus());
  auto p = decodeJson<Organization::Partial>(
      R"({"_id":"o","status":"active","transitionLeft":250,"subscriptionStatus":"nope"})");
  EXPECT_EQ(p.identifier(), Identifier("o"));
  EXPECT_EQ(p.transitionTimeInterval(), 0.25);
  EXPECT_FALSE(p.subscriptionStatus());
  EXPECT_EQ(decodeError<Organization::Partial>(R"({"name":false})").kind(),
            ErrorKind::typeMismatch);
}

TEST(Plan, RoundTripsItsDocumentIdentifierIncluded) {
  EXPECT_EQ(roundTrip<Ref<Plan>>(kPlan), kPlan);
  auto plan = decodeJson<Ref<Plan>>(kPlan);
  EXPECT_EQ(plan->period(), Plan::Period::annual);
  EXPECT_EQ(plan->maxComponentCount(), -1);
  EXPECT_FALSE(plan->isFree());
}

TEST(Plan, StatusAndPeriodAreTolerantTheRestRequired) {
  auto plan = decodeJson<Ref<Plan>>(
      R"({"_id":"p","name":"n","status":"retired","period":"weekly","price":0,"multi":false,)"
      R"("limit":1,"allowedVersionCount":2,"allowedComponentCount":3})");
  EXPECT_FALSE(plan->status());
  EXPECT_FALSE(plan->period());
  EXPECT_EQ(encodeJson(plan), R"({"_id":"p","name":"n","price":0,"multi":false,"limit":1,)"
                              R"("allowedVersionCount":2,"allowedComponentCount":3})");

  auto e = decodeError<Ref<Plan>>(
      R"({"_id":"p","name":"n","price":0,"multi":false,"limit":1,"allowedVersionCount":2})");
  EXPECT_EQ(e.kind(), ErrorKind::keyNotFound);
  EXPECT_EQ(e.key(), "allowedComponentCount");
  e = decodeError<Ref<Plan>>(
      R"({"_id":"p","name":"n","price":0,"multi":"yes","limit":1,"allowedVersionCount":2,)"
      R"("allowedComponentCount":3})");
  EXPECT_EQ(e.kind(), ErrorKind::typeMismatch);
  EXPECT_EQ(pathOf(e), "multi");
  e = decodeError<Ref<Plan>>(
      R"({"_id":"p","name":"n","price":0,"multi":true,"limit":"9","allowedVersionCount":2,)"
      R"("allowedComponentCount":3})");
  EXPECT_EQ(e.kind(), ErrorKind::typeMismatch);
  EXPECT_EQ(pathOf(e), "limit");
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
