// Runs the corpus of documented tool invocations: each NAME.case file gives the arguments, the
// standard input, the files the tool is given, and the exact standard output, standard error and
// exit status expected.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#ifndef ORVANE_VERSION
#error "ORVANE_VERSION must be defined (the project version, which cases name as @VERSION@)"
#endif

extern char** environ;

namespace fs = std::filesystem;

namespace {

struct Case {
  std::vector<std::string> args;
  int exit = 0;
  std::string stdinText;
  std::optional<std::string> stdoutText;
  std::optional<std::string> stderrText;
  std::vector<std::pair<std::string, std::string>> files;  // name, contents
};

std::string readFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream s;
  s << in.rdbuf();
  return s.str();
}

bool parseCase(const std::string& text, Case& c, std::string& error) {
  std::istringstream in(text);
  std::string line;
  std::string* section = nullptr;
  std::optional<std::string> out, err;
  bool sawArgs = false;
  while (std::getline(in, line)) {
    if (line.rfind("--- ", 0) == 0) {
      std::string name = line.substr(4);
      if (name == "stdin")
        section = &c.stdinText;
      else if (name == "stdout")
        section = &out.emplace();
      else if (name == "stderr")
        section = &err.emplace();
      else if (name.rfind("file ", 0) == 0 && name.size() > 5 &&
               name.find('/') == std::string::npos) {
        section = &c.files.emplace_back(name.substr(5), std::string()).second;
      } else {
        error = "unknown section " + name;
        return false;
      }
      continue;
    }
    if (section) {
      *section += line;
      *section += '\n';
    } else if (line.rfind("args:", 0) == 0) {
      std::istringstream words(line.substr(5));
      for (std::string w; words >> w;) c.args.push_back(w);
      sawArgs = true;
    } else if (line.rfind("exit:", 0) == 0) {
      c.exit = std::stoi(line.substr(5));
    } else if (!line.empty() && line[0] != '#') {
      error = "unexpected header line: " + line;
      return false;
    }
  }
  // The version changes with every release; the cases say where it goes.
  for (auto* text : {&out, &err}) {
    if (!*text) continue;
    for (std::size_t at; (at = (*text)->find("@VERSION@")) != std::string::npos;)
      (*text)->replace(at, 9, ORVANE_VERSION);
  }
  c.stdoutText = out;
  c.stderrText = err;
  if (!sawArgs) error = "no args: line";
  return sawArgs;
}

// Runs the tool in a fresh folder that holds the case's files, so that they are named as given.
int run(const std::string& tool, const Case& c, std::string& out, std::string& err,
        const fs::path& scratch) {
  fs::path inPath = scratch / "stdin", outPath = scratch / "stdout", errPath = scratch / "stderr";
  fs::path work = scratch / "work";
  fs::remove_all(work);
  fs::create_directories(work);
  for (const auto& [name, contents] : c.files)
    std::ofstream(work / name, std::ios::binary) << contents;
  std::ofstream(inPath, std::ios::binary) << c.stdinText;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addchdir_np(&actions, work.c_str());
  posix_spawn_file_actions_addopen(&actions, 0, inPath.c_str(), O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, outPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  posix_spawn_file_actions_addopen(&actions, 2, errPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  std::vector<char*> argv{const_cast<char*>(tool.c_str())};
  for (const auto& a : c.args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  pid_t pid;
  int rc = posix_spawn(&pid, tool.c_str(), &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) return -1;
  int status = 0;
  waitpid(pid, &status, 0);
  out = readFile(outPath);
  err = readFile(errPath);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: corpus_runner TOOL DIRECTORY\n";
    return 2;
  }
  // Absolute: the tool runs in the folder of the case's files.
  std::string tool = fs::absolute(argv[1]).string();
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(argv[2])) {
    if (entry.path().extension() == ".case") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  fs::path scratch = fs::temp_directory_path() / ("orvane-corpus-" + std::to_string(getpid()));
  fs::create_directories(scratch);

  int passed = 0, failed = 0;
  for (const auto& file : files) {
    Case c;
    std::string error;
    std::string name = fs::relative(file, argv[2]).string();
    if (!parseCase(readFile(file), c, error)) {
      std::cout << "FAIL " << name << ": " << error << '\n';
      ++failed;
      continue;
    }
    std::string out, err;
    int status = run(tool, c, out, err, scratch);
    std::vector<std::string> problems;
    if (status != c.exit) {
      problems.push_back("exit status " + std::to_string(status) + ", expected " +
                         std::to_string(c.exit));
    }
    std::string expectedOut = c.stdoutText.value_or("");
    if (out != expectedOut)
      problems.push_back("stdout:\n  got:      " + out + "  expected: " + expectedOut);
    if (c.stderrText ? err != *c.stderrText : (c.exit == 0 && !err.empty())) {
      problems.push_back("stderr:\n  got:      " + err +
                         "  expected: " + c.stderrText.value_or("(nothing)\n"));
    }
    if (problems.empty()) {
      ++passed;
      continue;
    }
    ++failed;
    std::cout << "FAIL " << name << '\n';
    for (const auto& p : problems) std::cout << "  " << p << '\n';
  }
  fs::remove_all(scratch);
  std::cout << passed << " passed, " << failed << " failed\n";
  return failed == 0 && passed > 0 ? 0 : 1;
}
