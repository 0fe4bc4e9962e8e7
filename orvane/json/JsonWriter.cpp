#include <orvane/json/JsonWriter.hpp>

#include <charconv>
#include <cmath>

namespace orvane {

void appendJsonString(std::string& out, std::string_view value) {
  static constexpr char hex[] = "0123456789abcdef";
  out += '"';
  std::size_t run = 0;  // start of the pending run that needs no escaping
  for (std::size_t i = 0; i < value.size(); ++i) {
    unsigned char c = static_cast<unsigned char>(value[i]);
    if (c >= 0x20 && c != '"' && c != '\\') continue;
    out.append(value.data() + run, i - run);
    run = i + 1;
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\b':
        out += "\\b";
        break;
      case '\f':
        out += "\\f";
        break;
      default:
        out += "\\u00";
        out += hex[c >> 4];
        out += hex[c & 0xF];
    }
  }
  out.append(value.data() + run, value.size() - run);
  out += '"';
}

void appendJsonNumber(std::string& out, double value) {
  if (value == 0 && std::signbit(value)) {
    // "-0" would read back as the integer zero and lose its sign.
    out += "-0.0";
    return;
  }
  char buf[32];
  // Integral text beyond 64 bits would read back as an integer too large for the parser.
  auto result = std::fabs(value) >= 1e18
                    ? std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific)
                    : std::to_chars(buf, buf + sizeof buf, value);
  out.append(buf, result.ptr);
}

void JsonWriter::newline() {
  *out_ += '\n';
  out_->append(2 * stack_.size(), ' ');
}

void JsonWriter::beforeValue() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (stack_.empty()) return;
  Frame& top = stack_.back();
  if (!top.empty) *out_ += ',';
  top.empty = false;
  if (pretty_) newline();
}

void JsonWriter::key(std::string_view name) {
  Frame& top = stack_.back();
  if (!top.empty) *out_ += ',';
  top.empty = false;
  if (pretty_) newline();
  appendJsonString(*out_, name);
  *out_ += pretty_ ? ": " : ":";
  afterKey_ = true;
}

void JsonWriter::beginObject() {
  beforeValue();
  *out_ += '{';
  stack_.push_back({true, true});
}

void JsonWriter::beginArray() {
  beforeValue();
  *out_ += '[';
  stack_.push_back({false, true});
}

void JsonWriter::endObject() {
  bool empty = stack_.back().empty;
  stack_.pop_back();
  if (pretty_ && !empty) newline();
  *out_ += '}';
}

void JsonWriter::endArray() {
  bool empty = stack_.back().empty;
  stack_.pop_back();
  if (pretty_ && !empty) newline();
  *out_ += ']';
}

void JsonWriter::null() {
  beforeValue();
  *out_ += "null";
}

void JsonWriter::boolean(bool value) {
  beforeValue();
  *out_ += value ? "true" : "false";
}

void JsonWriter::integer(std::int64_t value) {
  beforeValue();
  char buf[24];
  auto result = std::to_chars(buf, buf + sizeof buf, value);
  out_->append(buf, result.ptr);
}

void JsonWriter::number(double value) {
  beforeValue();
  appendJsonNumber(*out_, value);
}

void JsonWriter::string(std::string_view value) {
  beforeValue();
  appendJsonString(*out_, value);
}

void JsonFieldWriter::number(double value) {
  // A debug view must show every value it is given; JSON has no literal for these.
  if (std::isnan(value))
    writer_->string("nan");
  else if (std::isinf(value))
    writer_->string(value > 0 ? "inf" : "-inf");
  else
    writer_->number(value);
}

}  // namespace orvane
