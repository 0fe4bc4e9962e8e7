// Resource addresses as the records hold them.
#pragma once

#include <string>

namespace orvane {

/// A resource address. Holds its text unchanged; the coder checks that the text is a valid
/// URI reference when it reads one.
class Url {
 public:
  Url() = default;
  /// Takes the text as it is; made by hand, an address is not checked.
  explicit Url(std::string text) : text_(std::move(text)) {}
  /// The address as it was given or read.
  const std::string& text() const { return text_; }
  /// Compares the text byte for byte: no normalization.
  bool operator==(const Url&) const = default;

 private:
  std::string text_;
};

}  // namespace orvane
