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
#define ORVANE_DOT_PARTIAL_FIELDS(P)                                       \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly) \
  P(status, Status, std::optional<Status>, tolerant, readOnly)             \
  P(name, Name, std::optional<std::string>, optional, readOnly)            \
  P(creator, Creator, std::optional<User::Partial>, optional, readOnly)    \
  P(x, X, std::optional<double>, optional, readOnly)                       \
  P(y, Y, std::optional<double>, optional, readOnly)                       \
  P(color, Color, Ref<orvane::Color>, optional, readOnly)                  \
  P(comments, Comments, std::optional<std::vector<Comment::Partial>>, optional, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_DOT_PARTIAL_FIELDS)
};

}  // namespace orvane
