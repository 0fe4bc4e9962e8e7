#include <orvane/snapshot/Destination.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

void Destination::Kind::visitFields(FieldVisitor& v) const {
  v.field("case", key());
  if (const auto* screen = asScreen()) v.field("name", screen->name);
}

ORVANE_PLAIN_RECORD_DEFINE(Destination, ORVANE_DESTINATION_FIELDS)

void Destination::decodeKind(const Decoder&, const KeyedDecodingContainer& c) {
  auto key = c.decodeTolerant<Kind::Key>(CodingKeys::kind);
  if (!key) return;
  switch (*key) {
    case Kind::Key::previous:
      kind_ = Kind::previous();
      break;
    case Kind::Key::screen:
      kind_ = Kind::screen(c.decodeString(KindKeys::name));
      break;
  }
}

// The payload is written as it is read: the case, then its member.
void Destination::documentKind(KeyedEncodingContainer& c) const {
  encodeKind(c);
}

void Destination::describeKind(SchemaVisitor& v) {
  v.member({CodingKeys::kind, SchemaRead::tolerant, "kind"}, Schema<Kind::Key>::shape);
  v.beginCase(CodingKeys::kind, rawValue(Kind::Key::screen));
  v.member({KindKeys::name, SchemaRead::required, "kind.name"}, Schema<std::string>::shape);
  v.endCase();
}

void Destination::encodeKind(KeyedEncodingContainer& c) const {
  if (!kind_) return;
  c.encode(CodingKeys::kind, kind_->key());
  if (const auto* screen = kind_->asScreen()) c.encode(KindKeys::name, screen->name);
}

}  // namespace orvane
