// The tool's output can be lost (a full disk, a reader that went away): every command must then
// say so and exit with 3, never exit 0 nor die of a signal.
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

extern char** environ;

namespace {

enum class Sink { file, full, closedPipe };

struct ToolRun {
  int status;  // the exit status, or 128 + the signal
  std::string err;
};

std::string readAll(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

// Runs the tool with standard input from `input` and standard output into `sink`. SIGPIPE is
// reset to its default in the child, so that a tool that does not ignore it dies of it.
ToolRun runTool(const std::vector<std::string>& args, const std::string& input, Sink sink) {
  char errPath[] = "/tmp/orvane-write-failure-XXXXXX";
  int errFd = mkstemp(errPath);
  char outPath[] = "/tmp/orvane-write-output-XXXXXX";
  int outFd = sink == Sink::file ? mkstemp(outPath) : -1;
  int pipeFds[2] = {-1, -1};
  if (sink == Sink::full) outFd = open("/dev/full", O_WRONLY);
  if (sink == Sink::closedPipe) {
    if (pipe(pipeFds) != 0) return {-1, "pipe failed"};
    close(pipeFds[0]);
    outFd = pipeFds[1];
  }

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, input.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, outFd, 1);
  posix_spawn_file_actions_adddup2(&actions, errFd, 2);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  sigset_t defaults;
  sigemptyset(&defaults);
  sigaddset(&defaults, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &defaults);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);

  std::vector<char*> argv{const_cast<char*>(ORVANE_TOOL)};
  for (const auto& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  pid_t pid;
  int rc = posix_spawn(&pid, ORVANE_TOOL, &actions, &attributes, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  posix_spawnattr_destroy(&attributes);
  close(outFd);
  close(errFd);
  ToolRun run{-1, ""};
  if (rc == 0) {
    int status = 0;
    waitpid(pid, &status, 0);
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  }
  run.err = readAll(errPath);
  unlink(errPath);
  if (sink == Sink::file) unlink(outPath);
  return run;
}

}  // namespace

TEST(WriteFailures, EveryCommandThatWritesExitsWith3AndSaysWhy) {
  const std::string snapshot = ORVANE_SOURCE_DIR "/examples/snapshot.json";
  char density[] = "/tmp/orvane-density-XXXXXX";
  close(mkstemp(density));
  std::ofstream(density) << "\"HDPI\"";
  struct Case {
    std::vector<std::string> args;
    std::string input;
    int status;  // when the output is written
  };
  const Case cases[] = {
      {{"types"}, "/dev/null", 0},
      {{"--version"}, "/dev/null", 0},
      {{"decode", "--help"}, "/dev/null", 0},
      {{"decode", "Snapshot"}, snapshot, 0},
      {{"decode", "Snapshot", "--document"}, snapshot, 0},
      {{"schema", "Project", "--pretty"}, "/dev/null", 0},
      {{"dump", "Snapshot", "--pretty"}, snapshot, 0},
      {{"check", "Snapshot", snapshot, "-", snapshot}, snapshot, 0},
      {{"check", "Snapshot", "-", "--json-errors"}, "/dev/null", 1},
      {{"decode", "Density", "--json-errors"}, density, 1},
  };
  const std::pair<Sink, int> lost[] = {{Sink::full, ENOSPC}, {Sink::closedPipe, EPIPE}};
  for (const auto& c : cases) {
    std::string name;
    for (const auto& a : c.args) name += a + " ";
    SCOPED_TRACE(name);
    ToolRun written = runTool(c.args, c.input, Sink::file);
    EXPECT_EQ(written.status, c.status);
    EXPECT_EQ(written.err.find("cannot write output"), std::string::npos) << written.err;
    for (auto [sink, error] : lost) {
      ToolRun run = runTool(c.args, c.input, sink);
      EXPECT_EQ(run.status, 3) << run.err;
      std::string last = "error: cannot write output: " + std::string(std::strerror(error)) + "\n";
      ASSERT_GE(run.err.size(), last.size()) << run.err;
      EXPECT_EQ(run.err.substr(run.err.size() - last.size()), last);
    }
  }
  unlink(density);
}

TEST(WriteFailures, NothingWrittenIsNoFailure) {
  // A document that does not decode writes nothing to standard output: its status is 1.
  ToolRun run = runTool({"decode", "Density"}, "/dev/null", Sink::full);
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.err,
            "error: dataCorrupted at <root>: The given data was not valid JSON. (Empty: no JSON "
            "found) (line 1, column 1)\n");
}
