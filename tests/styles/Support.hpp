// JSON round-trip helpers shared by the style tests.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

namespace orvane::styles_test {

template <class T>
T decodeJson(std::string_view json) {
  return JsonDecoder().decode<T>(json);
}

template <class T>
std::string encodeJson(const T& value) {
  return JsonEncoder().encode(value);
}

/// Decodes and writes back: what a record keeps of a document.
template <class T>
std::string roundTrip(std::string_view json) {
  return encodeJson(decodeJson<T>(json));
}

/// The error a document fails with; a test failure when it decodes.
template <class T>
DecodingError decodeError(std::string_view json) {
  try {
    decodeJson<T>(json);
  } catch (const DecodingError& e) {
    return e;
  }
  ADD_FAILURE() << "decoding succeeded: " << json;
  return DecodingError(DecodingError::Kind::dataCorrupted, {}, "none");
}

inline std::string pathOf(const DecodingError& e) {
  return formatCodingPath(e.codingPath());
}

}  // namespace orvane::styles_test
