// Records of a decode live in packed chunks: every chunk comes back once its records are
// released, whatever keeps them, from whichever thread, and however the decode ended.
#include <fstream>
#include <sstream>
#include <thread>

#include <gtest/gtest.h>

#include <orvane/coding/RecordArena.hpp>

#include "support/Records.hpp"

using namespace orvane;

namespace {

std::string example() {
  std::ifstream in(ORVANE_SOURCE_DIR "/examples/snapshot.json", std::ios::binary);
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// Enough copies of the example to fill several chunks.
std::string manySnapshots(int copies) {
  std::string part = example(), json = "[";
  for (int i = 0; i < copies; ++i) json += (i ? "," : "") + part;
  return json + "]";
}

std::size_t used() {
  return recordArenaStatistics().usedBytes;
}

std::vector<Ref<Snapshot>> decodeMany(const std::string& json, bool pack = true) {
  JsonDecoderOptions options;
  options.packRecords = pack;
  return JsonDecoder(options).decode<std::vector<Ref<Snapshot>>>(json);
}

}  // namespace

TEST(RecordArena, ChunksComeBackWhenTheirRecordsAreReleased) {
  const std::string json = manySnapshots(2000);
  const std::size_t before = used();
  const std::size_t recordsBefore = recordArenaStatistics().recordBytes;
  auto graph = decodeMany(json);
  EXPECT_GT(used(), before + (std::size_t{2} << 20)) << "several chunks filled";
  const std::size_t records = recordArenaStatistics().recordBytes - recordsBefore;
  EXPECT_GT(records, std::size_t{2} << 20);
  EXPECT_LE(records, used() - before);
  // One layer kept from the released graph keeps its chunk, and stays whole.
  Ref<Layer> kept = graph.back()->layers()->front();
  const std::string keptText = test::encodeJson(kept);
  graph.clear();
  EXPECT_GT(used(), before);
  EXPECT_LT(used(), before + (std::size_t{5} << 20));
  // Only that layer's records (its own, its fills, ...) are counted still.
  EXPECT_GE(recordArenaStatistics().recordBytes, recordsBefore + sizeof(Layer));
  EXPECT_LT(recordArenaStatistics().recordBytes, recordsBefore + (std::size_t{64} << 10));
  EXPECT_EQ(test::encodeJson(kept), keptText);
  kept.reset();
  EXPECT_EQ(used(), before);
  EXPECT_EQ(recordArenaStatistics().recordBytes, recordsBefore);
}

TEST(RecordArena, RecordsReleasedOnAnotherThreadGiveTheirChunksBack) {
  const std::string json = manySnapshots(50);
  const std::size_t before = used();
  const std::size_t recordsBefore = recordArenaStatistics().recordBytes;
  auto graph = decodeMany(json);
  std::thread([g = std::move(graph)]() mutable { g.clear(); }).join();
  EXPECT_EQ(used(), before);
  EXPECT_EQ(recordArenaStatistics().recordBytes, recordsBefore);
}

TEST(RecordArena, AFailedDecodeLeavesNoChunkBehind) {
  // The last snapshot lacks its identifier: everything decoded before it is dropped.
  std::string json = manySnapshots(20);
  json.back() = ',';
  json += R"({"width":1,"height":1,"url":"a","layers":[]}])";
  const std::size_t before = used();
  EXPECT_THROW(decodeMany(json), DecodingError);
  EXPECT_EQ(used(), before);
}

TEST(RecordArena, ScopesNestAndCanBeTurnedOff) {
  const std::string json = manySnapshots(2);
  const std::size_t before = used();
  EXPECT_EQ(test::encodeJson(decodeMany(json, false)), test::encodeJson(decodeMany(json)));
  {
    auto unpacked = decodeMany(json, false);
    EXPECT_EQ(used(), before);
  }
  {
    RecordArenaScope outer;
    auto color = Color::make(1, 0, 0, 1);  // placed in the outer scope's chunk
    EXPECT_GT(used(), before);
    std::size_t outerOnly = used();
    {
      RecordArenaScope off(false);
      auto plain = Color::make(0, 1, 0, 1);
      EXPECT_EQ(used(), outerOnly);
    }
    auto inner = decodeMany(json);  // a chunk of its own
    EXPECT_GT(used(), outerOnly);
    auto another = Color::make(0, 0, 1, 1);  // the outer chunk again
    inner.clear();
    EXPECT_EQ(used(), outerOnly);
    EXPECT_EQ(color->red(), 1);
    EXPECT_EQ(another->blue(), 1);
  }
  EXPECT_EQ(used(), before);
}

#if defined(__SANITIZE_ADDRESS__)
#define ORVANE_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVANE_TEST_ASAN 1
#endif
#endif

TEST(RecordArenaDeathTest, ARecordUsedAfterItsReleaseIsReportedUnderTheSanitizer) {
#if defined(ORVANE_TEST_ASAN)
  RecordArenaScope scope;  // keeps the chunk in place
  auto color = Color::make(0.5, 0, 0, 1);
  auto neighbour = Color::make(0.25, 0, 0, 1);
  const Color* released = color.get();
  color.reset();
  EXPECT_EQ(neighbour->red(), 0.25);
  EXPECT_DEATH(
      {
        volatile double red = released->red();
        (void)red;
      },
      "use-after-poison");
#else
  GTEST_SKIP() << "only AddressSanitizer sees released records";
#endif
}
