// How much memory decoding a large document takes, the whole process counted: the input, the
// parser's buffers, the graph and the output must not all be alive at once.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "generate.hpp"

extern char** environ;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif
#else
constexpr bool kSanitized = false;
#endif

// The peak resident memory of the tool decoding `file` as `type`, in bytes; its output goes to
// /dev/null, and its exit status to `status`.
long peakOfDecode(const std::string& type, const std::string& file, int& status) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  std::vector<std::string> args{ORVANE_TOOL, "decode", type, file};
  std::vector<char*> argv;
  for (auto& a : args) argv.push_back(a.data());
  argv.push_back(nullptr);
  pid_t pid = 0;
  int rc = posix_spawn(&pid, ORVANE_TOOL, &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) return -1;
  rusage usage{};
  wait4(pid, &status, 0, &usage);
  return usage.ru_maxrss * 1024L;
}

}  // namespace

// A 25 MB snapshot: measured at 5.8x the document's size (the text, the parser's tape and strings,
// and the records being built); 10% above that fails, so that a regression cannot come back
// unseen. Keeping the parser's buffers while writing the output was 9.4x.
TEST(PeakMemory, DecodingA25MegabyteSnapshotStaysWithinItsFigure) {
  if (kSanitized) GTEST_SKIP() << "the sanitizers' own memory says nothing here";
  constexpr double kFigure = 5.8;
  const double perLayer = double(orvane::bench::generateSnapshot(2000).size()) / 2000;
  const std::string document =
      orvane::bench::generateSnapshot(int(25'000'000 / perLayer));
  char path[] = "/tmp/orvane-peak-XXXXXX";
  int fd = mkstemp(path);
  ASSERT_GE(fd, 0);
  ASSERT_EQ(write(fd, document.data(), document.size()), ssize_t(document.size()));
  close(fd);
  int status = -1;
  long peak = peakOfDecode("Snapshot", path, status);
  unlink(path);
  ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  const double ratio = double(peak) / double(document.size());
  std::printf("peak %.1f MB for %.1f MB: %.2fx the document\n", peak / 1e6,
              document.size() / 1e6, ratio);
  EXPECT_LE(ratio, kFigure * 1.1);
}
