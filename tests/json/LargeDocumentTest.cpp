// A document of several hundred megabytes decodes to the same graph as its parts, within a
// bounded multiple of its size. Skipped under sanitizers, whose shadow memory and slowdown would
// measure them rather than us; ORVANE_LARGE_MB sets the size (0 skips).
#include <sys/resource.h>

#include <cstdlib>

#include <gtest/gtest.h>

#include "support/Records.hpp"

using namespace orvane;

namespace {

#if defined(ORVANE_TEST_ASAN)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

std::size_t largeDocumentBytes() {
  const char* env = std::getenv("ORVANE_LARGE_MB");
  long megabytes = env ? std::atol(env) : 300;
  return megabytes > 0 ? static_cast<std::size_t>(megabytes) << 20 : 0;
}

long peakResidentBytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss * 1024L;
}

}  // namespace

TEST(LargeDocument, SeveralHundredMegabytesDecodeLikeTheirParts) {
  const std::size_t target = largeDocumentBytes();
  if (kSanitized || target == 0) GTEST_SKIP() << "large document disabled here";

  const std::string part = test::exampleSnapshots();
  ASSERT_FALSE(part.empty());
  const auto single = test::decodeJson<Ref<Snapshot>>(part);
  const std::string singleWritten = test::encodeJson(single);

  const long before = peakResidentBytes();
  const std::size_t count = target / (part.size() + 1) + 1;
  std::string document;
  document.reserve(count * (part.size() + 1) + 2);
  document += '[';
  for (std::size_t i = 0; i < count; ++i) {
    if (i) document += ',';
    document += part;
  }
  document += ']';

  std::vector<Ref<Snapshot>> snapshots;
  {
    JsonDecoder decoder;
    snapshots = decoder.decode<std::vector<Ref<Snapshot>>>(document);
  }
  const long peak = peakResidentBytes();
  ASSERT_EQ(snapshots.size(), count);

  // Every part decodes to the same graph, wired to its own snapshot.
  for (std::size_t i : {std::size_t{0}, count / 2, count - 1}) {
    const auto& snapshot = snapshots[i];
    ASSERT_TRUE(snapshot->flattenedLayers());
    ASSERT_EQ(snapshot->flattenedLayers()->size(), single->flattenedLayers()->size());
    for (const auto& layer : *snapshot->flattenedLayers()) EXPECT_EQ(layer->snapshot(), snapshot);
    EXPECT_EQ(test::encodeJson(snapshot), singleWritten);
  }

  // The whole graph writes back as the parts do, without losing or reordering one of them.
  const std::string written = test::encodeJson(snapshots);
  EXPECT_EQ(written.size(), count * (singleWritten.size() + 1) + 1);
  EXPECT_EQ(written.substr(1, singleWritten.size()), singleWritten);
  EXPECT_EQ(written.substr(written.size() - 1 - singleWritten.size(), singleWritten.size()),
            singleWritten);

  // The document, the parser's tape and the graph together stay within a fixed multiple of the
  // document; a leak or a quadratic buffer would not.
  EXPECT_LT(peak - before, static_cast<long>(12 * document.size()))
      << "peak grew by " << (peak - before) / (1 << 20) << " MB for "
      << document.size() / (1 << 20) << " MB";
}
