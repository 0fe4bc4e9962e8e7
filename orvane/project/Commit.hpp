// The description that may come with a version: who made the change, why, and a color label.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Fields.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/people/User.hpp>
#include <orvane/values/Color.hpp>

namespace orvane {

class Version;

/// A commit refers back weakly to the version that adopted it; it has no identity of its own.
class Commit {
 public:
#define ORVANE_COMMIT_FIELDS(F)                                                                   \
  F(author, Author, Ref<User>, "author", optional, whenPresent, given, plain)                     \
  F(message, Message, std::optional<std::string>, "message", optional, whenPresent, given, plain) \
  F(color, Color, Ref<orvane::Color>, "color", optional, whenPresent, given, plain)               \
  F(version, Version, WeakRef<orvane::Version>, none, none, never, none, backRef)
  ORVANE_FIELDS(Commit, ORVANE_COMMIT_FIELDS)

 public:
  /// Takes author, message and color, each of which may be empty; `version` stays empty until
  /// a version adopts the commit.
  static Ref<Commit> make(Fields fields);
  /// Every key is optional: an empty object is a commit without author, message or color.
  static Ref<Commit> decode(const Decoder& decoder);
  /// Writes "author", "message" and "color", each when present.
  void encode(Encoder& encoder) const;
};

}  // namespace orvane
