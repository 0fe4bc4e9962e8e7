// Standard output, written through one place so that a failed write is noticed: a full disk or
// a reader that went away loses the result, which the tool must say (exit status 3).
#pragma once

#include <cstdio>
#include <string_view>

#include <orvane/json/JsonEncoder.hpp>

namespace orvane::tool {

class Output {
 public:
  explicit Output(std::FILE* file = stdout) : file_(file) {}
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  /// Writes `text`, unless an earlier write failed: nothing after a lost part is worth writing.
  void write(std::string_view text);
  /// Whether every write so far went through (buffered text may still fail on `close`).
  bool ok() const { return error_ == 0; }
  /// Flushes and closes the file; returns 0, or the errno of the first failure.
  int close();

 private:
  std::FILE* file_;
  int error_ = 0;
  bool closed_ = false;
};

/// An encoder's text, written to an Output as it is made.
class OutputSink final : public JsonSink {
 public:
  explicit OutputSink(Output& out) : out_(&out) {}
  void write(std::string_view text) override { out_->write(text); }

 private:
  Output* out_;
};

}  // namespace orvane::tool
