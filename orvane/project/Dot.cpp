#include <orvane/project/Dot.hpp>

#include <orvane/internal/MakeRef.hpp>
#include <orvane/project/Screen.hpp>

namespace orvane {

ORVANE_FIELDS_DEFINE(Dot, ORVANE_DOT_FIELDS)

Ref<Dot> Dot::make(Fields fields) {
  auto dot = makeRef<Dot>(Passkey<Dot>{});
  dot->storeFields(std::move(fields));
  dot->wireComments();
  return dot;
}

Ref<Dot> Dot::decode(const Decoder& decoder) {
  auto dot = makeRef<Dot>(Passkey<Dot>{});
  dot->decodeFields(decoder, decoder.container());
  dot->wireComments();
  return dot;
}

void Dot::encode(Encoder& encoder) const {
  auto c = encoder.container();
  encodeFields(c);
}

// Removed comments keep their back-reference to this dot.
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

}  // namespace orvane
