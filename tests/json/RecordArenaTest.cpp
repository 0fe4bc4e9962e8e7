// Records of a decode live in packed chunks: every chunk comes back once its records are
// released, whatever keeps them, from whichever thread, and however the decode ended.
#include <thread>

#include <gtest/gtest.h>

#include <orvane/coding/RecordArena.hpp>

#include "support/Records.hpp"

using namespace orvane;

using test::exampleSnapshots;
using Graph = std::vector<Ref<Snapshot>>;

namespace {

Graph decodeUnpacked(const std::string& json) {
  JsonDecoderOptions options;
  options.packRecords = false;
  return JsonDecoder(options).decode<Graph>(json);
}

}  // namespace

TEST(RecordArena, ChunksComeBackWhenTheirRecordsAreReleased) {
  JsonDecoder decoder;
  const auto& arena = decoder.recordArena();
  auto graph = decoder.decode<Graph>(exampleSnapshots(2000));
  const std::size_t used = arena.statistics().usedBytes;
  EXPECT_GT(used, std::size_t{2} << 20) << "several chunks filled";
  const std::size_t records = arena.statistics().recordBytes;
  EXPECT_GT(records, std::size_t{2} << 20);
  EXPECT_LE(records, used);
  // One layer kept from the released graph keeps its chunk, and stays whole.
  Ref<Layer> kept = graph.back()->layers()->front();
  const std::string keptText = test::encodeJson(kept);
  graph.clear();
  EXPECT_GT(arena.statistics().usedBytes, 0u);
  EXPECT_LT(arena.statistics().usedBytes, std::size_t{5} << 20);
  // Only that layer's records (its own, its fills, ...) are counted still.
  EXPECT_GE(arena.statistics().recordBytes, sizeof(Layer));
  EXPECT_LT(arena.statistics().recordBytes, std::size_t{64} << 10);
  EXPECT_EQ(test::encodeJson(kept), keptText);
  kept.reset();
  EXPECT_EQ(arena.statistics().usedBytes, 0u);
  EXPECT_EQ(arena.statistics().recordBytes, 0u);
}

TEST(RecordArena, EachDecoderKeepsItsOwnChunksAndReusesThem) {
  const std::string json = exampleSnapshots(600);
  JsonDecoder first, second;
  auto graph = first.decode<Graph>(json);
  EXPECT_GT(first.recordArena().statistics().usedBytes, 0u);
  EXPECT_EQ(second.recordArena().statistics().usedBytes, 0u);
  graph.clear();
  const std::size_t cached = first.recordArena().statistics().cachedBytes;
  EXPECT_GT(cached, 0u);
  EXPECT_EQ(second.recordArena().statistics().cachedBytes, 0u);
  // The next decode takes its chunks from the cache before the system.
  graph = first.decode<Graph>(json);
  EXPECT_LT(first.recordArena().statistics().cachedBytes, cached);
  graph.clear();
  first.recordArena().releaseCachedChunks();
  EXPECT_EQ(first.recordArena().statistics().cachedBytes, 0u);
}

TEST(RecordArena, RecordsOutliveTheirDecoderAndAnyThreadReleasesThem) {
  const std::string json = exampleSnapshots(50);
  Graph graph;
  {
    JsonDecoder decoder;
    graph = decoder.decode<Graph>(json);
    const std::size_t alone = decoder.recordArena().statistics().recordBytes;
    auto other = decoder.decode<Graph>(json);
    EXPECT_GT(decoder.recordArena().statistics().recordBytes, alone);
    std::thread([g = std::move(other)]() mutable { g.clear(); }).join();
    EXPECT_EQ(decoder.recordArena().statistics().recordBytes, alone);
  }
  // The chunks of a decoder that is gone go back to the system with their last record (the
  // sanitizer build reports a chunk lost or used after it is gone).
  EXPECT_EQ(test::encodeJson(graph), test::encodeJson(decodeUnpacked(json)));
  std::thread([g = std::move(graph)]() mutable { g.clear(); }).join();
}

TEST(RecordArena, AFailedDecodeLeavesNoChunkBehind) {
  // The last snapshot lacks its identifier: everything decoded before it is dropped.
  std::string json = exampleSnapshots(20);
  json.back() = ',';
  json += R"({"width":1,"height":1,"url":"a","layers":[]}])";
  JsonDecoder decoder;
  EXPECT_THROW(decoder.decode<Graph>(json), DecodingError);
  EXPECT_EQ(decoder.recordArena().statistics().usedBytes, 0u);
  EXPECT_EQ(decoder.recordArena().statistics().recordBytes, 0u);
}

TEST(RecordArena, ScopesNestAndCanBeTurnedOff) {
  const std::string json = exampleSnapshots(2);
  JsonDecoder decoder;
  EXPECT_EQ(test::encodeJson(decodeUnpacked(json)), test::encodeJson(decoder.decode<Graph>(json)));
  RecordArena arena;
  auto used = [&] { return arena.statistics().usedBytes; };
  auto color = [](double red) {
    return Color::make({.red = red, .green = 0, .blue = 0, .alpha = 1});
  };
  {
    RecordArenaScope outer(arena);
    auto first = color(1);  // placed in the outer scope's chunk
    const std::size_t outerOnly = used();
    EXPECT_GT(outerOnly, 0u);
    {
      RecordArenaScope off(arena, false);
      auto plain = color(0.5);
      EXPECT_EQ(used(), outerOnly);
    }
    {
      RecordArenaScope inner(arena);  // a chunk of its own
      auto nested = color(0.5);
      EXPECT_GT(used(), outerOnly);
    }
    auto another = color(0.25);  // the outer chunk again
    EXPECT_EQ(used(), outerOnly);
    EXPECT_EQ(first->red(), 1);
    EXPECT_EQ(another->red(), 0.25);
  }
  EXPECT_EQ(used(), 0u);
}

TEST(RecordArenaDeathTest, ARecordUsedAfterItsReleaseIsReportedUnderTheSanitizer) {
#if defined(ORVANE_TEST_ASAN)
  RecordArena arena;
  RecordArenaScope scope(arena);  // keeps the chunk in place
  auto color = Color::make({.red = 0.5, .green = 0, .blue = 0, .alpha = 1});
  auto neighbour = Color::make({.red = 0.25, .green = 0, .blue = 0, .alpha = 1});
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
