// Writes a generated document to standard output, for runs of the tool on large inputs:
//   orvane_generate project|snapshots|snapshot SIZE_MB [SEED]
// `snapshot` is one snapshot with one layer tree, at the bench's 1,560 layers a megabyte.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "generate.hpp"

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: orvane_generate project|snapshots|snapshot SIZE_MB [SEED]\n");
    return 2;
  }
  const std::string_view kind = argv[1];
  // Fractions of a megabyte make small documents, as fuzzing seeds want.
  const double megabytes = std::strtod(argv[2], nullptr);
  if (!(megabytes > 0 && megabytes < 1e6)) {
    std::fprintf(stderr, "orvane_generate: SIZE_MB must be a positive number\n");
    return 2;
  }
  const auto bytes = static_cast<std::size_t>(megabytes * (1 << 20));
  const std::uint64_t seed = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 42;
  std::string document;
  if (kind == "project") {
    document = orvane::bench::generateProject(bytes, seed);
  } else if (kind == "snapshots") {
    document = orvane::bench::generateSnapshots(bytes, seed);
  } else if (kind == "snapshot") {
    document = orvane::bench::generateSnapshot(static_cast<int>(megabytes * 1560), seed);
  } else {
    std::fprintf(stderr, "orvane_generate: unknown kind %s\n", argv[1]);
    return 2;
  }
  std::fwrite(document.data(), 1, document.size(), stdout);
  return 0;
}
