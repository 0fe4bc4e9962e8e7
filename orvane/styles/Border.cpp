#include <orvane/styles/Border.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_PLAIN_RECORD_DEFINE(Border, ORVANE_BORDER_FIELDS)

void Border::decodeFill(const Decoder& decoder, const KeyedDecodingContainer& c) {
  fill_ = Fill::decode(decoder, c);
}

void Border::encodeFill(KeyedEncodingContainer& c) const {
  if (fill_) fill_->encode(c);
}

void Border::documentFill(KeyedEncodingContainer& c) const {
  if (fill_) fill_->encodeDocument(c);
}

void Border::describeFill(SchemaVisitor& v) {
  v.membersOf(Schema<Fill>::shape);
}

}  // namespace orvane
