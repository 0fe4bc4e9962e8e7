// Decodes the border in the file given and prints what it writes back, through the installed
// headers and libraries only.
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: app BORDER.json\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  if (!in) {
    std::cerr << "app: cannot read " << argv[1] << '\n';
    return 2;
  }
  std::string json{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};

  try {
    orvane::JsonDecoder decoder;  // one per thread; keeps its buffers
    auto border = decoder.decode<orvane::Ref<orvane::Border>>(json);
    std::string back = orvane::JsonEncoder().encode(border);
    std::cout << back << '\n';
  } catch (const orvane::DecodingError& error) {
    std::cerr << "app: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
