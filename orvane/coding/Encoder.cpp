#include <orvane/coding/Encoder.hpp>

namespace orvane {

EncoderBackend::~EncoderBackend() = default;

KeyedEncodingContainer Encoder::container() {
  if (objectLevel_ < 0) objectLevel_ = backend_->openObject();
  return KeyedEncodingContainer(*backend_, objectLevel_, path_);
}

UnkeyedEncodingContainer Encoder::unkeyedContainer() {
  if (arrayLevel_ < 0) arrayLevel_ = backend_->openArray();
  return UnkeyedEncodingContainer(*backend_, arrayLevel_, path_);
}

SingleValueEncodingContainer Encoder::singleValueContainer() {
  return SingleValueEncodingContainer(*this);
}

void Encoder::finish() {
  if (objectLevel_ < 0 && arrayLevel_ < 0 && !wroteScalar_) {
    backend_->openObject();
  }
  backend_->closeAbove(level_);
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

void KeyedEncodingContainer::encode(std::string_view key, std::string_view value) {
  backend_->member(level_, key);
  backend_->writeString(value);
}
void KeyedEncodingContainer::encode(std::string_view key, double value) {
  backend_->member(level_, key);
  CodingPathLink link{pathLink(), key};
  backend_->writeDouble(value, &link);
}
void KeyedEncodingContainer::encode(std::string_view key, std::int64_t value) {
  backend_->member(level_, key);
  backend_->writeInt(value);
}
void KeyedEncodingContainer::encode(std::string_view key, bool value) {
  backend_->member(level_, key);
  backend_->writeBool(value);
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
