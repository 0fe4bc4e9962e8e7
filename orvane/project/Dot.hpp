// A conversation pinned at a point of a screen.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User.hpp>
#include <orvane/project/Comment.hpp>
#include <orvane/values/Color.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

class Screen;

/// Owns its comments and points each back at itself; refers weakly to the screen it sits on.
class Dot : public std::enable_shared_from_this<Dot> {
 public:
#define ORVANE_DOT_STATUS(C) C(open, "open") C(resolved, "resolved")
  /// Whether the conversation is still open.
  ORVANE_ENUM(Status, ORVANE_DOT_STATUS)

  /// `setComments` points every comment back here; removed comments keep theirs. `screen` is
  /// set by the screen this dot sits on.
#define ORVANE_DOT_FIELDS(F)                                                                      \
  F(identifier, Identifier, Identifier, "_id", required, never, localId, plain)                   \
  F(status, Status, std::optional<Status>, "status", tolerant, never, given, plain)               \
  F(name, Name, std::string, "name", required, never, given, plain)                               \
  F(creator, Creator, Ref<User>, "creator", optional, never, given, plain)                        \
  F(x, X, double, "x", required, always, given, plain)                                            \
  F(y, Y, double, "y", required, always, given, plain)                                            \
  F(color, Color, Ref<orvane::Color>, "color", required, always, given, plain)                    \
  F(comments, Comments, std::vector<Ref<Comment>>, "comments", required, always, given, observed) \
  F(screen, Screen, WeakRef<orvane::Screen>, none, none, never, none, backRef)
  ORVANE_FIELDS(Dot, ORVANE_DOT_FIELDS)

 public:
  class Partial;

  /// The identifier defaults to a fresh local one; every comment is pointed back at the new dot.
  static Ref<Dot> make(Fields fields);
  /// An unknown "status" gives a dot without status, never a failure.
  static Ref<Dot> decode(const Decoder& decoder);
  /// Writes the position, the color and the comments, nothing else.
  void encode(Encoder& encoder) const;

  /// Changes the list in place, then wires it as an assignment would.
  template <class Fn>
  void editComments(Fn&& fn) {
    std::forward<Fn>(fn)(comments_);
    wireComments();
  }

 private:
  void wireComments();
};

ORVANE_ENUM_TRAITS(Dot::Status, "Status", ORVANE_DOT_STATUS, false)

}  // namespace orvane
