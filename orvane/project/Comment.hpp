// One message in the conversation of a dot.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/people/User+Partial.hpp>
#include <orvane/people/User.hpp>

namespace orvane {

class Dot;

/// Refers back weakly to the dot that holds it. Only its note is ever written.
class Comment {
 public:
  struct CodingKeys {
    static constexpr std::string_view identifier = "_id";
    static constexpr std::string_view note = "note";
    static constexpr std::string_view author = "author";
    static constexpr std::string_view createDate = "created";
    static constexpr std::string_view updateDate = "updated";
  };

  class Partial;

  Comment(Passkey<Comment>, Identifier identifier, std::string note, Ref<User> author,
          Date createDate, Date updateDate)
      : identifier_(std::move(identifier)),
        note_(std::move(note)),
        author_(std::move(author)),
        createDate_(createDate),
        updateDate_(updateDate) {}

  static Ref<Comment> make(std::string note, Ref<User> author, Date updateDate,
                           Identifier identifier = Identifier::local(), Date createDate = now());
  static Ref<Comment> decode(const Decoder& decoder);
  void encode(Encoder& encoder) const;
  void visitFields(FieldVisitor& v) const;

  const Identifier& identifier() const { return identifier_; }
  void setIdentifier(Identifier value) { identifier_ = std::move(value); }
  const std::string& note() const { return note_; }
  void setNote(std::string value) { note_ = std::move(value); }
  const Ref<User>& author() const { return author_; }
  void setAuthor(Ref<User> value) { author_ = std::move(value); }
  Date createDate() const { return createDate_; }
  void setCreateDate(Date value) { createDate_ = value; }
  Date updateDate() const { return updateDate_; }
  void setUpdateDate(Date value) { updateDate_ = value; }
  /// The dot holding this comment; set by that dot, empty once it is gone.
  Ref<Dot> dot() const { return dot_.lock(); }
  void setDot(const Ref<Dot>& value) { dot_ = value; }

 private:
  Identifier identifier_;
  std::string note_;
  Ref<User> author_;
  Date createDate_;
  Date updateDate_;
  WeakRef<Dot> dot_;
};

/// The decode-only subset of a comment; every member optional.
class Comment::Partial {
 public:
  static Partial decode(const Decoder& decoder);
  void visitFields(FieldVisitor& v) const;

  const std::optional<Identifier>& identifier() const { return identifier_; }
  const std::optional<std::string>& note() const { return note_; }
  const std::optional<User::Partial>& author() const { return author_; }
  const std::optional<Date>& createDate() const { return createDate_; }
  const std::optional<Date>& updateDate() const { return updateDate_; }

 private:
  Partial() = default;

  std::optional<Identifier> identifier_;
  std::optional<std::string> note_;
  std::optional<User::Partial> author_;
  std::optional<Date> createDate_;
  std::optional<Date> updateDate_;
};

}  // namespace orvane
