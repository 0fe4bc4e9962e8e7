#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include <orvane/orvane.hpp>

#include "support/Text.hpp"

using namespace orvane;

TEST(Identifier, LocalIdentifiersAreFreshUpperCaseUuids) {
  // "MACOS-" then a version 4 UUID in upper-case hexadecimal, groups of 8-4-4-4-12.
  const std::string_view form = "MACOS-XXXXXXXX-XXXX-4XXX-XXXX-XXXXXXXXXXXX";
  std::unordered_set<Identifier> seen;
  for (int i = 0; i < 1000; ++i) {
    Identifier id = Identifier::local();
    ASSERT_TRUE(test::fitsShape(id.rawValue(), form)) << id.rawValue();
    ASSERT_NE(std::string_view("89AB").find(id.rawValue()[25]), std::string_view::npos)
        << id.rawValue();
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

// Its coding is corpus cases; the message for a refused single value is the tool's to show.
TEST(Identifier, RefusedSingleValuesAreNamedInTheirMessage) {
  EXPECT_EQ(refusedSingleValueMessage("Identifier", "x"),
            "Decoding Identifier from \u201Cx\u201D failed.");
}

namespace {
constexpr std::size_t kLimit = Identifier::inlineCapacity;

// Raw values at and around the inline limit, with bytes that trip up C-string handling.
std::vector<std::string> rawValuesAroundTheLimit() {
  std::vector<std::string> values;
  for (std::size_t n : {std::size_t(0), std::size_t(1), kLimit - 1, kLimit, kLimit + 1,
                        std::size_t(42), std::size_t(300)}) {
    std::string s;
    for (std::size_t i = 0; i < n; ++i) s += char('a' + i % 26);
    values.push_back(s);
    if (n >= 2) {
      s[n / 2] = '\0';
      values.push_back(s);
      s[n - 1] = '\xFF';  // not UTF-8
      values.push_back(s);
    }
  }
  return values;
}

// The first `bytes` bytes of a word ending in an accented letter, composed or decomposed.
std::string accented(std::size_t bytes, bool composed) {
  std::string tail = composed ? "\u00E9" : "e\u0301";
  return std::string(bytes - tail.size(), 'x') + tail;
}
}  // namespace

TEST(Identifier, KeepsAnyRawValueExactlyOnEitherSideOfTheInlineLimit) {
  for (const std::string& raw : rawValuesAroundTheLimit()) {
    SCOPED_TRACE(testing::PrintToString(raw));
    Identifier id(raw);
    EXPECT_EQ(id.rawValue(), raw);
    EXPECT_EQ(id.description(), raw);
    EXPECT_EQ(id, Identifier(raw));
    EXPECT_EQ(std::hash<Identifier>{}(id), std::hash<Identifier>{}(Identifier(raw)));
    for (const std::string& other : rawValuesAroundTheLimit()) {
      if (other == raw) continue;
      EXPECT_NE(id, Identifier(other)) << testing::PrintToString(other);
    }
  }
}

TEST(Identifier, CanonicalSpellingsAreEqualWhicheverSideOfTheLimitTheyFall) {
  // The decomposed spelling is one byte longer, so at kLimit it is the only one on the heap.
  for (std::size_t bytes : {kLimit - 1, kLimit, kLimit + 1}) {
    Identifier composed(accented(bytes, true));
    Identifier decomposed(accented(bytes + 1, false));
    ASSERT_NE(composed.rawValue(), decomposed.rawValue());
    EXPECT_EQ(composed, decomposed) << bytes;
    EXPECT_EQ(decomposed, composed) << bytes;
    EXPECT_EQ(std::hash<Identifier>{}(composed), std::hash<Identifier>{}(decomposed)) << bytes;
    EXPECT_NE(composed, Identifier(accented(bytes + 1, true))) << bytes;
    EXPECT_EQ(decomposed.rawValue(), accented(bytes + 1, false)) << "kept as given";
  }
  EXPECT_NE(Identifier("abc"), Identifier("ABC"));
}

TEST(Identifier, CopiesAndMovesBetweenInlineAndHeapValues) {
  const std::string values[] = {"", "short", std::string(kLimit, 's'), std::string(kLimit + 1, 'h'),
                                std::string(64, 'H')};
  for (const std::string& from : values) {
    for (const std::string& to : values) {
      SCOPED_TRACE(std::to_string(from.size()) + " onto " + std::to_string(to.size()));
      Identifier source(from), target(to);
      target = source;
      EXPECT_EQ(target.rawValue(), from);
      EXPECT_EQ(source.rawValue(), from);
      EXPECT_EQ(target, source);

      Identifier moved(to);
      moved = std::move(source);
      EXPECT_EQ(moved.rawValue(), from);
      EXPECT_EQ(moved, Identifier(from));
      // A moved-from identifier is empty and takes a new value like any other.
      EXPECT_EQ(source.rawValue(), "");  // NOLINT(bugprone-use-after-move)
      EXPECT_EQ(source, Identifier());
      source = Identifier(to);
      EXPECT_EQ(source.rawValue(), to);
    }
    Identifier original(from);
    Identifier copied(original);
    Identifier constructed(std::move(copied));
    EXPECT_EQ(constructed.rawValue(), from);
    EXPECT_EQ(copied.rawValue(), "");  // NOLINT(bugprone-use-after-move)
    Identifier& alias = constructed;
    constructed = alias;
    EXPECT_EQ(constructed.rawValue(), from);
    constructed = std::move(alias);
    EXPECT_EQ(constructed.rawValue(), from) << "self-move keeps the value";
  }
}

