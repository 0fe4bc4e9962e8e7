// Which document key sets a record shows. Every record's field keys are public (the partial
// forms read them too); the keys of nested objects stay inside the record.
#include <gtest/gtest.h>

#include <orvane/orvane.hpp>

using namespace orvane;

namespace {

template <class T>
concept ShowsCodingKeys = requires {
  typename T::CodingKeys;
};
template <class T>
concept ShowsIconCodingKeys = requires {
  typename T::IconCodingKeys;
};
template <class T>
concept ShowsScreenCodingKeys = requires {
  typename T::ScreenCodingKeys;
};

}  // namespace

TEST(KeySets, OnlySharedKeySetsArePublic) {
  EXPECT_TRUE(ShowsCodingKeys<Project>);
  EXPECT_TRUE(ShowsCodingKeys<Section>);
  EXPECT_TRUE(ShowsCodingKeys<ComponentSection>);
  EXPECT_TRUE(ShowsCodingKeys<VersionCollection>);
  EXPECT_TRUE(ShowsCodingKeys<Dot>);
  EXPECT_TRUE(ShowsCodingKeys<Comment>);

  EXPECT_FALSE(ShowsIconCodingKeys<Project>);
  EXPECT_FALSE(ShowsScreenCodingKeys<Screen>);
}
