// A streaming JSON writer: compact or indented, members in the order they are written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/FieldVisitor.hpp>

namespace orvane {

/// Writes straight into the buffer of `out`, which it grows ahead of the text: while a container
/// is open, `out` is longer than the text and must not be changed. Once the outermost value is
/// complete (or on `flush()`, or when the writer goes away), `out` holds exactly the text.
class JsonWriter {
 public:
  /// Appends to `out`; `pretty` indents by two spaces.
  explicit JsonWriter(std::string& out, bool pretty = false) : out_(&out), pretty_(pretty) {}
  ~JsonWriter() { flush(); }
  JsonWriter(const JsonWriter&) = delete;
  JsonWriter& operator=(const JsonWriter&) = delete;

  void beginObject();
  void endObject();
  void beginArray();
  void endArray();
  /// Ends the innermost container, object or array.
  void end();
  /// Starts a member of the innermost object.
  void key(std::string_view name);

  void null();
  void boolean(bool value);
  void integer(std::int64_t value);
  /// The shortest text that reads back as the same double; integral values have no fraction.
  /// The caller must not pass a non-finite value.
  void number(double value);
  void string(std::string_view value);

  /// How many containers are open.
  int depth() const { return static_cast<int>(stack_.size()); }
  /// The length of the text in `out`, written so far.
  std::size_t size() const {
    return cur_ ? static_cast<std::size_t>(cur_ - out_->data()) : out_->size();
  }
  /// Trims `out` to the text written so far.
  void flush();

 private:
  struct Frame {
    bool isObject;
    bool empty;
  };
  /// Room for `n` more bytes at the returned cursor.
  char* reserve(std::size_t n) {
    if (static_cast<std::size_t>(end_ - cur_) < n) grow(n);
    return cur_;
  }
  void grow(std::size_t n);
  /// Marks a value as written and writes what must precede it (a comma, and when pretty the
  /// line break). Returns the cursor with room for `n` more bytes.
  char* beforeValue(std::size_t n);
  char* newline(char* p);
  /// After a value: the outermost one leaves `out` exact.
  void afterValue(char* p) {
    cur_ = p;
    if (stack_.empty()) flush();
  }
  char* quoted(char* p, std::string_view value);
  void escaped(const char* s, std::size_t n);
  void anyKey(std::string_view name);
  void open(bool isObject, char bracket);

  std::string* out_;
  char* cur_ = nullptr;  // the end of the text, inside out_'s buffer; null when flushed
  char* end_ = nullptr;  // the end of out_'s buffer
  bool pretty_;
  bool afterKey_ = false;
  std::vector<Frame> stack_;
};

/// Appends the JSON text of a string value, quotes included.
void appendJsonString(std::string& out, std::string_view value);
/// Appends the shortest round-trip text of a finite double.
void appendJsonNumber(std::string& out, double value);

/// Writes what a FieldVisitor is shown as JSON.
class JsonFieldWriter final : public FieldVisitor {
 public:
  explicit JsonFieldWriter(JsonWriter& writer) : writer_(&writer) {}
  void null() override { writer_->null(); }
  void boolean(bool value) override { writer_->boolean(value); }
  void integer(std::int64_t value) override { writer_->integer(value); }
  void number(double value) override;
  void string(std::string_view value) override { writer_->string(value); }
  void beginObject() override { writer_->beginObject(); }
  void key(std::string_view name) override { writer_->key(name); }
  void endObject() override { writer_->endObject(); }
  void beginArray() override { writer_->beginArray(); }
  void endArray() override { writer_->endArray(); }

 private:
  JsonWriter* writer_;
};

}  // namespace orvane
