#include <orvane/project/Dot.hpp>

#include <orvane/project/Screen.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Dot::Dot(Passkey<Dot>, Identifier identifier, std::optional<Status> status, std::string name,
         Ref<User> creator, double x, double y, Ref<Color> color,
         std::vector<Ref<Comment>> comments)
    : identifier_(std::move(identifier)),
      status_(status),
      name_(std::move(name)),
      creator_(std::move(creator)),
      x_(x),
      y_(y),
      color_(std::move(color)),
      comments_(std::move(comments)) {}

Ref<Dot> Dot::make(std::optional<Status> status, std::string name, Ref<User> creator, double x,
                   double y, Ref<Color> color, std::vector<Ref<Comment>> comments,
                   Identifier identifier) {
  auto dot = makeRef<Dot>(Passkey<Dot>{}, std::move(identifier), status, std::move(name),
                                   std::move(creator), x, y, std::move(color), std::move(comments));
  dot->wireComments();
  return dot;
}

Ref<Dot> Dot::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto identifier = c.decode<Identifier>(K::identifier);
  auto status = c.decodeTolerant<Status>(K::status);
  auto name = c.decodeString(K::name);
  auto creator = c.decodeIfPresent<Ref<User>>(K::creator);
  auto x = c.decodeDouble(K::x);
  auto y = c.decodeDouble(K::y);
  auto color = c.decode<Ref<Color>>(K::color);
  auto comments = c.decode<std::vector<Ref<Comment>>>(K::comments);
  auto dot = makeRef<Dot>(Passkey<Dot>{}, std::move(identifier), status, std::move(name),
                                   std::move(creator), x, y, std::move(color), std::move(comments));
  dot->wireComments();
  return dot;
}

void Dot::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encode(K::x, x_);
  c.encode(K::y, y_);
  c.encode(K::color, color_);
  c.encode(K::comments, comments_);
}

void Dot::setComments(std::vector<Ref<Comment>> value) {
  comments_ = std::move(value);
  wireComments();
}

void Dot::wireComments() {
  auto self = shared_from_this();
  for (const auto& comment : comments_) {
    if (comment) comment->setDot(self);
  }
}

void Dot::visitFields(FieldVisitor& v) const {
  v.field("identifier", identifier_);
  v.field("status", status_);
  v.field("name", name_);
  v.field("creator", creator_);
  v.field("x", x_);
  v.field("y", y_);
  v.field("color", color_);
  v.field("comments", comments_);
  v.field("screen", screen_);
}

}  // namespace orvane
