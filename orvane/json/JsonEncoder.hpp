// Writes any encodable value as JSON text.
#pragma once

#include <string>
#include <string_view>

#include <orvane/coding/Coding.hpp>
#include <orvane/json/DateStrategy.hpp>

namespace orvane {

/// How a JsonEncoder writes: which members, dates, and compact or indented text.
struct JsonEncoderOptions {
  /// How dates are written: ISO 8601 text in UTC unless told otherwise.
  DateStrategy dates = DateStrategy::iso8601;
  /// Indent by two spaces instead of writing compact text.
  bool pretty = false;
  /// What the records write. `records` (the default): what each record's encoding operation
  /// writes, the members the client sends back to the service. `document`: the document form,
  /// every member that decoding reads, which a JsonDecoder with the same date strategy reads
  /// back into an equal graph; use it to save a decoded graph and read it again.
  EncodingForm form = EncodingForm::records;
};

/// Where `JsonEncoder::encodeTo` hands the text, in pieces of about 64 KiB as it is made.
class JsonSink {
 public:
  /// The next piece of the text. An exception thrown here ends the encoding and reaches the
  /// caller of `encodeTo`.
  virtual void write(std::string_view text) = 0;

 protected:
  ~JsonSink() = default;
};

/// Streams a value's members straight into a string, in the order its encoding writes them:
/// by default each record's encoding operation, or with `form = EncodingForm::document` the
/// document form (decode-only records included). Raises EncodingError for a non-finite number,
/// and for a decode-only value unless writing the document form.
class JsonEncoder {
 public:
  /// Keeps `options` for every encode.
  explicit JsonEncoder(JsonEncoderOptions options = {}) : options_(options) {}

  /// The JSON text of `value`, as `Coding<T>` writes it; raises EncodingError for a non-finite
  /// number.
  template <class T>
  std::string encode(const T& value) const {
    std::string out;
    encodeInto(out, value);
    return out;
  }

  /// Appends the JSON text of `value` to `out`; when the encoding fails, `out` is left as it was.
  template <class T>
  void encodeInto(std::string& out, const T& value) const {
    run(out, nullptr, &encodeValue<T>, &value);
  }

  /// Hands the JSON text of `value` to `sink` as it is made, so that a large text is never held
  /// whole: the same bytes as `encode`. When the encoding fails, the pieces handed over before
  /// stay with the sink, which the caller must then discard.
  template <class T>
  void encodeTo(JsonSink& sink, const T& value) const {
    std::string buffer;
    run(buffer, &sink, &encodeValue<T>, &value);
  }

 private:
  template <class T>
  static void encodeValue(Encoder& e, const void* v) {
    Coding<T>::encode(e, *static_cast<const T*>(v));
  }
  void run(std::string& out, JsonSink* sink, void (*fn)(Encoder&, const void*),
           const void* value) const;
  JsonEncoderOptions options_;
};

}  // namespace orvane
