#include <orvane/styles/Fill.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

void Fill::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* c = asColor()) v.field("color", c->color);
  if (const auto* g = asGradient()) v.field("gradient", g->gradient);
}

ORVANE_PLAIN_RECORD_DEFINE(Fill, ORVANE_FILL_FIELDS)

Ref<Fill> Fill::decode(const Decoder& decoder, const KeyedDecodingContainer& c) {
  auto fill = makeRef<Fill>(Passkey<Fill>{});
  fill->decodeFields(decoder, c);
  return fill;
}

void Fill::encode(KeyedEncodingContainer& c) const {
  encodeFields(c);
}

void Fill::encodeDocument(KeyedEncodingContainer& c) const {
  documentFields(c);
}

void Fill::decodeKind(const Decoder&, const KeyedDecodingContainer& c) {
  auto key = c.decodeTolerant<Kind::Key>(CodingKeys::kind);
  if (!key) return;
  switch (*key) {
    case Kind::Key::color:
      kind_ = Kind::color(c.decode<Ref<Color>>(KindKeys::color));
      break;
    case Kind::Key::gradient:
      kind_ = Kind::gradient(c.decode<Ref<Gradient>>(KindKeys::gradient));
      break;
  }
}

// The payload is written as it is read: the case, then its member.
void Fill::documentKind(KeyedEncodingContainer& c) const {
  encodeKind(c);
}

void Fill::describeKind(SchemaVisitor& v) {
  v.member({CodingKeys::kind, SchemaRead::tolerant, "kind"}, Schema<Kind::Key>::shape);
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::color));
  v.member({KindKeys::color, SchemaRead::required, "kind.color"}, Schema<Ref<Color>>::shape);
  v.endCase();
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::gradient));
  v.member({KindKeys::gradient, SchemaRead::required, "kind.gradient"},
           Schema<Ref<Gradient>>::shape);
  v.endCase();
}

void Fill::encodeKind(KeyedEncodingContainer& c) const {
  if (!kind_) return;
  c.encode(CodingKeys::kind, kind_->key());
  if (const auto* color = kind_->asColor()) c.encode(KindKeys::color, color->color);
  if (const auto* gradient = kind_->asGradient()) c.encode(KindKeys::gradient, gradient->gradient);
}

}  // namespace orvane
