#include <unordered_set>

#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

using namespace orvane;

namespace {
// "MACOS-" then a version 4 UUID in upper-case hexadecimal, groups of 8-4-4-4-12.
bool hasLocalForm(std::string_view s) {
  const std::string pattern = "MACOS-HHHHHHHH-HHHH-4HHH-VHHH-HHHHHHHHHHHH";
  if (s.size() != pattern.size()) return false;
  for (std::size_t i = 0; i < s.size(); ++i) {
    char c = s[i];
    bool hex = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F');
    switch (pattern[i]) {
      case 'H':
        if (!hex) return false;
        break;
      case 'V':
        if (c != '8' && c != '9' && c != 'A' && c != 'B') return false;
        break;
      default:
        if (c != pattern[i]) return false;
    }
  }
  return true;
}
}  // namespace

TEST(Identifier, LocalIdentifiersAreFreshUpperCaseUuids) {
  std::unordered_set<Identifier> seen;
  for (int i = 0; i < 1000; ++i) {
    Identifier id = Identifier::local();
    ASSERT_TRUE(hasLocalForm(id.rawValue())) << id.rawValue();
    ASSERT_EQ(id.rawValue().size(), 42u);  // "MACOS-" and 36 characters of UUID text
    ASSERT_TRUE(id.isLocal());
    ASSERT_TRUE(seen.insert(id).second) << "repeated " << id.rawValue();
  }
}

TEST(Identifier, IsLocalIsACaseSensitivePrefixTest) {
  const std::pair<const char*, bool> cases[] = {
      {"MACOS-ABC", true},  {"MACOSX", true}, {"MACOS", true},
      {"macos-ABC", false}, {"", false},      {"xMACOS", false},
  };
  for (auto [raw, local] : cases) EXPECT_EQ(Identifier(raw).isLocal(), local) << raw;
}

TEST(Identifier, EqualityAndHashFollowCanonicalEquivalence) {
  Identifier composed("caf\u00E9");
  Identifier decomposed("cafe\u0301");
  EXPECT_NE(composed.rawValue(), decomposed.rawValue());
  EXPECT_EQ(composed, decomposed);
  EXPECT_EQ(std::hash<Identifier>{}(composed), std::hash<Identifier>{}(decomposed));
  EXPECT_EQ(decomposed.rawValue(), "cafe\u0301") << "the raw value is kept as given";
  EXPECT_NE(Identifier("abc"), Identifier("abd"));
  EXPECT_NE(Identifier("abc"), Identifier("ABC"));
  std::unordered_set<Identifier> set{composed};
  EXPECT_TRUE(set.count(decomposed));
}

TEST(Identifier, CodedAsOneString) {
  JsonDecoder decoder;
  EXPECT_EQ(decoder.decode<Identifier>(R"("")").rawValue(), "");
  EXPECT_EQ(JsonEncoder().encode(Identifier("")), R"("")");
  EXPECT_EQ(JsonEncoder().encode(Identifier("a\"b")), R"("a\"b")");
  try {
    decoder.decode<Identifier>("12");
    FAIL();
  } catch (const DecodingError& e) {
    EXPECT_EQ(e.kind(), DecodingError::Kind::typeMismatch);
  }
  EXPECT_EQ(refusedSingleValueMessage("Identifier", "x"),
            "Decoding Identifier from \u201Cx\u201D failed.");
}
