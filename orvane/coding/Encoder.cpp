#include <orvane/coding/Encoder.hpp>

#include <orvane/coding/Coding.hpp>

namespace orvane {

EncoderBackend::~EncoderBackend() = default;

void detail::throwDecodeOnly(const Encoder& e) {
  throw EncodingError(e.codingPath(),
                      "A decode-only value has no encoding operation; only its document form "
                      "(EncodingForm::document) can be written.");
}

void EncoderBackend::memberString(int level, std::string_view key, std::string_view value) {
  member(level, key);
  writeString(value);
}
void EncoderBackend::memberDouble(int level, std::string_view key, double value,
                                  const CodingPathLink* parent) {
  member(level, key);
  CodingPathLink link{parent, key};
  writeDouble(value, &link);
}
void EncoderBackend::memberInt(int level, std::string_view key, std::int64_t value) {
  member(level, key);
  writeInt(value);
}
void EncoderBackend::memberBool(int level, std::string_view key, bool value) {
  member(level, key);
  writeBool(value);
}

SingleValueEncodingContainer Encoder::singleValueContainer() {
  return SingleValueEncodingContainer(*this);
}

void SingleValueEncodingContainer::begin() {
  encoder_->wroteScalar_ = true;
}

void SingleValueEncodingContainer::encodeNil() {
  begin();
  backend().writeNull();
}
void SingleValueEncodingContainer::encode(std::string_view value) {
  begin();
  backend().writeString(value);
}
void SingleValueEncodingContainer::encode(double value) {
  begin();
  backend().writeDouble(value, encoder_->pathLink());
}
void SingleValueEncodingContainer::encode(std::int64_t value) {
  begin();
  backend().writeInt(value);
}
void SingleValueEncodingContainer::encode(bool value) {
  begin();
  backend().writeBool(value);
}
void SingleValueEncodingContainer::encode(Date value) {
  begin();
  backend().writeDate(value, encoder_->pathLink());
}
void SingleValueEncodingContainer::encode(const Url& value) {
  begin();
  backend().writeUrl(value);
}

void KeyedEncodingContainer::encodeNil(std::string_view key) {
  backend_->member(level_, key);
  backend_->writeNull();
}

KeyedEncodingContainer KeyedEncodingContainer::nestedContainer(std::string_view key) {
  backend_->member(level_, key);
  int level = backend_->openObject();
  return KeyedEncodingContainer(*backend_, level, pathLink(), key);
}

UnkeyedEncodingContainer KeyedEncodingContainer::nestedUnkeyedContainer(std::string_view key) {
  backend_->member(level_, key);
  int level = backend_->openArray();
  return UnkeyedEncodingContainer(*backend_, level, pathLink(), key);
}

void KeyedEncodingContainer::encode(std::string_view key, Date value) {
  backend_->member(level_, key);
  CodingPathLink link{pathLink(), key};
  backend_->writeDate(value, &link);
}
void KeyedEncodingContainer::encode(std::string_view key, const Url& value) {
  backend_->member(level_, key);
  backend_->writeUrl(value);
}

}  // namespace orvane
