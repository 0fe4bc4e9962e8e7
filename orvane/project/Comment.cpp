#include <orvane/project/Comment.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Dot.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Comment, ORVANE_COMMENT_FIELDS)

Comment::Partial Comment::Partial::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.note_ = c.decodeStringIfPresent(K::note);
  p.author_ = c.decodeIfPresent<User::Partial>(K::author);
  p.createDate_ = c.decodeDateIfPresent(K::createDate);
  p.updateDate_ = c.decodeDateIfPresent(K::updateDate);
  return p;
}

void Comment::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("note", note_);
  v.field("author", author_);
  v.field("createDate", createDate_);
  v.field("updateDate", updateDate_);
}

}  // namespace orvane
