// What the coding interface promises beyond the field statements (FieldRulesTest) and the JSON
// coder (tests/json): tolerant reads raise nothing, and geometry's own arithmetic.
#include <atomic>

#include "support/Records.hpp"
#include "support/TestRecords.hpp"

using namespace orvane;
using namespace orvane::fixtures;
using namespace orvane::test;

// Written standardized (a corpus case shows it); moved, a rectangle is standardized too.
TEST(Geometry, OffsetRectanglesAreStandardizedAndRangesCompareByValue) {
  EXPECT_EQ(Rect(10, 20, -4, 5).offsetBy(1, 1), Rect(7, 21, 4, 5));
  EXPECT_EQ(decodeJson<Range>(R"({"location":3,"length":0})"), (Range{3, 0}));
  EXPECT_NE(decodeJson<Range>(R"({"location":3,"length":1})"), (Range{3, 0}));
}

// Counts every exception thrown in this process (ThrowCounter.cpp).
extern std::atomic<int> throwCount;

TEST(CodingTerms, TolerantReadsDoNotThrow) {
  throwCount = 0;
  try {
    throw 1;
  } catch (int) {
  }
  ASSERT_EQ(throwCount, 1) << "the throw counter is not hooked in";
  throwCount = 0;
  for (const char* json :
       {R"({"name":"a"})", R"({"name":"a","tone":null,"count":null})",
        R"({"name":"a","tone":"DARK","count":"x"})", R"({"name":"a","tone":3,"count":1.5})",
        R"({"name":"a","tone":[],"count":{}})"}) {
    Probe p = decodeJson<Probe>(json);
    EXPECT_FALSE(p.tone);
    EXPECT_FALSE(p.count);
  }
  EXPECT_EQ(throwCount, 0);
}
