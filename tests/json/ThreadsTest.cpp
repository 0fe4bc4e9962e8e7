// Decoders on several threads at once, and graphs released on threads other than the one that
// decoded them. Meant for the ThreadSanitizer build (preset `thread`), and run by every build.
#include <mutex>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/Records.hpp"

using namespace orvane;

using Graph = std::vector<Ref<Snapshot>>;

TEST(Threads, DecodersOnFourThreadsAndGraphsReleasedElsewhere) {
  const std::string json = test::exampleSnapshots(40);
  const std::string expected = test::encodeJson(JsonDecoder().decode<Graph>(json));
  JsonEncoderOptions documentForm;
  documentForm.form = EncodingForm::document;
  const std::string document = JsonEncoder(documentForm).encode(JsonDecoder().decode<Graph>(json));
  // Graphs handed from the thread that decoded them to whichever takes them next.
  std::mutex mutex;
  std::vector<Graph> handedOver;
  std::vector<std::string> failures(4);
  std::vector<std::thread> threads;
  for (int t = 0; t < 4; ++t) {
    threads.emplace_back([&, t] {
      JsonDecoderOptions options;
      options.packRecords = t % 2 == 0;  // packed and heap records side by side
      JsonDecoder decoder(options);
      for (int round = 0; round < 6; ++round) {
        Graph graph = decoder.decode<Graph>(json);
        if (test::encodeJson(graph) != expected) failures[t] = "round " + std::to_string(round);
        if (JsonEncoder(documentForm).encode(graph) != document)
          failures[t] = "document form, round " + std::to_string(round);
        // Snapshot observers and flattening touch every layer of a graph: do it here, then
        // leave the graph to another thread, and release one that another thread made.
        graph.front()->setLayers(graph.front()->layers());
        Graph other;
        {
          std::lock_guard lock(mutex);
          handedOver.push_back(std::move(graph));
          other = std::move(handedOver.front());  // one that was left before, while there is one
          handedOver.erase(handedOver.begin());
          if (handedOver.empty()) std::swap(other, handedOver.emplace_back());
        }
        other.clear();
      }
    });
  }
  for (auto& thread : threads) thread.join();
  for (int t = 0; t < 4; ++t) EXPECT_EQ(failures[t], "") << "thread " << t;
  handedOver.clear();
}
