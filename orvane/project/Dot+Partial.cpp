#include <orvane/project/Dot+Partial.hpp>

namespace orvane {

Dot::Partial Dot::Partial::decode(const Decoder& decoder) {
  using K = Dot::CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier_ = c.decodeIfPresent<Identifier>(K::identifier);
  p.status_ = c.decodeTolerant<Status>(K::status);
  p.name_ = c.decodeStringIfPresent(K::name);
  p.creator_ = c.decodeIfPresent<User::Partial>(K::creator);
  p.x_ = c.decodeDoubleIfPresent(K::x);
  p.y_ = c.decodeDoubleIfPresent(K::y);
  p.color_ = c.decodeIfPresent<Ref<Color>>(K::color);
  p.comments_ = c.decodeIfPresent<std::vector<Comment::Partial>>(K::comments);
  return p;
}

void Dot::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("status", status_);
  v.field("name", name_);
  v.field("creator", creator_);
  v.field("x", x_);
  v.field("y", y_);
  v.field("color", color_);
  v.field("comments", comments_);
}

}  // namespace orvane
