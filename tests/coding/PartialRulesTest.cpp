// Decode-only partial records: made only by decoding, read-only but for a user's token and plan.
#include <concepts>
#include <type_traits>

#include "support/Records.hpp"

using namespace orvane;
using namespace orvane::test;

namespace {

template <class P>
concept MadeOnlyByDecoding = !std::is_default_constructible_v<P> && requires(const Decoder& d) {
  { P::decode(d) } -> std::same_as<P>;
};
template <class P>
concept IdentifierIsWritable = requires(P& p) {
  p.identifier() = Identifier("x");
}
|| requires(P& p) {
  p.setIdentifier(Identifier("x"));
};

#define ORVANE_PARTIAL_RULES(P)            \
  static_assert(MadeOnlyByDecoding<P>);    \
  static_assert(!IdentifierIsWritable<P>); \
  static_assert(std::is_copy_constructible_v<P>);
ORVANE_PARTIAL_RULES(ProjectColor::Partial)
ORVANE_PARTIAL_RULES(ProjectTextStyle::Partial)
ORVANE_PARTIAL_RULES(Project::Partial)
ORVANE_PARTIAL_RULES(Section::Partial)
ORVANE_PARTIAL_RULES(ComponentSection::Partial)
ORVANE_PARTIAL_RULES(Screen::Partial)
ORVANE_PARTIAL_RULES(Component::Partial)
ORVANE_PARTIAL_RULES(Dot::Partial)
ORVANE_PARTIAL_RULES(Comment::Partial)
ORVANE_PARTIAL_RULES(User::Partial)
ORVANE_PARTIAL_RULES(Organization::Partial)
#undef ORVANE_PARTIAL_RULES
static_assert(MadeOnlyByDecoding<ProjectUser::Partial>);

// The rest of a partial's fields are no more writable than its identifier.
template <class P>
concept NameIsWritable = requires(P& p) {
  p.name() = std::string();
}
|| requires(P& p) {
  p.setName(std::string());
};
static_assert(!NameIsWritable<Project::Partial>);
static_assert(!NameIsWritable<Screen::Partial>);
template <class P>
concept EmailIsWritable = requires(P& p) {
  p.setEmail(std::string());
}
|| requires(P& p) {
  p.email() = std::string();
};
static_assert(!EmailIsWritable<User::Partial>);

}  // namespace

TEST(UserPartial, TokenAndPlanStayWritable) {
  auto partial = decodeJson<User::Partial>(R"({"token":"t","paymentPlan":"free"})");
  partial.setToken("fresh");
  partial.setPlanIdentifier(std::nullopt);
  EXPECT_EQ(partial.token(), "fresh");
  EXPECT_FALSE(partial.planIdentifier());
  EXPECT_FALSE(partial.email());
}
