// One message in the conversation of a dot.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User+Partial.hpp>
#include <orvane/people/User.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Identifier.hpp>

namespace orvane {

class Dot;

/// Refers back weakly to the dot that holds it. Only its note is ever written.
class Comment {
 public:
#define ORVANE_COMMENT_FIELDS(F)                                                  \
  F(identifier, Identifier, Identifier, "_id", required, never, localId, plain)   \
  F(note, Note, std::string, "note", required, always, given, plain)              \
  F(author, Author, Ref<User>, "author", optional, never, given, plain)           \
  F(createDate, CreateDate, Date, "created", required, never, currentDate, plain) \
  F(updateDate, UpdateDate, Date, "updated", required, never, given, plain)       \
  F(dot, Dot, WeakRef<orvane::Dot>, none, none, never, none, backRef)
  ORVANE_FIELDS(Comment, ORVANE_COMMENT_FIELDS)

 public:
  class Partial;

  /// The identifier defaults to a fresh local one and the creation date to now; `dot` stays
  /// empty until a dot adopts the comment.
  static Ref<Comment> make(Fields fields);
  /// Fails without "_id", "note", "created" or "updated"; "author" may be missing.
  static Ref<Comment> decode(const Decoder& decoder);
  /// Writes "note", nothing else.
  void encode(Encoder& encoder) const;
};

/// The decode-only subset of a comment; every member optional.
class Comment::Partial {
#define ORVANE_COMMENT_PARTIAL_FIELDS(P)                                   \
  P(identifier, Identifier, std::optional<Identifier>, optional, readOnly) \
  P(note, Note, std::optional<std::string>, optional, readOnly)            \
  P(author, Author, std::optional<User::Partial>, optional, readOnly)      \
  P(createDate, CreateDate, std::optional<Date>, optional, readOnly)       \
  P(updateDate, UpdateDate, std::optional<Date>, optional, readOnly)
  ORVANE_PARTIAL_FIELDS(ORVANE_COMMENT_PARTIAL_FIELDS)
};

}  // namespace orvane
