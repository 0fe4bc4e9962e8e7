#include <orvane/project/Commit.hpp>

#include <orvane/project/Version.hpp>
#include <orvane/internal/MakeRef.hpp>

namespace orvane {

Ref<Commit> Commit::make(Ref<User> author, std::optional<std::string> message, Ref<Color> color) {
  return makeRef<Commit>(Passkey<Commit>{}, std::move(author), std::move(message),
                                  std::move(color));
}

Ref<Commit> Commit::decode(const Decoder& decoder) {
  using K = CodingKeys;
  auto c = decoder.container();
  auto author = c.decodeIfPresent<Ref<User>>(K::author);
  auto message = c.decodeStringIfPresent(K::message);
  auto color = c.decodeIfPresent<Ref<Color>>(K::color);
  return makeRef<Commit>(Passkey<Commit>{}, std::move(author), std::move(message),
                                  std::move(color));
}

void Commit::encode(Encoder& encoder) const {
  using K = CodingKeys;
  auto c = encoder.container();
  c.encodeIfPresent(K::author, author_);
  c.encodeIfPresent(K::message, message_);
  c.encodeIfPresent(K::color, color_);
}

void Commit::visitFields(FieldVisitor& v) const {
  v.field("author", author_);
  v.field("message", message_);
  v.field("color", color_);
  v.field("version", version_);
}

}  // namespace orvane
