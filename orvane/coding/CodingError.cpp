#include <orvane/coding/CodingError.hpp>

namespace orvane {

std::string formatCodingPath(const CodingPath& path) {
  if (path.empty()) return "<root>";
  std::string out;
  for (const auto& entry : path) {
    if (entry.isIndex()) {
      out += '[';
      out += std::to_string(*entry.intValue());
      out += ']';
    } else {
      if (!out.empty()) out += '.';
      out += entry.stringValue();
    }
  }
  return out;
}

CodingPath CodingPathLink::materialize(const CodingPathLink* link) {
  std::size_t depth = 0;
  for (auto* l = link; l; l = l->parent) ++depth;
  CodingPath path;
  path.reserve(depth);
  for (auto* l = link; l; l = l->parent) {
    path.push_back(l->isIndex ? CodingPathEntry::index(l->index)
                              : CodingPathEntry::key(std::string(l->key)));
  }
  return CodingPath(path.rbegin(), path.rend());
}

std::string_view kindName(DecodingError::Kind kind) {
  switch (kind) {
    case DecodingError::Kind::keyNotFound:
      return "keyNotFound";
    case DecodingError::Kind::valueNotFound:
      return "valueNotFound";
    case DecodingError::Kind::typeMismatch:
      return "typeMismatch";
    case DecodingError::Kind::dataCorrupted:
      return "dataCorrupted";
  }
  return "dataCorrupted";
}

DecodingError::DecodingError(Kind kind, CodingPath codingPath, std::string description,
                             std::optional<std::string> key, std::exception_ptr underlying)
    : kind_(kind),
      codingPath_(std::move(codingPath)),
      key_(std::move(key)),
      description_(std::move(description)),
      underlying_(std::move(underlying)) {
  describe();
}

void DecodingError::setLocation(std::optional<TextLocation> location) {
  location_ = location;
  describe();
}

void DecodingError::setReason(std::optional<std::string> reason) {
  reason_ = std::move(reason);
  describe();
}

void DecodingError::setReasonAndLocation(std::optional<std::string> reason,
                                         std::optional<TextLocation> location) {
  reason_ = std::move(reason);
  location_ = location;
  describe();
}

void DecodingError::describe() {
  what_ =
      std::string(kindName(kind_)) + " at " + formatCodingPath(codingPath_) + ": " + description_;
  if (reason_) what_ += " (" + *reason_ + ")";
  if (location_) {
    what_ += " (line " + std::to_string(location_->line) + ", column " +
             std::to_string(location_->column) + ")";
  }
}

EncodingError::EncodingError(CodingPath codingPath, std::string description)
    : std::runtime_error("invalidValue at " + formatCodingPath(codingPath) + ": " + description),
      codingPath_(std::move(codingPath)),
      description_(std::move(description)) {}

}  // namespace orvane
