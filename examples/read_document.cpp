// Reads a snapshot document from a file and reports what it holds, or where it is wrong: a
// decoding error names the key path and the line and column of the text.
//   read_document SNAPSHOT.json
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/orvane.hpp>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: read_document SNAPSHOT.json\n");
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::string json{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (!in) {
    std::fprintf(stderr, "read_document: cannot read %s\n", argv[1]);
    return 2;
  }
  try {
    orvane::JsonDecoder decoder;  // keeps its buffers: reuse it for the next document
    auto snapshot = decoder.decode<orvane::Ref<orvane::Snapshot>>(json);
    auto layers = snapshot->flattenedLayers();
    std::printf("%g x %g, %zu layers drawn, %zu assets\n", snapshot->size().width,
                snapshot->size().height, layers ? layers->size() : 0,
                snapshot->assets() ? snapshot->assets()->size() : 0);
  } catch (const orvane::DecodingError& error) {
    std::fprintf(stderr, "read_document: %s\n", error.what());
    return 1;
  }
  return 0;
}
