#include <orvane/internal/FatalError.hpp>

#include <cstdio>
#include <cstdlib>

namespace orvane {

void fatalError(std::string_view message, std::string_view file, int line) {
  std::fprintf(stderr, "%.*s:%d: Fatal error: %.*s\n", static_cast<int>(file.size()), file.data(),
               line, static_cast<int>(message.size()), message.data());
  std::fflush(stderr);
  std::abort();
}

}  // namespace orvane
