// A streaming JSON writer: compact or indented, members in the order they are written.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <orvane/coding/FieldVisitor.hpp>

namespace orvane {

class JsonWriter {
 public:
  /// Appends to `out`; `pretty` indents by two spaces.
  explicit JsonWriter(std::string& out, bool pretty = false) : out_(&out), pretty_(pretty) {}

  void beginObject();
  void endObject();
  void beginArray();
  void endArray();
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

 private:
  struct Frame {
    bool isObject;
    bool empty;
  };
  /// Marks a value as written; true when a comma must precede it (written already when pretty).
  bool beforeValue();
  void newline();

  std::string* out_;
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
