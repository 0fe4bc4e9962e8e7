#include <orvane/json/JsonEncoder.hpp>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <vector>

#include <orvane/internal/JsonWriter.hpp>
#include <orvane/internal/DateText.hpp>

namespace orvane {

namespace {

[[noreturn]] void throwNonFinite(double value, const CodingPathLink* path) {
  throw EncodingError(CodingPathLink::materialize(path),
                      "Unable to encode Double." + std::string(std::isnan(value) ? "nan" : "inf") +
                          " directly in JSON.");
}

// A date as RFC 3339 text; one that no such text can hold is an error, not text that would
// not read back.
std::string isoText(Date value, const CodingPathLink* path) {
  auto text = formatIso8601(value);
  if (!text) {
    throw EncodingError(CodingPathLink::materialize(path),
                        "Unable to encode Date " + formatDateMillis(value) +
                            " as ISO 8601 text: its year is not within 0000 to 9999.");
  }
  return *std::move(text);
}

// The date a number reads back as under a numeric strategy, as the decoder reads it.
std::optional<Date> dateOfNumber(double number, DateStrategy dates) {
  return dateFromSeconds(dates == DateStrategy::milliseconds ? number / 1e3
                         : dates == DateStrategy::deferred   ? number + kReferenceDateOffset
                                                             : number);
}

// A date as the number the strategy writes, or nothing when it writes text. The quotient may
// be off by a rounding step from a number that reads back as the same microsecond (far from
// 1970, or across the deferred strategy's offset): then a neighbour of it does, and is written.
std::optional<double> dateNumber(Date value, DateStrategy dates) {
  double micros = static_cast<double>(value.time_since_epoch().count());
  double number = 0;
  switch (dates) {
    case DateStrategy::iso8601:
      return std::nullopt;
    case DateStrategy::seconds:
      number = micros / 1e6;
      break;
    case DateStrategy::milliseconds:
      number = micros / 1e3;
      break;
    case DateStrategy::deferred:
      number = micros / 1e6 - kReferenceDateOffset;
      break;
  }
  for (int step = 0; step < 8; ++step) {
    auto back = dateOfNumber(number, dates);
    if (!back || *back == value) break;
    number = std::nextafter(number, *back < value ? HUGE_VAL : -HUGE_VAL);
  }
  return number;
}

// Indented text, through the general writer.
void handOver(void* sink, std::string_view text) {
  static_cast<JsonSink*>(sink)->write(text);
}

class PrettyBackend final : public EncoderBackend {
 public:
  PrettyBackend(std::string& out, const JsonEncoderOptions& options, JsonSink* sink)
      : EncoderBackend(options.form), writer_(out, true), dates_(options.dates) {
    if (sink) writer_.streamTo(&handOver, sink);
  }

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
    if (!std::isfinite(value)) throwNonFinite(value, path);
    writer_.number(value);
  }
  void writeDate(Date value, const CodingPathLink* path) override {
    if (auto number = dateNumber(value, dates_))
      writeDouble(*number, path);
    else
      writer_.string(isoText(value, path));
  }
  void writeUrl(const Url& value) override { writer_.string(value.text()); }

 private:
  JsonWriter writer_;
  DateStrategy dates_;
};

// Compact text, written straight into the output's buffer. Every value is followed by a comma,
// so that nothing is decided before a member or an element: a container's end takes the place
// of its last comma (an empty one has none), and the outermost value's comma is dropped.
// The paths for scalar members are inline and short; whatever is rare (growing, long or escaped
// text, closing containers, errors) is out of line so that they keep their registers.
class CompactBackend final : public EncoderBackend {
 public:
  CompactBackend(std::string& out, const JsonEncoderOptions& options, JsonSink* sink)
      : EncoderBackend(options.form),
        out_(&out),
        start_(out.size()),
        dates_(options.dates),
        sink_(sink) {
    grow(0);
  }
  // On an error half-way, `out` keeps what was written.
  ~CompactBackend() override { out_->resize(static_cast<std::size_t>(cur_ - out_->data())); }
  CompactBackend(const CompactBackend&) = delete;
  CompactBackend& operator=(const CompactBackend&) = delete;

  /// Once the outermost value is complete: `out` ends with its text.
  void finish() {
    if (static_cast<std::size_t>(cur_ - out_->data()) > start_ && cur_[-1] == ',') --cur_;
  }

  void writeKey(std::string_view key) override {
    if (!ready(depth_)) [[unlikely]]
      return writeKeyAfter(key);
    cur_ = keyAt(cur_, key);
  }
  int openObject() override { return open('{', '}'); }
  int openArray() override { return open('[', ']'); }
  [[gnu::noinline]] void closeTo(int level) override {
    if (static_cast<std::size_t>(end_ - cur_) < 2 * static_cast<std::size_t>(depth_ - level))
        [[unlikely]]
      return closeToAfterGrowing(level);
    char* p = cur_;
    const char* open = lastOpen_;
    const char* closers = closers_.data();
    for (int d = depth_; d > level; --d) {
      // Over the comma after the last value; an empty container (nothing written since it
      // opened) has none. Known without reading back what was just written.
      p -= p != open;
      p[0] = closers[d - 1];
      p[1] = ',';
      p += 2;
    }
    depth_ = level;
    cur_ = p;
  }

  void writeNull() override {
    char* p = ensure(8);
    std::memcpy(p, "null,", 5);
    cur_ = p + 5;
  }
  void writeBool(bool value) override { cur_ = booleanAt(ensure(8), value); }
  void writeInt(std::int64_t value) override { cur_ = integerAt(ensure(kNumberRoom), value); }
  void writeDouble(double value, const CodingPathLink* path) override {
    if (!std::isfinite(value)) [[unlikely]]
      throwNonFinite(value, path);
    cur_ = numberAt(ensure(kNumberRoom), value);
  }
  void writeString(std::string_view value) override { cur_ = stringAt(ensure(kShortRoom), value); }
  void writeDate(Date value, const CodingPathLink* path) override {
    if (auto number = dateNumber(value, dates_))
      writeDouble(*number, path);
    else
      writeString(isoText(value, path));
  }
  void writeUrl(const Url& value) override { writeString(value.text()); }

  // Each member first closes what is open above its object and makes room; when either is
  // needed it goes round by a function of its own, reached by a tail call, so that the usual
  // case saves no registers for a call it does not make.
  void memberString(int level, std::string_view key, std::string_view value) override {
    if (!ready(level)) [[unlikely]]
      return memberStringAfter(level, key, value);
    cur_ = stringAt(keyAt(cur_, key), value);
  }
  void memberDouble(int level, std::string_view key, double value,
                    const CodingPathLink* parent) override {
    if (!std::isfinite(value)) [[unlikely]]
      throwNonFiniteMember(value, parent, key);
    if (!ready(level)) [[unlikely]]
      return memberDoubleAfter(level, key, value, parent);
    cur_ = numberAt(keyAt(cur_, key), value);
  }
  void memberInt(int level, std::string_view key, std::int64_t value) override {
    if (!ready(level)) [[unlikely]]
      return memberIntAfter(level, key, value);
    cur_ = integerAt(keyAt(cur_, key), value);
  }
  void memberBool(int level, std::string_view key, bool value) override {
    if (!ready(level)) [[unlikely]]
      return memberBoolAfter(level, key, value);
    cur_ = booleanAt(keyAt(cur_, key), value);
  }

 private:
  // Keys and strings up to kShortText bytes are written inline, with room for kShortRoom.
  static constexpr std::size_t kShortText = 32;
  static constexpr std::size_t kShortRoom = 48;
  // A number, integral or not, and its comma.
  static constexpr std::size_t kNumberRoom = 40;
  // A member's value has room without asking again: after a short key out of the room asked
  // for with it, and after any other text out of what quoted() leaves.
  static constexpr std::size_t kAfterQuoted = 2 * kShortRoom - 3;
  static_assert(kShortRoom + kNumberRoom - (kShortText + 3) >= std::max(kShortRoom, kNumberRoom));
  static_assert(kAfterQuoted - 1 >= std::max(kShortRoom, kNumberRoom));

  // Room for `n` more bytes at the returned cursor.
  char* ensure(std::size_t n) {
    if (static_cast<std::size_t>(end_ - cur_) < n) [[unlikely]]
      grow(n);
    return cur_;
  }
  [[gnu::noinline]] void grow(std::size_t n) {
    std::size_t used = cur_ ? static_cast<std::size_t>(cur_ - out_->data()) : out_->size();
    if (sink_ && used - start_ > JsonWriter::kStreamPiece) used = handOver(used);
    // Ahead by as much as is written, within bounds: a short text keeps a small buffer, and
    // what a resize clears is still in the first-level cache when the text is written over it.
    std::size_t ahead = std::clamp<std::size_t>(used - start_, 256, std::size_t{8} << 10);
    std::size_t open = lastOpen_ ? static_cast<std::size_t>(lastOpen_ - out_->data()) : 0;
    out_->resize(used + std::max(n, ahead));
    cur_ = out_->data() + used;
    end_ = out_->data() + out_->size();
    if (lastOpen_) lastOpen_ = out_->data() + open;
  }

  // Hands all but the last byte to the sink: a container's end may yet take the place of a
  // comma there. Returns the new length of `out`.
  std::size_t handOver(std::size_t used) {
    char* last = out_->data() + used - 1;
    sink_->write(std::string_view(out_->data() + start_, used - 1 - start_));
    char* kept = out_->data() + start_;
    *kept = *last;
    // Only an open bracket right at the cursor matters to closing (an empty container).
    lastOpen_ = lastOpen_ == last + 1 ? kept + 1 : nullptr;
    cur_ = kept + 1;
    return start_ + 1;
  }

  [[noreturn, gnu::noinline, gnu::cold]] static void throwNonFiniteMember(
      double value, const CodingPathLink* parent, std::string_view key) {
    CodingPathLink link{parent, key};
    throwNonFinite(value, &link);
  }

  int open(char bracket, char closer) {
    if (static_cast<std::size_t>(depth_) >= closers_.size() ||
        static_cast<std::size_t>(end_ - cur_) < kShortRoom) [[unlikely]]
      return openAfter(bracket, closer);
    closers_[static_cast<std::size_t>(depth_)] = closer;
    char* p = cur_;
    *p = bracket;
    cur_ = lastOpen_ = p + 1;
    return ++depth_;
  }
  [[gnu::noinline]] int openAfter(char bracket, char closer) {
    if (static_cast<std::size_t>(depth_) >= closers_.size())
      closers_.resize(2 * closers_.size() + 16);
    ensure(kShortRoom);
    return open(bracket, closer);
  }

  [[gnu::noinline]] void closeToAfterGrowing(int level) {
    grow(2 * static_cast<std::size_t>(depth_ - level));
    closeTo(level);
  }
  [[gnu::noinline]] void writeKeyAfter(std::string_view key) {
    ensure(kShortRoom + kNumberRoom);
    writeKey(key);
  }

  // Whether a member of the object at `level` can be written at the cursor as it is: that
  // object is the innermost, and there is room for a short key and any scalar value.
  bool ready(int level) const {
    return level >= depth_ && static_cast<std::size_t>(end_ - cur_) >= kShortRoom + kNumberRoom;
  }
  void prepare(int level) {
    if (level < depth_) closeTo(level);
    ensure(kShortRoom + kNumberRoom);
  }
  [[gnu::noinline]] void memberStringAfter(int level, std::string_view key,
                                           std::string_view value) {
    prepare(level);
    memberString(level, key, value);
  }
  [[gnu::noinline]] void memberDoubleAfter(int level, std::string_view key, double value,
                                           const CodingPathLink* parent) {
    prepare(level);
    memberDouble(level, key, value, parent);
  }
  [[gnu::noinline]] void memberIntAfter(int level, std::string_view key, std::int64_t value) {
    prepare(level);
    memberInt(level, key, value);
  }
  [[gnu::noinline]] void memberBoolAfter(int level, std::string_view key, bool value) {
    prepare(level);
    memberBool(level, key, value);
  }

  static char* booleanAt(char* p, bool value) {
    if (value) {
      std::memcpy(p, "true,", 5);
      return p + 5;
    }
    std::memcpy(p, "false,", 6);
    return p + 6;
  }
  static char* numberAt(char* p, double value) {
    p = writeJsonNumber(p, value);
    *p = ',';
    return p + 1;
  }
  static char* integerAt(char* p, std::int64_t value) {
    p = std::to_chars(p, p + 20, value).ptr;
    *p = ',';
    return p + 1;
  }

  // Copies a short text (at most kShortText bytes) to `d`: whether none of it needs escaping.
  static bool copyShortText(char* d, const char* s, std::size_t n) {
    if (n <= 16) [[likely]]
      return json_detail::copyShort(d, s, n);
    // Two halves that overlap when n < 32.
    bool head = json_detail::copyShort(d, s, 16);
    bool tail = json_detail::copyShort(d + n - 16, s + n - 16, 16);
    return head & tail;
  }

  // `"key":` at `p`, which has room for kShortRoom + kNumberRoom bytes; returns the end, with
  // room for kShortRoom and for kNumberRoom bytes after it.
  char* keyAt(char* p, std::string_view key) { return quotedAt(p, key, ':'); }
  // A string value and its comma at `p`, which has room for kShortRoom bytes.
  char* stringAt(char* p, std::string_view value) { return quotedAt(p, value, ','); }
  // Short text without escapes inline, the rest through `quoted`.
  char* quotedAt(char* p, std::string_view text, char after) {
    if (text.size() <= kShortText) [[likely]] {
      *p = '"';
      if (copyShortText(p + 1, text.data(), text.size())) [[likely]] {
        p += 1 + text.size();
        p[0] = '"';
        p[1] = after;
        return p + 2;
      }
    }
    return quoted(p, text, after);
  }
  // Any text quoted at `p`, the end of the text so far, and `after` it; returns the end, with
  // room for kAfterQuoted more bytes.
  [[gnu::noinline]] char* quoted(char* p, std::string_view text, char after) {
    cur_ = p;
    p = ensure(text.size() + 2 * kShortRoom);
    *p++ = '"';
    std::size_t plain = json_detail::copyPlain(p, text.data(), text.size());
    p += plain;
    const char* s = text.data() + plain;
    std::size_t n = text.size() - plain;
    while (n > 0) {
      // In slices, so that a long text needs no room for six times its length at once.
      std::size_t slice = std::min(n, json_detail::kEscapeSlice);
      cur_ = p;
      p = json_detail::writeEscaped(ensure(6 * slice + 2 * kShortRoom), s, slice);
      s += slice;
      n -= slice;
    }
    p[0] = '"';
    p[1] = after;
    return p + 2;
  }

  std::string* out_;
  std::size_t start_;  // where this text begins in `out`
  char* cur_ = nullptr;
  char* end_ = nullptr;
  char* lastOpen_ = nullptr;  // just after the bracket of the container opened last
  DateStrategy dates_;
  JsonSink* sink_;
  std::vector<char> closers_;  // by level - 1, what ends each open container
};

}  // namespace

void JsonEncoder::run(std::string& out, JsonSink* sink, void (*fn)(Encoder&, const void*),
                      const void* value) const {
  // A failed encoding leaves `out` as it found it; the backends are gone before it is cut back.
  const std::size_t start = out.size();
  try {
    if (options_.pretty) {
      {
        PrettyBackend backend(out, options_, sink);
        Encoder root(backend, 0, nullptr);
        fn(root, value);
        root.finish();
      }
      if (sink) sink->write(out);
      return;
    }
    {
      CompactBackend backend(out, options_, sink);
      Encoder root(backend, 0, nullptr);
      fn(root, value);
      root.finish();
      backend.finish();
    }
    if (sink) sink->write(out);
  } catch (...) {
    out.resize(start);
    throw;
  }
}

}  // namespace orvane
