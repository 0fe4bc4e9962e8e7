// The JSON coder's own rules: numbers, dates, URLs, invalid text, where errors point, and how
// members are found.
#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>

#include <gtest/gtest.h>

#include "support/Records.hpp"
#include "support/TestRecords.hpp"

using namespace orvane;
using namespace orvane::test;
using Kind = DecodingError::Kind;

namespace {

JsonDecoderOptions dated(DateStrategy dates) {
  JsonDecoderOptions options;
  options.dates = dates;
  return options;
}

template <class T>
std::string encode(const T& value, DateStrategy dates = DateStrategy::iso8601) {
  JsonEncoderOptions options;
  options.dates = dates;
  return JsonEncoder(options).encode(value);
}

}  // namespace

// Reads doubles under `keys` in that order, each through a required, an optional or a tolerant
// read; a failed read gives NaN, an absent or null one gives no value.
struct DoubleReader {
  enum class Read { required, optional, tolerant };
  static inline std::vector<std::pair<std::string, Read>> keys;
  std::vector<std::optional<double>> values;
  static DoubleReader decode(const Decoder& d) {
    auto c = d.container();
    DoubleReader r;
    for (const auto& [key, read] : keys) {
      try {
        switch (read) {
          case Read::required:
            r.values.emplace_back(c.decode<double>(key));
            break;
          case Read::optional:
            r.values.push_back(c.decodeIfPresent<double>(key));
            break;
          case Read::tolerant:
            r.values.push_back(c.decodeTolerant<double>(key));
            break;
        }
      } catch (const DecodingError&) {
        r.values.emplace_back(std::nan(""));
      }
    }
    return r;
  }
};

// Integers must be integral and fit; numbers beyond what the parser holds are numbers still,
// correctly rounded. Strings and keys that look like numbers are none.
TEST(JsonNumbers, IntegersFitAndNumbersBeyondTheParserAreNumbersStill) {
  EXPECT_EQ(decodeJson<std::int64_t>("-9223372036854775808"),
            std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(decodeJson<std::int64_t>("1.0"), 1);
  EXPECT_EQ(decodeJson<std::int64_t>("1e3"), 1000);
  EXPECT_EQ(decodeJson<double>("100000000000000000000"), 1e20);
  EXPECT_EQ(decodeJson<std::vector<double>>(
                "[18446744073709551616, -9223372036854775809, 1e-400, 0e999, "
                "123456789012345678901234567890.5, 1" + std::string(300, '0') + ", 7]"),
            (std::vector<double>{18446744073709551616.0, -9223372036854775808.0, 0.0, 0.0,
                                 123456789012345678901234567890.5, 1e300, 7}));
  auto probe = decodeJson<fixtures::Probe>(
      R"({"1e400":"1e400","name":"1e400","weight":-1e-400,"count":1e400})");
  EXPECT_EQ(probe.name, "1e400");
  EXPECT_TRUE(probe.weight && *probe.weight == 0 && std::signbit(*probe.weight));
  EXPECT_EQ(probe.count, std::nullopt);

  // Members read in order are laid out ahead of the cursor: a rewritten number must not pass
  // there for the 0 that stands in for it, through any of the three reads.
  using Read = DoubleReader::Read;
  DoubleReader::keys = {{"a", Read::required}, {"b", Read::optional}, {"c", Read::tolerant},
                        {"d", Read::required}, {"e", Read::optional}, {"f", Read::tolerant},
                        {"g", Read::tolerant}};
  auto got = decodeJson<DoubleReader>(
                 R"({"a":100000000000000000000,"b":-1e20000,"c":1E+999,"d":0,"e":0,)"
                 R"("f":-100000000000000000000,"g":0})")
                 .values;
  ASSERT_EQ(got.size(), 7u);
  EXPECT_EQ(got[0], 1e20);
  EXPECT_TRUE(got[1] && std::isnan(*got[1]));
  EXPECT_EQ(got[2], std::nullopt);
  EXPECT_EQ(got[3], 0.0);
  EXPECT_EQ(got[4], 0.0);
  EXPECT_EQ(got[5], -1e20);
  EXPECT_EQ(got[6], 0.0);

  EXPECT_EQ(decodeError<bool>("1e400").kind(), Kind::typeMismatch);  // also as a bare value
  // Where they do not fit they are refused at their key by their text (corpus cases); numbers
  // JSON does not allow stay invalid JSON, wherever the others stand.
  for (const char* bad : {"[1e400, 01]", "[01, 1e400]", "[1e400, 1.]", "[1e400, -]", "1e400x",
                          "[1e400 2]", "{\"a\":1e400,}", "[1e400,01,1e400]"}) {
    auto e = decodeError<std::vector<double>>(bad);
    EXPECT_EQ(e.description(), "The given data was not valid JSON.") << bad;
  }
}

// Every strategy reads and writes a bare date; dates that do not read, and numbers out of
// range, are corpus cases.
TEST(JsonDates, EveryStrategyReadsAndWrites) {
  using namespace std::chrono;
  Date noonish = Date(sys_days{2024y / 5 / 1} + 12h + 30min);
  EXPECT_EQ(encode(noonish), R"("2024-05-01T12:30:00Z")");
  EXPECT_EQ(encode(noonish + 250ms), R"("2024-05-01T12:30:00.250Z")");
  EXPECT_EQ(decodeJson<Date>(R"("2024-05-01T14:30:00.25+02:00")"), noonish + 250ms);
  EXPECT_EQ(decodeJson<Date>(R"("2024-05-01t12:30:00z")"), noonish);
  double unix = duration<double>(noonish.time_since_epoch()).count();
  EXPECT_EQ(encode(noonish, DateStrategy::seconds), std::to_string(std::int64_t(unix)));
  EXPECT_EQ(encode(noonish, DateStrategy::milliseconds),
            std::to_string(std::int64_t(unix)) + "000");
  EXPECT_EQ(encode(noonish, DateStrategy::deferred),
            std::to_string(std::int64_t(unix) - 978307200));
  EXPECT_EQ(decodeJson<Date>("0", dated(DateStrategy::deferred)),
            Date(sys_days{2001y / 1 / 1}.time_since_epoch()));
  EXPECT_EQ(decodeJson<Date>("1500", dated(DateStrategy::milliseconds)), Date(1500ms));
  EXPECT_EQ(decodeJson<Date>("-1.5", dated(DateStrategy::seconds)), Date(-1500ms));
}

// Which texts are refused is a corpus case.
TEST(JsonUrls, UriReferencesOnlyAndTextKept) {
  for (const char* ok : {"https://cdn.example.com/a%20b.png?x=1#f", "relative/path.png", "/abs",
                         "mailto:someone@example.com"}) {
    std::string json = encode(std::string(ok));
    EXPECT_EQ(decodeJson<Url>(json).text(), ok);
    EXPECT_EQ(encode(decodeJson<Url>(json)), json);
  }
  EXPECT_EQ(decodeError<Url>(R"("a b")").description(), "Invalid URL string.");
}

TEST(JsonDocuments, InvalidInputFailsAtTheRootAndSaysWhere) {
  std::string deep(600, '[');
  deep += std::string(600, ']');
  std::string deepest, deepestObjects;
  for (int i = 0; i < 100000; ++i) deepest += "[", deepestObjects += "{\"a\":";
  const std::pair<std::string, TextLocation> cases[] = {
      {"\"\xFF\"", {1, 2}},      {"{\"a\":1} x", {1, 9}},    {deep, {1, 513}},
      {"[1e400,\n tru]", {2, 5}}, {deepest, {1, 513}}, {deepestObjects, {1, 2561}},
  };
  for (const auto& [bad, location] : cases) {
    auto e = decodeError<std::vector<std::int64_t>>(bad);
    EXPECT_EQ(e.kind(), Kind::dataCorrupted);
    EXPECT_TRUE(e.codingPath().empty());
    EXPECT_EQ(e.description(), "The given data was not valid JSON.");
    EXPECT_EQ(e.location(), location) << bad.substr(0, 20);
    // The parser's reason, also as the underlying error.
    ASSERT_TRUE(e.reason() && !e.reason()->empty());
    try {
      std::rethrow_exception(e.underlyingError());
    } catch (const std::exception& underlying) {
      EXPECT_EQ(underlying.what(), *e.reason());
    }
    EXPECT_NE(std::string(e.what()).find(" (" + *e.reason() + ") (line "), std::string::npos);
  }
  // What is wrong beside a number beyond the parser is what the reason tells.
  EXPECT_EQ(decodeError<std::vector<double>>("[1e400, tru]").reason(),
            decodeError<std::vector<double>>("[1, tru]").reason());
}

// Where a record's errors point is a corpus case; a path the text cannot follow (past an array's
// end) gives no location.
TEST(JsonDocuments, APathPastTheTextGivesNoLocation) {
  struct PastTheEnd {
    static PastTheEnd decode(const Decoder& d) {
      auto list = d.unkeyedContainer();
      list.decode<std::int64_t>();
      list.decode<std::int64_t>();
      return {};
    }
  };
  auto e = decodeError<PastTheEnd>("[1]");
  EXPECT_EQ(pathOf(e), "[1]");
  EXPECT_EQ(e.location(), std::nullopt);
  EXPECT_EQ(decodeError<PastTheEnd>("[1,\n\"2\"]").location(), (TextLocation{2, 1}));
}

TEST(JsonDocuments, DepthLimitIsAnOption) {
  JsonDecoderOptions options;
  options.maxDepth = 3;
  JsonDecoder decoder(options);
  EXPECT_NO_THROW(decoder.decode<std::vector<std::vector<std::vector<std::int64_t>>>>("[[[1]]]"));
  EXPECT_THROW(
      decoder.decode<std::vector<std::vector<std::vector<std::vector<std::int64_t>>>>>("[[[[1]]]]"),
      DecodingError);

  // "No limit" is the largest limit the parser keeps memory for, not a wrapped-around zero.
  options.maxDepth = SIZE_MAX;
  JsonDecoder unlimited(options);
  EXPECT_EQ(unlimited.decode<std::vector<std::int64_t>>("[1]"), std::vector<std::int64_t>{1});
  const std::string deep = std::string(5000, '[') + std::string(5000, ']');
  try {
    unlimited.decode<std::int64_t>(deep);
    ADD_FAILURE() << "an array decoded as an Int";
  } catch (const DecodingError& e) {
    EXPECT_EQ(e.kind(), DecodingError::Kind::typeMismatch);  // read as JSON, refused as an Int
  }
}

// Reads the integers under `keys`, in that order; an absent key reads as -1.
struct KeyReader {
  static inline std::vector<std::string> keys;
  std::vector<std::int64_t> values;
  static KeyReader decode(const Decoder& d) {
    auto c = d.container();
    KeyReader r;
    for (const auto& key : keys)
      r.values.push_back(c.decodeIfPresent<std::int64_t>(key).value_or(-1));
    return r;
  }
};

TEST(JsonDocuments, KeysMatchOnEveryByte) {
  // Keys of each length around the word sizes the lookup compares in, against a neighbour that
  // differs in one byte (first, middle, last), read in document order and in reverse.
  for (std::size_t length : {1, 2, 3, 4, 5, 7, 8, 9, 12, 15, 16, 17, 24, 40}) {
    for (std::size_t at : {std::size_t{0}, length / 2, length - 1}) {
      std::string key(length, 'k');
      for (std::size_t i = 0; i < length; ++i) key[i] = static_cast<char>('a' + i % 26);
      std::string neighbour = key;
      neighbour[at] = '_';
      std::string longer = key + "x";
      std::string json = "{\"" + neighbour + "\":1,\"" + key + "\":2,\"" + longer + "\":3}";
      KeyReader::keys = {neighbour, key, longer, key.substr(0, length - 1)};
      EXPECT_EQ(decodeJson<KeyReader>(json).values, (std::vector<std::int64_t>{1, 2, 3, -1}))
          << json;
      KeyReader::keys = {longer, key, neighbour};
      EXPECT_EQ(decodeJson<KeyReader>(json).values, (std::vector<std::int64_t>{3, 2, 1})) << json;
    }
  }
}

TEST(JsonDocuments, ADuplicateWinsAlsoWhereTheFirstIsReadInOrder) {
  KeyReader::keys = {"alpha", "beta"};
  EXPECT_EQ(decodeJson<KeyReader>(R"({"alpha":1,"beta":2,"alpha":3})").values,
            (std::vector<std::int64_t>{3, 2}));
  EXPECT_EQ(decodeJson<KeyReader>(R"({"alpha":1,"beta":2,"beta":4,"alpha":3})").values,
            (std::vector<std::int64_t>{3, 4}));
  // Many keys, so that their filter bits collide, with one repeat at the end.
  std::string json = "{";
  for (int i = 0; i < 100; ++i) json += "\"k" + std::to_string(i) + "\":" + std::to_string(i) + ",";
  json += "\"k7\":700}";
  KeyReader::keys = {"k0", "k7", "k8", "k99"};
  EXPECT_EQ(decodeJson<KeyReader>(json).values, (std::vector<std::int64_t>{0, 700, 8, 99}));
  // One key many thousand times over.
  json = "{";
  for (int i = 0; i < 10000; ++i) json += "\"alpha\":" + std::to_string(i) + ",";
  json += "\"beta\":1}";
  KeyReader::keys = {"alpha", "beta"};
  EXPECT_EQ(decodeJson<KeyReader>(json).values, (std::vector<std::int64_t>{9999, 1}));
}

TEST(JsonDocuments, LookupsAgreeWithAMapOfTheLastMembers) {
  // Objects of every size around the members a container lays out ahead, read in order, in
  // reverse, with gaps, twice over and with absent keys, and some with repeated keys: every
  // read must give what the last member under its key holds.
  using Read = DoubleReader::Read;
  std::mt19937 random(7);
  auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
  const char* values[] = {"1.5", "-2", "18446744073709551615", "null", "\"s\"", "{}", "[1]", "0"};
  for (int size = 0; size <= 20; ++size) {
    for (int round = 0; round < 12; ++round) {
      std::map<std::string, std::string> last;
      std::string json = "{";
      std::vector<std::string> names;
      for (int i = 0; i < size; ++i) {
        bool repeat = round % 3 == 2 && i > 0 && pick(4) == 0;
        std::string name = repeat ? names[pick(i)] : "key" + std::to_string(i);
        std::string value = values[pick(8)];
        json += (i ? "," : "") + ("\"" + name + "\":") + value;
        last[name] = value;
        names.push_back(name);
      }
      json += "}";
      std::vector<std::string> order;
      for (int i = 0; i < size + 2; ++i) order.push_back("key" + std::to_string(i));
      if (round % 3 == 1) std::reverse(order.begin(), order.end());
      if (round % 4 == 3) std::shuffle(order.begin(), order.end(), random);
      if (round % 2 == 1) order.insert(order.end(), order.begin(), order.end());
      DoubleReader::keys.clear();
      std::vector<std::optional<double>> expected;
      for (const auto& name : order) {
        auto read = static_cast<Read>(pick(3));
        DoubleReader::keys.emplace_back(name, read);
        auto it = last.find(name);
        std::string value = it == last.end() ? "" : it->second;
        bool number = !value.empty() &&
                      (std::isdigit(static_cast<unsigned char>(value[0])) || value[0] == '-');
        if (number) {
          expected.emplace_back(std::strtod(value.c_str(), nullptr));
        } else if (read == Read::tolerant ||
                   (read == Read::optional && (value.empty() || value == "null"))) {
          expected.emplace_back(std::nullopt);
        } else {
          expected.emplace_back(std::nan(""));
        }
      }
      auto got = decodeJson<DoubleReader>(json).values;
      ASSERT_EQ(got.size(), expected.size());
      for (std::size_t i = 0; i < got.size(); ++i) {
        bool same =
            got[i].has_value() == expected[i].has_value() &&
            (!got[i] || (std::isnan(*got[i]) ? std::isnan(*expected[i]) : *got[i] == *expected[i]));
        EXPECT_TRUE(same) << json << " key " << DoubleReader::keys[i].first << " read "
                          << static_cast<int>(DoubleReader::keys[i].second);
      }
    }
  }
}

TEST(JsonDocuments, LongStringsAndKeys) {
  std::string big(5'000'000, 'x');
  auto probe = decodeJson<fixtures::Probe>("{\"" + big + "\":1,\"name\":\"" + big + "\"}");
  EXPECT_EQ(probe.name, big);
  EXPECT_EQ(decodeError<fixtures::Probe>("{\"" + big + "\":1}").key(), "name");
}
