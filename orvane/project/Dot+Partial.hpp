// The decode-only subset of a dot that partial documents carry.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <orvane/people/User+Partial.hpp>
#include <orvane/project/Comment.hpp>
#include <orvane/project/Dot.hpp>

namespace orvane {

/// Every member optional; an unknown status is no status. Nothing refers back anywhere.
struct Dot::Partial {
  std::optional<Identifier> identifier;
  std::optional<Status> status;
  std::optional<std::string> name;
  std::optional<User::Partial> creator;
  std::optional<double> x;
  std::optional<double> y;
  Ref<Color> color;
  std::optional<std::vector<Comment::Partial>> comments;

  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;
};

}  // namespace orvane
