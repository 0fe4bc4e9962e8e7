#include "Output.hpp"

#include <cerrno>

namespace orvane::tool {

namespace {

// The errno of a failed stdio call; stdio sets it, but a failure must never read as success.
int lastError() {
  return errno != 0 ? errno : EIO;
}

}  // namespace

void Output::write(std::string_view text) {
  if (error_ != 0 || closed_ || text.empty()) return;
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), file_) != text.size()) error_ = lastError();
}

int Output::close() {
  if (closed_) return error_;
  closed_ = true;
  errno = 0;
  if (std::fflush(file_) != 0 && error_ == 0) error_ = lastError();
  // Failed in a flush of someone else's (the C++ streams share the file), whose reason is gone.
  if (std::ferror(file_) && error_ == 0) error_ = EIO;
  errno = 0;
  if (std::fclose(file_) != 0 && error_ == 0) error_ = lastError();
  return error_;
}

}  // namespace orvane::tool
