#include <orvane/styles/Border.hpp>

#include <orvane/internal/MakeRef.hpp>

namespace orvane {

ORVANE_FIELDS_DEFINE(Border, ORVANE_BORDER_FIELDS)

Ref<Border> Border::make(Fields fields) {
  auto border = makeRef<Border>(Passkey<Border>{});
  border->storeFields(std::move(fields));
  return border;
}

Ref<Border> Border::decode(const Decoder& decoder) {
  auto border = makeRef<Border>(Passkey<Border>{});
  border->decodeFields(decoder, decoder.container());
  border->fill_ = Fill::decode(decoder);
  return border;
}

void Border::encode(Encoder& encoder) const {
  auto c = encoder.container();
  encodeFields(c);
  if (fill_) fill_->encode(encoder);
}

}  // namespace orvane
