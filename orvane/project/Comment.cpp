#include <orvane/project/Comment.hpp>

#include <orvane/project/Dot.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Comment> Comment::make(std::string note, Ref<User> author, Date updateDate,
                           Identifier identifier, Date createDate) {
  return makeRef<Comment>(Passkey<Comment>{}, std::move(identifier), std::move(note),
                          std::move(author), createDate, updateDate);
}

Ref<Comment> Comment::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto note = c.decodeString(K::note);
  auto author = c.decodeIfPresent<Ref<User>>(K::author);
  auto createDate = c.decodeDate(K::createDate);
  auto updateDate = c.decodeDate(K::updateDate);
  return makeRef<Comment>(Passkey<Comment>{}, std::move(identifier), std::move(note),
                          std::move(author), createDate, updateDate);
}

void Comment::encode(Encoder& encoder) const {
  encoder.container().encode(CodingKeys::note, note_);
}

void Comment::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("note", note_);
  v.field("author", author_);
  v.field("createDate", createDate_);
  v.field("updateDate", updateDate_);
  v.field("dot", dot_);
}

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
