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
class Dot::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<Status>& status() const { return status_; }
  const std::optional<std::string>& name() const { return name_; }
  const std::optional<User::Partial>& creator() const { return creator_; }
  const std::optional<double>& x() const { return x_; }
  const std::optional<double>& y() const { return y_; }
  const Ref<Color>& color() const { return color_; }
  const std::optional<std::vector<Comment::Partial>>& comments() const { return comments_; }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<Status> status_;
  std::optional<std::string> name_;
  std::optional<User::Partial> creator_;
  std::optional<double> x_;
  std::optional<double> y_;
  Ref<Color> color_;
  std::optional<std::vector<Comment::Partial>> comments_;
};

}  // namespace orvane
