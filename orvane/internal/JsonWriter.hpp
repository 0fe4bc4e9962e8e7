// A streaming JSON writer: compact or indented, members in the order they are written.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <orvane/coding/FieldVisitor.hpp>

namespace orvane {

namespace json_detail {

constexpr std::uint64_t kOnes = 0x0101010101010101ull;
constexpr std::uint64_t kHighs = 0x8080808080808080ull;

// The high bit of each of the eight bytes of `w` that is a control character, a quote or a
// backslash; bytes from 0x80 up (UTF-8 sequences) never count. Bits above the first flagged
// byte may be spurious, the first one never is. With bit 1 flipped, a quote (0x22) becomes
// 0x20 and control characters stay below it: one comparison finds both.
inline std::uint64_t needsEscape(std::uint64_t w) {
  std::uint64_t flipped = w ^ (0x02 * kOnes);
  std::uint64_t below = (flipped - 0x21 * kOnes) & ~flipped;
  std::uint64_t backslash = w ^ ('\\' * kOnes);
  return (below | ((backslash - kOnes) & ~backslash)) & kHighs;
}

// Per byte: whether it needs escaping.
struct EscapeTable {
  bool escaped[256];
};
constexpr EscapeTable makeEscapeTable() {
  EscapeTable table{};
  for (int c = 0; c < 0x20; ++c) table.escaped[c] = true;
  table.escaped[static_cast<unsigned char>('"')] = true;
  table.escaped[static_cast<unsigned char>('\\')] = true;
  return table;
}
inline constexpr EscapeTable kEscaped = makeEscapeTable();

// The index in memory order of the first byte flagged in `mask`.
inline std::size_t firstFlagged(std::uint64_t mask) {
  if constexpr (std::endian::native == std::endian::little)
    return static_cast<std::size_t>(std::countr_zero(mask)) / 8;
  else
    return static_cast<std::size_t>(std::countl_zero(mask)) / 8;
}

inline std::uint64_t load64(const char* p) {
  std::uint64_t w;
  std::memcpy(&w, p, 8);
  return w;
}
inline std::uint32_t load32(const char* p) {
  std::uint32_t w;
  std::memcpy(&w, p, 4);
  return w;
}

// Copies from `s` to `d` the longest prefix of the `n` bytes that needs no escaping (for fewer
// than eight bytes, either all or none) and returns its length. Writes nothing at or beyond
// d + n, but may write past the prefix. Word-sized moves instead of a call to memcpy: nearly
// every key and string is short.
inline std::size_t copyPlain(char* d, const char* s, std::size_t n) {
  if (n >= 8) {
    std::size_t i = 0;
    for (; i + 8 <= n; i += 8) {
      std::uint64_t w = load64(s + i);
      std::memcpy(d + i, &w, 8);
      if (std::uint64_t m = needsEscape(w)) return i + firstFlagged(m);
    }
    if (i == n) return n;
    // The last bytes, in a word that overlaps the one before (whose bytes are plain).
    std::uint64_t w = load64(s + n - 8);
    std::memcpy(d + n - 8, &w, 8);
    if (std::uint64_t m = needsEscape(w)) return n - 8 + firstFlagged(m);
    return n;
  }
  if (n >= 4) {
    // Two words that overlap when n < 8.
    std::uint32_t a = load32(s), b = load32(s + n - 4);
    if (needsEscape(a | std::uint64_t{b} << 32)) return 0;
    std::memcpy(d, &a, 4);
    std::memcpy(d + n - 4, &b, 4);
    return n;
  }
  if (n == 0) return 0;
  // The first, middle and last bytes cover one to three, padded with a plain letter.
  auto a = static_cast<unsigned char>(s[0]);
  auto b = static_cast<unsigned char>(s[n / 2]);
  auto c = static_cast<unsigned char>(s[n - 1]);
  std::uint64_t w = a | std::uint64_t{b} << 8 | std::uint64_t{c} << 16 | 0x6161616161000000ull;
  if (needsEscape(w)) return 0;
  d[0] = static_cast<char>(a);
  d[n / 2] = static_cast<char>(b);
  d[n - 1] = static_cast<char>(c);
  return n;
}

#if defined(__SSE2__)
// Whether none of the sixteen bytes of `v` needs escaping. In vector registers the three
// comparisons cost no general registers, which the short paths inline in callers need.
inline bool plainBytes(__m128i v) {
  __m128i bad =
      _mm_or_si128(_mm_cmpeq_epi8(v, _mm_set1_epi8('"')), _mm_cmpeq_epi8(v, _mm_set1_epi8('\\')));
  __m128i control = _mm_set1_epi8(0x1f);
  bad = _mm_or_si128(bad, _mm_cmpeq_epi8(_mm_min_epu8(v, control), v));
  return _mm_movemask_epi8(bad) == 0;
}
inline bool plainWords(std::uint64_t a, std::uint64_t b) {
  return plainBytes(_mm_set_epi64x(static_cast<long long>(b), static_cast<long long>(a)));
}
#else
inline bool plainWords(std::uint64_t a, std::uint64_t b) {
  return !(needsEscape(a) | needsEscape(b));
}
#endif

// Copies `n` bytes, at most 16, from `s` to `d` and returns true when none needs escaping;
// otherwise returns false, having written somewhere below d + n. For keys and short strings,
// in a few moves and no loop.
inline bool copyShort(char* d, const char* s, std::size_t n) {
  if (n >= 8) {
    // Two words that overlap when n < 16.
    std::uint64_t a = load64(s), b = load64(s + n - 8);
    std::memcpy(d, &a, 8);
    std::memcpy(d + n - 8, &b, 8);
    return plainWords(a, b);
  }
  if (n >= 4) {
    std::uint32_t a = load32(s), b = load32(s + n - 4);
    std::memcpy(d, &a, 4);
    std::memcpy(d + n - 4, &b, 4);
    std::uint64_t w = a | std::uint64_t{b} << 32;
    return plainWords(w, w);
  }
  if (n == 0) return true;
  // The first, middle and last bytes cover one to three.
  auto a = static_cast<unsigned char>(s[0]);
  auto b = static_cast<unsigned char>(s[n / 2]);
  auto c = static_cast<unsigned char>(s[n - 1]);
  d[0] = static_cast<char>(a);
  d[n / 2] = static_cast<char>(b);
  d[n - 1] = static_cast<char>(c);
  return !(kEscaped.escaped[a] | kEscaped.escaped[b] | kEscaped.escaped[c]);
}

// Writes the `n` bytes at `s` with quotes, backslashes and control characters escaped, at `p`,
// which has room for 6 * n bytes, and returns the end.
char* writeEscaped(char* p, const char* s, std::size_t n);
// How many bytes of text writeEscaped is given at a time by the writers.
constexpr std::size_t kEscapeSlice = 4096;

}  // namespace json_detail

/// Writes the JSON text of a finite double at `p`, which has room for 32 bytes, and returns
/// its end: the shortest text that reads back as the same double, integral values without a
/// fraction.
char* writeJsonNumber(char* p, double value);

/// Writes straight into the buffer of `out`, which it grows ahead of the text: while a container
/// is open, `out` is longer than the text and must not be changed. Once the outermost value is
/// complete (or on `flush()`, or when the writer goes away), `out` holds exactly the text.
class JsonWriter {
 public:
  /// Appends to `out`; `pretty` indents by two spaces.
  explicit JsonWriter(std::string& out, bool pretty = false) : out_(&out), pretty_(pretty) {}

  /// Hands the text to `sink` in pieces as it grows, each time out of `out` (which must be
  /// empty when writing starts), rather than keeping all of it; `out` holds the rest at the end.
  void streamTo(void (*sink)(void* context, std::string_view text), void* context) {
    sink_ = sink;
    sinkContext_ = context;
  }
  /// How much text the writer gathers before handing it to a sink.
  static constexpr std::size_t kStreamPiece = std::size_t{64} << 10;
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
  void key(std::string_view name) {
    // The common case with nothing to call: compact text, room ahead, a short plain key.
    char* p = cur_;
    if (!pretty_ && name.size() <= kShortText && room() >= kShortRoom) {
      Frame& top = stack_.back();
      *p = ',';
      p += !top.empty;
      *p++ = '"';
      if (json_detail::copyShort(p, name.data(), name.size())) {
        p += name.size();
        p[0] = '"';
        p[1] = ':';
        cur_ = p + 2;
        top.empty = false;
        afterKey_ = true;
        return;
      }
    }
    anyKey(name);
  }

  void null();
  void boolean(bool value);
  void integer(std::int64_t value);
  /// The shortest text that reads back as the same double; integral values have no fraction.
  /// The caller must not pass a non-finite value.
  void number(double value) {
    if (afterKey_ && room() >= kShortRoom) {
      afterKey_ = false;
      cur_ = writeJsonNumber(cur_, value);
      return;
    }
    anyNumber(value);
  }
  void string(std::string_view value) {
    // A member's short plain value, as key() does.
    char* p = cur_;
    if (afterKey_ && value.size() <= kShortText && room() >= kShortRoom) {
      *p++ = '"';
      if (json_detail::copyShort(p, value.data(), value.size())) {
        p += value.size();
        *p++ = '"';
        cur_ = p;
        afterKey_ = false;
        return;
      }
    }
    anyString(value);
  }

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
  // Keys and strings up to this length, and numbers, are written inline when there is this
  // much room ahead.
  static constexpr std::size_t kShortText = 16;
  static constexpr std::size_t kShortRoom = 32;

  std::size_t room() const { return static_cast<std::size_t>(end_ - cur_); }
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
  void anyNumber(double value);
  void anyString(std::string_view value);
  void open(bool isObject, char bracket);

  std::string* out_;
  char* cur_ = nullptr;  // the end of the text, inside out_'s buffer; null when flushed
  char* end_ = nullptr;  // the end of out_'s buffer
  bool pretty_;
  bool afterKey_ = false;
  std::vector<Frame> stack_;
  void (*sink_)(void*, std::string_view) = nullptr;
  void* sinkContext_ = nullptr;
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
