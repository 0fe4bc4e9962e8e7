// Suggestions for a mistyped TYPE.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tools/orvane/Suggest.hpp"
#include "tools/orvane/Types.hpp"

using namespace orvane::tool;

TEST(Suggestions, EditDistanceCountsSwapsAsOneAndIgnoresCase) {
  struct Case {
    std::string_view a, b;
    std::size_t distance;
  };
  const Case cases[] = {{"", "", 0}, {"", "abc", 3}, {"abc", "", 3}, {"Layer", "layer", 0},
                        {"ab", "ba", 1}, {"ca", "abc", 3}, {"kitten", "sitting", 3},
                        {"Colour", "Color", 1}, {"abcdef", "badcfe", 3}, {"Blur", "Border", 4},
                        {"a.b", "a-b", 1}};
  for (const auto& c : cases) {
    EXPECT_EQ(editDistance(c.a, c.b), c.distance) << c.a << " / " << c.b;
    EXPECT_EQ(editDistance(c.b, c.a), c.distance) << c.b << " / " << c.a;
  }
}

TEST(Suggestions, TheClosestTypeNamesAndOnlyCloseOnes) {
  std::vector<std::string_view> names;
  for (const auto& type : registeredTypes()) names.push_back(type.name);
  struct Case {
    std::string_view typed;
    std::vector<std::string_view> expected;
  };
  const Case cases[] = {
      {"layer", {"Layer"}}, {"Layr", {"Layer"}}, {"Colour", {"Color"}},
      {"blendmode", {"BlendMode"}},
      // By a qualified name's last parts.
      {"Alignment", {"TextStyle.Alignment"}}, {"Option.Kind.Key", {"Extension.Option.Kind.Key"}},
      // The closest win over those one edit further; ties keep the table's order, three at most.
      {"Status", {"User.Status", "Organization.Status", "Plan.Status"}}, {"Commits", {"Commit"}},
      // Nothing close enough.
      {"NoSuchType", {}}, {"X", {}}, {"", {}}, {"Rectangle", {}}};
  for (const auto& c : cases) {
    EXPECT_EQ(closestNames(c.typed, names), c.expected) << c.typed;
  }
}
