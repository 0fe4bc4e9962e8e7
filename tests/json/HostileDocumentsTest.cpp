// Documents that come over a network: every refusal must be a clean DecodingError.
#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>

#include "support/TestRecords.hpp"

using namespace orvane;
using namespace orvane::fixtures;
using Kind = DecodingError::Kind;

namespace {

std::optional<DecodingError> errorOf(const std::function<void()>& run) {
  try {
    run();
  } catch (const DecodingError& e) {
    return e;
  }
  return std::nullopt;
}

}  // namespace

TEST(HostileDocuments, NestingBeyondTheLimitIsRefusedAtTheRoot) {
  JsonDecoder decoder;
  for (const std::string& open : {std::string("["), std::string("{\"a\":")}) {
    std::string json;
    for (int i = 0; i < 100000; ++i) json += open;
    auto e = errorOf([&] { decoder.decode<std::vector<std::int64_t>>(json); });
    ASSERT_TRUE(e);
    EXPECT_EQ(e->kind(), Kind::dataCorrupted);
    EXPECT_TRUE(e->codingPath().empty());
  }
}

TEST(HostileDocuments, LongStringsAndKeys) {
  std::string big(5'000'000, 'x');
  std::string json = "{\"" + big + "\":1,\"name\":\"" + big + "\"}";
  Probe p = JsonDecoder().decode<Probe>(json);
  EXPECT_EQ(p.name.size(), big.size());
  auto e = errorOf([&] { JsonDecoder().decode<Probe>("{\"" + big + "\":1}"); });
  ASSERT_TRUE(e);
  EXPECT_EQ(e->key(), "name");
}

TEST(HostileDocuments, InvalidBytes) {
  const std::string cases[] = {
      std::string("{\"name\":\"\xC3\x28\"}"),      // invalid UTF-8
      std::string("{\"name\":\"\xED\xA0\x80\"}"),  // an encoded surrogate
      std::string("{\"name\":\"a\0b\"}", 14),      // a raw NUL inside a string
      std::string("{\"name\":\"a\"}\0", 13),       // a NUL after the document
      std::string("\xEF\xBB\xBF{\"name\":\"a\"}"),  // nothing but JSON is accepted
      std::string(""),
      std::string("   "),
  };
  for (const auto& json : cases) {
    auto e = errorOf([&] { JsonDecoder().decode<Probe>(json); });
    ASSERT_TRUE(e) << json;
    EXPECT_EQ(e->kind(), Kind::dataCorrupted);
    EXPECT_EQ(e->description(), "The given data was not valid JSON.");
  }
  // An escaped NUL is a character like any other, and written back escaped.
  Probe p = JsonDecoder().decode<Probe>(R"({"name":"a\u0000b"})");
  EXPECT_EQ(p.name, std::string("a\0b", 3));
  EXPECT_EQ(JsonEncoder().encode(p), R"({"name":"a\u0000b"})");
}

TEST(HostileDocuments, ManyDuplicateMembers) {
  std::string json = "{";
  for (int i = 0; i < 10000; ++i) json += "\"name\":\"v" + std::to_string(i) + "\",";
  json += "\"weight\":1}";
  Probe p = JsonDecoder().decode<Probe>(json);
  EXPECT_EQ(p.name, "v9999");
  EXPECT_EQ(p.weight, 1.0);
}
