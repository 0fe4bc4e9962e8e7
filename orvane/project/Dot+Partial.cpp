#include <orvane/project/Dot+Partial.hpp>

namespace orvane {

Dot::Partial Dot::Partial::decode(const Decoder& decoder) {
  using K = Dot::CodingKeys;
  auto c = decoder.container();
  Partial p;
  p.identifier = c.decodeIfPresent<Identifier>(K::identifier);
  p.status = c.decodeTolerant<Status>(K::status);
  p.name = c.decodeStringIfPresent(K::name);
  p.creator = c.decodeIfPresent<User::Partial>(K::creator);
  p.x = c.decodeDoubleIfPresent(K::x);
  p.y = c.decodeDoubleIfPresent(K::y);
  p.color = c.decodeIfPresent<Ref<Color>>(K::color);
  p.comments = c.decodeIfPresent<std::vector<Comment::Partial>>(K::comments);
  return p;
}

void Dot::Partial::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier);
  v.field("status", status);
  v.field("name", name);
  v.field("creator", creator);
  v.field("x", x);
  v.field("y", y);
  v.field("color", color);
  v.field("comments", comments);
}

}  // namespace orvane
