#include <orvane/json/JsonEncoder.hpp>

#include <cmath>

#include <orvane/json/JsonWriter.hpp>
#include "DateText.hpp"

namespace orvane {

namespace {

class JsonEncoderBackend final : public EncoderBackend {
 public:
  JsonEncoderBackend(std::string& out, const JsonEncoderOptions& options)
      : writer_(out, options.pretty), dates_(options.dates) {}

  void writeKey(std::string_view key) override { writer_.key(key); }
  int openObject() override {
    writer_.beginObject();
    return ++depth_;
  }
  int openArray() override {
    writer_.beginArray();
    return ++depth_;
  }
  void closeTo(int level) override {
    for (; depth_ > level; --depth_) writer_.end();
  }

  void writeNull() override { writer_.null(); }
  void writeString(std::string_view value) override { writer_.string(value); }
  void writeBool(bool value) override { writer_.boolean(value); }
  void writeInt(std::int64_t value) override { writer_.integer(value); }
  void writeDouble(double value, const CodingPathLink* path) override {
    if (!std::isfinite(value)) {
      throw EncodingError(CodingPathLink::materialize(path),
                          "Unable to encode Double." +
                              std::string(std::isnan(value) ? "nan" : "inf") +
                              " directly in JSON.");
    }
    writer_.number(value);
  }
  void writeDate(Date value, const CodingPathLink* path) override {
    using namespace std::chrono;
    double micros = static_cast<double>(value.time_since_epoch().count());
    switch (dates_) {
      case DateStrategy::iso8601:
        writer_.string(formatIso8601(value));
        return;
      case DateStrategy::seconds:
        writeDouble(micros / 1e6, path);
        return;
      case DateStrategy::milliseconds:
        writeDouble(micros / 1e3, path);
        return;
      case DateStrategy::deferred:
        writeDouble(micros / 1e6 - kReferenceDateOffset, path);
        return;
    }
  }
  void writeUrl(const Url& value) override { writer_.string(value.text()); }

 private:
  JsonWriter writer_;
  DateStrategy dates_;
};

}  // namespace

void JsonEncoder::run(std::string& out, void (*fn)(Encoder&, const void*),
                      const void* value) const {
  JsonEncoderBackend backend(out, options_);
  Encoder root(backend, 0, nullptr);
  fn(root, value);
  root.finish();
}

}  // namespace orvane
