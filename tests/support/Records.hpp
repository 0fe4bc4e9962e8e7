// Decoding and encoding helpers shared by the record tests.
#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include <orvane/json/JsonDecoder.hpp>
#include <orvane/json/JsonEncoder.hpp>
#include <orvane/orvane.hpp>

// Whether AddressSanitizer is on: some tests measure memory or see released records only
// without it, or only with it.
#if defined(__SANITIZE_ADDRESS__)
#define ORVANE_TEST_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVANE_TEST_ASAN 1
#endif
#endif

namespace orvane::test {

/// Options whose user info holds the import flag.
inline JsonDecoderOptions importOptions() {
  JsonDecoderOptions options;
  options.userInfo[CodingUserInfoKey::fromImportSource()] = true;
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

/// The example snapshot document; with `copies`, that many of it in one array.
inline std::string exampleSnapshots(int copies = 0) {
  std::ifstream in(ORVANE_SOURCE_DIR "/examples/snapshot.json", std::ios::binary);
  std::string part{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  if (copies == 0) return part;
  std::string json = "[";
  for (int i = 0; i < copies; ++i) json += (i ? "," : "") + part;
  return json + "]";
}

}  // namespace orvane::test
