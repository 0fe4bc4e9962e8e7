#include <atomic>

#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>

#include "support/TestRecords.hpp"

using namespace orvane;
using namespace orvane::fixtures;
using Kind = DecodingError::Kind;

namespace {

template <class T>
T decodeJson(std::string_view json, JsonDecoderOptions options = {}) {
  return JsonDecoder(std::move(options)).decode<T>(json);
}

template <class T>
DecodingError decodeError(std::string_view json) {
  try {
    decodeJson<T>(json);
  } catch (const DecodingError& e) {
    return e;
  }
  ADD_FAILURE() << "decoding succeeded: " << json;
  return DecodingError(Kind::dataCorrupted, {}, "none");
}

std::string pathOf(const DecodingError& e) {
  return formatCodingPath(e.codingPath());
}

}  // namespace

TEST(CodingTerms, RequiredOptionalAndTolerantKeys) {
  struct Case {
    const char* json;
    bool fails;
    Kind kind;
    std::string path;
    std::optional<double> weight;
    std::optional<Tone> tone;
  };
  const Case cases[] = {
      {R"({"name":"a"})", false, {}, "", std::nullopt, std::nullopt},
      {R"({"name":"a","weight":null,"tone":null})", false, {}, "", std::nullopt, std::nullopt},
      {R"({"name":"a","weight":2,"tone":"dark"})", false, {}, "", 2.0, Tone::dark},
      // Required: absent, null and another kind differ.
      {R"({})", true, Kind::keyNotFound, "<root>", {}, {}},
      {R"({"name":null})", true, Kind::valueNotFound, "name", {}, {}},
      {R"({"name":3})", true, Kind::typeMismatch, "name", {}, {}},
      // Optional: another kind still fails.
      {R"({"name":"a","weight":"heavy"})", true, Kind::typeMismatch, "weight", {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.json);
    if (c.fails) {
      auto e = decodeError<Probe>(c.json);
      EXPECT_EQ(e.kind(), c.kind);
      EXPECT_EQ(pathOf(e), c.path);
    } else {
      Probe p = decodeJson<Probe>(c.json);
      EXPECT_EQ(p.name, "a");
      EXPECT_EQ(p.weight, c.weight);
      EXPECT_EQ(p.tone, c.tone);
    }
  }
}

TEST(CodingTerms, WrittenWhenPresentLeavesNoValueOut) {
  Probe p = decodeJson<Probe>(R"({"name":"a","weight":null,"tone":"sepia"})");
  EXPECT_EQ(JsonEncoder().encode(p), R"({"name":"a"})");
  p.weight = 0.5;
  p.tone = Tone::light;
  EXPECT_EQ(JsonEncoder().encode(p), R"({"name":"a","weight":0.5,"tone":"light"})");
}

TEST(CodingTerms, FailuresInsideValuesPropagateWithTheirPath) {
  auto nested = decodeError<Ref<TreeNode>>(R"({"title":"r","rect":[1,2]})");
  EXPECT_EQ(nested.kind(), Kind::typeMismatch);
  EXPECT_EQ(pathOf(nested), "rect");

  auto element = decodeError<Ref<TreeNode>>(
      R"({"title":"r","rect":{"x":0,"y":0,"width":1,"height":1},"children":[null]})");
  EXPECT_EQ(element.kind(), Kind::valueNotFound);
  EXPECT_EQ(pathOf(element), "children[0]");
}

TEST(CodingTerms, SeveralContainersShareOneObject) {
  Derived d = decodeJson<Derived>(R"({"size":3,"label":"x"})");
  EXPECT_EQ(d.label, "x");
  EXPECT_EQ(d.size, 3);
  EXPECT_EQ(JsonEncoder().encode(d), R"({"label":"x","size":3})");
  EXPECT_EQ(decodeError<Derived>(R"({"label":"x"})").key(), "size");
}

TEST(CodingTerms, NestedContainersCloseBeforeTheNextMember) {
  auto n = decodeJson<Ref<TreeNode>>(
      R"({"title":"r","rect":{"x":1,"y":2,"width":3,"height":4},"tone":"light","children":[]})");
  EXPECT_EQ(
      JsonEncoder().encode(n),
      R"({"title":"r","rect":{"x":1,"y":2,"width":3,"height":4},"tone":"light","children":[]})");
  n->children.reset();
  EXPECT_EQ(JsonEncoder().encode(n),
            R"({"title":"r","rect":{"x":1,"y":2,"width":3,"height":4},"tone":"light"})");
}

TEST(Geometry, RectanglesAreReadAsStoredAndWrittenStandardized) {
  Rect r = decodeJson<Rect>(R"({"x":10,"y":20,"width":-4,"height":5})");
  EXPECT_EQ(r, Rect(10, 20, -4, 5));
  EXPECT_EQ(JsonEncoder().encode(r), R"({"x":6,"y":20,"width":4,"height":5})");
  EXPECT_EQ(r.offsetBy(1, 1), Rect(7, 21, 4, 5));
  EXPECT_EQ(JsonEncoder().encode(decodeJson<Point>(R"({"x":-1.5,"y":2})")), R"({"x":-1.5,"y":2})");
  EXPECT_EQ(decodeJson<Range>(R"({"location":3,"length":0})"), (Range{3, 0}));
  EXPECT_EQ(decodeError<Range>(R"({"location":3,"length":0.5})").kind(), Kind::dataCorrupted);
}

TEST(UserInfoFlag, OnlyABooleanTrueCounts) {
  UserInfo info;
  EXPECT_FALSE(isFromImportSource(info));
  info[CodingUserInfoKey::fromImportSource()] = std::string("true");
  EXPECT_FALSE(isFromImportSource(info));
  info[CodingUserInfoKey::fromImportSource()] = 1;
  EXPECT_FALSE(isFromImportSource(info));
  info[CodingUserInfoKey::fromImportSource()] = false;
  EXPECT_FALSE(isFromImportSource(info));
  info[CodingUserInfoKey(std::string("fromImportSource"))] = true;
  EXPECT_TRUE(isFromImportSource(info));
  EXPECT_EQ(&CodingUserInfoKey::fromImportSource(), &CodingUserInfoKey::fromImportSource());
}

TEST(RawEnumerations, LookupIsExact) {
  EXPECT_EQ(fromRawValue<Density>("2x"), Density::_2x);
  EXPECT_EQ(fromRawValue<Density>("2X"), std::nullopt);
  EXPECT_EQ(fromRawValue<Density>("2x "), std::nullopt);
  EXPECT_EQ(decodeError<Density>("12").kind(), Kind::typeMismatch);
  EXPECT_EQ(decodeError<Density>("null").kind(), Kind::valueNotFound);
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
