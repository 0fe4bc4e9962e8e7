// Decoding and encoding helpers shared by the record tests.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

namespace orvane::test {

inline JsonDecoderOptions importOptions(bool fromImportSource = true) {
  JsonDecoderOptions options;
  options.userInfo[CodingUserInfoKey::fromImportSource()] = fromImportSource;
  return options;
}

template <class T>
T decodeJson(std::string_view json, JsonDecoderOptions options = {}) {
  return JsonDecoder(std::move(options)).decode<T>(json);
}

template <class T>
std::string encodeJson(const T& value) {
  return JsonEncoder().encode(value);
}

/// Decodes and writes back: what a record keeps of a document.
template <class T>
std::string roundTrip(std::string_view json, JsonDecoderOptions options = {}) {
  return encodeJson(decodeJson<T>(json, std::move(options)));
}

/// The error a document fails with; a test failure when it decodes.
template <class T>
DecodingError decodeError(std::string_view json, JsonDecoderOptions options = {}) {
  try {
    decodeJson<T>(json, std::move(options));
  } catch (const DecodingError& e) {
    return e;
  }
  ADD_FAILURE() << "decoding succeeded: " << json;
  return DecodingError(DecodingError::Kind::dataCorrupted, {}, "none");
}

inline std::string pathOf(const DecodingError& e) {
  return formatCodingPath(e.codingPath());
}

}  // namespace orvane::test
