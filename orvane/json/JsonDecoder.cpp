#include <orvane/json/JsonDecoder.hpp>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <vector>

#include <simdjson.h>
#include <sys/mman.h>
#include <unistd.h>
#include <uriparser/Uri.h>

#include <orvane/coding/RecordArena.hpp>
#include <orvane/internal/JsonWriter.hpp>
#include <orvane/internal/DateText.hpp>
#include <orvane/internal/JsonText.hpp>

namespace orvane {

static_assert(JsonDecoder::kPadding >= simdjson::SIMDJSON_PADDING);

namespace {

// Numbers the parser refuses although they are JSON (beyond 64 bits, or beyond the double
// range), which a copy of the document holds as a 0 of the same length: what the node of each
// such 0 really holds.
class RewrittenNumbers {
 public:
  struct Entry {
    Node node;
    std::string_view text;  // as the document has it
    double value;           // infinite when beyond the double range
  };

  const Entry* find(Node n) const noexcept {
    auto it = std::lower_bound(entries_.begin(), entries_.end(), n,
                               [](const Entry& e, Node node) { return e.node < node; });
    return it != entries_.end() && it->node == n ? &*it : nullptr;
  }

  /// Finds the nodes of `numbers` on the tape: scalars stand on it in text order. False when
  /// the tape does not hold a 0 where the text held such a number.
  bool locate(const simdjson::dom::document& doc, std::string_view text,
              const std::vector<OutOfRangeNumber>& numbers) {
    const std::uint64_t* tape = doc.tape.get();
    Node end = tape[0] & simdjson::internal::JSON_VALUE_MASK;
    std::size_t ordinal = 0, k = 0;
    entries_.clear();
    for (Node i = 1; i < end && k < numbers.size();) {
      char t = static_cast<char>(tape[i] >> 56);
      bool number = t == 'l' || t == 'u' || t == 'd';
      if (number || t == '"' || t == 't' || t == 'f' || t == 'n') {
        if (ordinal++ == numbers[k].ordinal) {
          if (t != 'l' || (tape[i + 1] != 0)) return false;
          const OutOfRangeNumber& n = numbers[k++];
          entries_.push_back({i, text.substr(n.offset, n.length), n.value});
        }
      }
      i += number ? 2 : 1;
    }
    return k == numbers.size();
  }

 private:
  std::vector<Entry> entries_;  // by node
};

// The decoder reads simdjson's DOM tape directly: a node is a tape index, so handles are one
// word and walking an object needs no intermediate element objects.
//
// With `kRewritten`, the tape is that of a copy in which numbers the parser refuses stand as
// 0s (see RewrittenNumbers), and the reads of integers look for them; without, nothing does.
template <bool kRewritten>
class TapeBackend final : public DecoderBackend {
 public:
  TapeBackend(const simdjson::dom::document& doc, DateStrategy dates,
              const RewrittenNumbers* rewritten = nullptr)
      : tape_(doc.tape.get()),
        strings_(doc.string_buf.get()),
        dates_(dates),
        rewritten_(rewritten) {}

  Node root() const { return 1; }

  bool isNull(Node n) const noexcept override { return type(n) == 'n'; }
  bool isObject(Node n) const noexcept override { return type(n) == '{'; }
  bool openObject(Node n, LookupState& state) const noexcept override {
    if (type(n) != '{') return false;
    prepare(n, state);
    return true;
  }
  bool isArray(Node n) const noexcept override { return type(n) == '['; }

  bool findMember(Node object, std::string_view key, Node& value,
                  LookupState& state) const noexcept override;
  /// The lookup when the member at the cursor is not the key (or keys repeat).
  [[gnu::noinline]] bool search(Node object, std::string_view key, Node& value,
                                LookupState& state) const noexcept;

  std::size_t arrayCount(Node array) const noexcept override {
    std::size_t count = (tape_[array] >> 32) & simdjson::internal::JSON_COUNT_MASK;
    if (count < simdjson::internal::JSON_COUNT_MASK) return count;
    // The count saturates; walk the array for the exact number.
    count = 0;
    for (Node i = array + 1, end = afterIndex(array) - 1; i < end; i = afterIndex(i)) ++count;
    return count;
  }
  Node firstElement(Node array) const noexcept override { return array + 1; }
  Node nextElement(Node element) const noexcept override { return afterIndex(element); }

  ReadStatus readString(Node n, std::string_view& out) const noexcept override {
    char t = type(n);
    if (t != '"') return t == 'n' ? ReadStatus::null : ReadStatus::mismatch;
    out = stringAt(n);
    return ReadStatus::ok;
  }

  ReadStatus readDouble(Node n, double& out) const noexcept override {
    switch (type(n)) {
      case 'd':
        out = payload<double>(n);
        return ReadStatus::ok;
      case 'l':
        if (const auto* r = rewritten(n)) {
          if (!std::isfinite(r->value)) return ReadStatus::corrupted;
          out = r->value;
          return ReadStatus::ok;
        }
        out = static_cast<double>(payload<std::int64_t>(n));
        return ReadStatus::ok;
      case 'u':
        out = static_cast<double>(payload<std::uint64_t>(n));
        return ReadStatus::ok;
      case 'n':
        return ReadStatus::null;
      default:
        return ReadStatus::mismatch;
    }
  }

  ReadStatus readInt(Node n, std::int64_t& out) const noexcept override {
    switch (type(n)) {
      case 'l':
        if (rewritten(n)) return ReadStatus::corrupted;  // all beyond 64 bits
        out = payload<std::int64_t>(n);
        return ReadStatus::ok;
      case 'u':
        return ReadStatus::corrupted;  // only used beyond the signed range
      case 'd': {
        double d = payload<double>(n);
        // An integral double within 64 bits is accepted, as 1.0 or 1e3 are numbers like 1.
        if (d == std::trunc(d) && d >= -9223372036854775808.0 && d < 9223372036854775808.0) {
          out = static_cast<std::int64_t>(d);
          return ReadStatus::ok;
        }
        return ReadStatus::corrupted;
      }
      case 'n':
        return ReadStatus::null;
      default:
        return ReadStatus::mismatch;
    }
  }

  ReadStatus readBool(Node n, bool& out) const noexcept override {
    switch (type(n)) {
      case 't':
        out = true;
        return ReadStatus::ok;
      case 'f':
        out = false;
        return ReadStatus::ok;
      case 'n':
        return ReadStatus::null;
      default:
        return ReadStatus::mismatch;
    }
  }

  ReadStatus readDate(Node n, Date& out) const noexcept override {
    if (dates_ == DateStrategy::iso8601) {
      std::string_view text;
      ReadStatus s = readString(n, text);
      if (s != ReadStatus::ok) return s;
      auto date = parseIso8601(text);
      if (!date) return ReadStatus::corrupted;
      out = *date;
      return ReadStatus::ok;
    }
    double number;
    ReadStatus s = readDouble(n, number);
    if (s != ReadStatus::ok) return s;
    double seconds = dates_ == DateStrategy::milliseconds ? number / 1e3
                     : dates_ == DateStrategy::deferred   ? number + kReferenceDateOffset
                                                          : number;
    auto date = dateFromSeconds(seconds);
    if (!date) return ReadStatus::corrupted;
    out = *date;
    return ReadStatus::ok;
  }

  ReadStatus readUrl(Node n, std::string_view& out) const noexcept override {
    ReadStatus s = readString(n, out);
    if (s != ReadStatus::ok) return s;
    return isUriReference(out) ? ReadStatus::ok : ReadStatus::corrupted;
  }

  std::string describe(Node n) const override {
    switch (type(n)) {
      case '"':
        return "a string";
      case 'l':
      case 'u':
      case 'd':
        return "a number";
      case 't':
      case 'f':
        return "a boolean";
      case 'n':
        return "null";
      case '{':
        return "an object";
      case '[':
        return "an array";
      default:
        return "a value";
    }
  }

  std::string corruptionReason(Node n, std::string_view type) const override {
    if (type == "Int" || type == "Double") {
      return "Parsed JSON number <" + numberText(n) + "> does not fit in " + std::string(type) +
             ".";
    }
    if (type == "URL") return "Invalid URL string.";
    if (type == "Date") {
      if (dates_ != DateStrategy::iso8601)
        return "Date value <" + numberText(n) + "> out of range.";
      std::string out = "Expected date string to be ISO8601-formatted";
      if (this->type(n) != '"') return out += '.';
      out += ", found ";
      appendJsonString(out, stringAt(n));
      return out += '.';
    }
    return "The value is not a valid " + std::string(type) + ".";
  }

 private:
  char type(Node n) const noexcept { return static_cast<char>(tape_[n] >> 56); }

  // What an integer node of the tape really holds, when the parser could not hold it.
  const RewrittenNumbers::Entry* rewritten(Node n) const noexcept {
    if constexpr (kRewritten) {
      return rewritten_->find(n);
    } else {
      (void)n;
      return nullptr;
    }
  }

  template <class T>
  T payload(Node n) const noexcept {
    T v;
    std::memcpy(&v, &tape_[n + 1], sizeof v);
    return v;
  }

  // The tape index just past the value at `n`.
  // Called for every member a lookup passes, so without a jump table: containers jump to their
  // end, numbers take two words, everything else one.
  Node afterIndex(Node n) const noexcept {
    char t = type(n);
    if (t == '{' || t == '[') return static_cast<std::uint32_t>(tape_[n]);
    return n + 1 + (t == 'l' || t == 'u' || t == 'd');
  }

  // The index of an object's closing entry.
  Node objectEnd(Node object) const noexcept {
    return static_cast<std::uint32_t>(tape_[object]) - 1;
  }

  std::string_view stringAt(Node n) const noexcept {
    std::size_t offset = tape_[n] & simdjson::internal::JSON_VALUE_MASK;
    std::uint32_t length;
    std::memcpy(&length, strings_ + offset, sizeof length);
    return {reinterpret_cast<const char*>(strings_ + offset + sizeof length), length};
  }

  std::string numberText(Node n) const {
    std::string out;
    switch (type(n)) {
      case 'l':
        if (const auto* r = rewritten(n)) return std::string(r->text);
        out = std::to_string(payload<std::int64_t>(n));
        break;
      case 'u':
        out = std::to_string(payload<std::uint64_t>(n));
        break;
      case 'd':
        appendJsonNumber(out, payload<double>(n));
        break;
      default:
        break;
    }
    return out;
  }

  static bool isUriReference(std::string_view text) noexcept {
    if (text.empty()) return false;
    UriUriA uri;
    const char* error = nullptr;
    int result = uriParseSingleUriExA(&uri, text.data(), text.data() + text.size(), &error);
    if (result == URI_SUCCESS) uriFreeUriMembersA(&uri);
    return result == URI_SUCCESS;
  }

  // Records read their keys in the order documents usually hold them, so a lookup first tries
  // the member at the cursor, where the previous lookup ended, with one comparison. Otherwise a
  // filter of the keys the object holds (one bit per key hash) refuses most absent keys, which
  // records ask for often, without a scan. Both are set up at an object's first lookup, in one
  // pass that also finds out whether any key repeats: only then can a later duplicate, which
  // wins, hide behind a key found, and only then do lookups look further.
  //
  // Keys are hashed by a word holding their length and first four bytes, which one load reads
  // from the string buffer (a length prefix, then the bytes). The buffer always has room for
  // that load, and for the word-wise comparisons below, past a short key.
  static std::uint64_t keyWord(std::string_view key) noexcept {
    unsigned char bytes[8] = {};
    auto length = static_cast<std::uint32_t>(key.size());
    std::memcpy(bytes, &length, 4);
    if (key.size() >= 4)
      std::memcpy(bytes + 4, key.data(), 4);
    else
      for (std::size_t i = 0; i < key.size(); ++i)
        bytes[4 + i] = static_cast<unsigned char>(key[i]);
    std::uint64_t word;
    std::memcpy(&word, bytes, 8);
    return word;
  }

  // Keeps the length and as many of the first four bytes as the key has.
  static std::uint64_t headMask(std::uint32_t length) noexcept {
    static constexpr auto masks = [] {
      std::array<std::uint64_t, 5> out{};
      for (std::size_t n = 0; n < out.size(); ++n) {
        unsigned char bytes[8] = {};
        for (std::size_t i = 0; i < 4 + n; ++i) bytes[i] = 0xFF;
        out[n] = std::bit_cast<std::uint64_t>(bytes);
      }
      return out;
    }();
    return masks[std::min<std::uint32_t>(length, 4)];
  }

  const std::uint8_t* keyAt(Node n) const noexcept {
    return strings_ + (tape_[n] & simdjson::internal::JSON_VALUE_MASK);
  }

  static std::uint64_t keyWordAt(const std::uint8_t* p) noexcept {
    std::uint64_t word;
    std::memcpy(&word, p, 8);
    std::uint32_t length;
    std::memcpy(&length, p, 4);
    return word & headMask(length);
  }

  template <class T>
  static T load(const void* p) noexcept {
    T v;
    std::memcpy(&v, p, sizeof v);
    return v;
  }

  // Whether the stored key at `p` (length prefix, then bytes) is `key`.
  static bool keyEquals(const std::uint8_t* p, std::string_view key) noexcept {
    return load<std::uint32_t>(p) == key.size() &&
           detail::equalBytes(p + 4, key.data(), key.size());
  }

  static std::uint64_t keyBit(std::uint64_t word) noexcept {
    return 1ull << ((word * 0x9E3779B97F4A7C15ull) >> 58);
  }

  // The filter, and in `repeated` the bits of keys that really repeat (none nearly always); the
  // first members laid out ahead of the cursor, in the same walk.
  [[gnu::noinline]] void prepare(Node object, LookupState& state) const noexcept {
    std::uint64_t filter = 0, repeated = 0;
    Node begin = object + 1, end = objectEnd(object), after = end;
    std::uint8_t count = 0;
    for (Node i = begin; i < end; i = afterIndex(i + 1)) {
      const std::uint8_t* key = keyAt(i);
      std::uint64_t bit = keyBit(keyWordAt(key));
      if ((filter & bit) && !(repeated & bit) && repeats(begin, i, key)) repeated |= bit;
      filter |= bit;
      if (count < LookupState::kAhead) {
        setMember(state.ahead[count++], i);
        if (count == LookupState::kAhead) after = afterIndex(i + 1);
      }
    }
    state.filter = filter;
    state.repeated = repeated;
    state.next = 0;
    // Members ahead only when no key repeats: a later duplicate could hide behind any of them.
    state.count = repeated == 0 ? count : 0;
    state.position = repeated == 0 ? after : begin;
  }

  // Lays out the members from `from` on (from the first one when `from` is the object's end)
  // ahead of the cursor.
  void fill(Node object, Node from, LookupState& state) const noexcept {
    Node end = objectEnd(object);
    if (from >= end) from = object + 1;
    std::uint8_t count = 0;
    Node i = from;
    for (; i < end && count < LookupState::kAhead; i = afterIndex(i + 1)) {
      setMember(state.ahead[count++], i);
    }
    state.count = count;
    state.next = 0;
    state.position = i;
  }

  void setMember(LookupState::Member& m, Node i) const noexcept {
    const std::uint8_t* key = keyAt(i);
    m.key = reinterpret_cast<const char*>(key + 4);
    m.keyLength = load<std::uint32_t>(key);
    m.value = i + 1;
    switch (type(i + 1)) {
      case 'd':
        m.kind = MemberKind::number;
        m.number = payload<double>(i + 1);
        break;
      case 'l':
        // The backend reads a rewritten number, so its 0 never passes for its value.
        m.kind = rewritten(i + 1) ? MemberKind::other : MemberKind::number;
        m.number = static_cast<double>(payload<std::int64_t>(i + 1));
        break;
      case 'u':
        m.kind = MemberKind::number;
        m.number = static_cast<double>(payload<std::uint64_t>(i + 1));
        break;
      case 'n':
        m.kind = MemberKind::null;
        break;
      default:
        m.kind = MemberKind::other;
        break;
    }
  }

  // Whether the key at `key` is also one of the keys in [from, to).
  [[gnu::noinline]] bool repeats(Node from, Node to, const std::uint8_t* key) const noexcept {
    std::string_view text(reinterpret_cast<const char*>(key + 4), load<std::uint32_t>(key));
    for (Node j = from; j < to; j = afterIndex(j + 1)) {
      if (keyEquals(keyAt(j), text)) return true;
    }
    return false;
  }

  const std::uint64_t* tape_;
  const std::uint8_t* strings_;
  DateStrategy dates_;
  const RewrittenNumbers* rewritten_;
};

template <bool kRewritten>
bool TapeBackend<kRewritten>::findMember(Node object, std::string_view key, Node& value,
                                         LookupState& state) const noexcept {
  // The container has compared the member at the cursor already, unless there was none laid
  // out: before the object was prepared, or once the members ahead are used up.
  if (state.position == 0) {
    prepare(object, state);
  } else if (state.repeated == 0 && state.next >= state.count) {
    fill(object, state.position, state);
  } else {
    return search(object, key, value, state);
  }
  if (state.next < state.count) {
    const LookupState::Member& m = state.ahead[state.next];
    if (m.hasKey(key)) {
      value = m.value;
      ++state.next;
      return true;
    }
  }
  return search(object, key, value, state);
}

template <bool kRewritten>
bool TapeBackend<kRewritten>::search(Node object, std::string_view key, Node& value,
                                     LookupState& state) const noexcept {
  if (key.size() > UINT32_MAX) return false;  // longer than any string the parser stores
  std::uint64_t bit = keyBit(keyWord(key));
  if (!(state.filter & bit)) return false;
  Node begin = object + 1;
  Node end = objectEnd(object);
  bool ahead = state.next < state.count;
  Node start = ahead ? state.ahead[state.next].value - 1 : state.position;
  // Without repeated keys, the member at the cursor has been compared already.
  Node afterCursor = state.repeated == 0 && start < end ? afterIndex(start + 1) : start;
  for (int pass = 0; pass < 2; ++pass) {
    Node from = pass == 0 ? afterCursor : begin;
    Node to = pass == 0 ? end : start;
    for (Node i = from; i < to; i = afterIndex(i + 1)) {
      if (!keyEquals(keyAt(i), key)) continue;
      Node found = i + 1;
      if (state.repeated & bit) {
        // The key may repeat further on; the last one counts.
        for (Node j = afterIndex(found); j < end; j = afterIndex(j + 1)) {
          if (keyEquals(keyAt(j), key)) found = j + 1;
        }
      }
      Node next = afterIndex(found);
      value = found;
      // The members after this one are laid out at the next lookup.
      state.count = 0;
      state.next = 0;
      state.position = next < end ? next : begin;
      return true;
    }
  }
  return false;
}

class ParseError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

using DecodeFn = void (*)(const Decoder&, void*);

// `at`: where the text stops being JSON, when the scan found it.
DecodingError invalidJson(std::string_view json, simdjson::error_code error,
                          std::optional<std::size_t> at) {
  std::string reason = simdjson::error_message(error);
  DecodingError e(DecodingError::Kind::dataCorrupted, {}, "The given data was not valid JSON.",
                  std::nullopt, std::make_exception_ptr(ParseError(reason)));
  e.setReasonAndLocation(std::move(reason),
                         at ? std::optional(textLocation(json, *at)) : std::nullopt);
  return e;
}

std::size_t depthLimit(const JsonDecoderOptions& options) {
  return std::min(options.maxDepth, JsonDecoderOptions::kDeepestLimit);
}

template <bool kRewritten>
void decodeTape(const simdjson::dom::document& doc, std::string_view json,
                const JsonDecoderOptions& options, RecordArena& records,
                const RewrittenNumbers* rewritten, DecodeFn fn, void* out) {
  TapeBackend<kRewritten> backend(doc, options.dates, rewritten);
  try {
    RecordArenaScope arena(records, options.packRecords);
    DecodingContext context(backend, options.userInfo, options.warnings);
    Decoder root(context, backend.root(), nullptr);
    fn(root, out);
  } catch (DecodingError& e) {
    // The tape keeps no positions: the text is walked along the path, now that it is needed.
    if (auto at = findJsonValue(json, e.codingPath())) e.setLocation(textLocation(json, *at));
    throw;
  }
}

// The parser refused a number. When the text is JSON but holds numbers beyond 64 bits or the
// double range, decodes a copy in which each of them is a 0 of the same length (so offsets
// stay), and tells the backend what each 0 stands for. Only documents the parser refused come
// here, so no other pays for it.
void decodeRewritten(simdjson::dom::parser& parser, std::string_view json,
                     simdjson::error_code error, const JsonDecoderOptions& options,
                     RecordArena& records, DecodeFn fn, void* out) {
  JsonTextScan scan = scanJsonText(json, depthLimit(options));
  if (scan.outOfRange.empty()) throw invalidJson(json, error, scan.invalidAt);
  std::string copy(json.size() + JsonDecoder::kPadding, ' ');
  std::memcpy(copy.data(), json.data(), json.size());
  for (const auto& n : scan.outOfRange) {
    copy[n.offset] = '0';
    std::memset(copy.data() + n.offset + 1, ' ', n.length - 1);
  }
  // What is still wrong with the copy is what is wrong with the text.
  error = parser.parse(copy.data(), json.size(), false).error();
  if (error) throw invalidJson(json, error, scan.invalidAt);
  RewrittenNumbers rewritten;
  if (!rewritten.locate(parser.doc, json, scan.outOfRange)) {
    throw invalidJson(json, simdjson::NUMBER_ERROR, scan.invalidAt);
  }
  decodeTape<true>(parser.doc, json, options, records, &rewritten, fn, out);
}

}  // namespace

namespace {

// Gives the whole pages inside [data, data + size) back to the system: they read as zeros when
// touched again, which memory about to be overwritten does not mind.
void releasePages(void* data, std::size_t size) {
  static const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  auto begin = (reinterpret_cast<std::uintptr_t>(data) + page - 1) & ~(page - 1);
  auto end = (reinterpret_cast<std::uintptr_t>(data) + size) & ~(page - 1);
  if (end > begin) ::madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
}

}  // namespace

struct JsonDecoder::Parser {
  simdjson::dom::parser parser;
  std::size_t depth = 0;
  RecordArena records;
};

JsonDecoder::JsonDecoder(JsonDecoderOptions options)
    : options_(std::move(options)), parser_(std::make_unique<Parser>()) {}
JsonDecoder::~JsonDecoder() = default;
JsonDecoder::JsonDecoder(JsonDecoder&&) noexcept = default;
JsonDecoder& JsonDecoder::operator=(JsonDecoder&&) noexcept = default;

RecordArena& JsonDecoder::recordArena() {
  return parser_->records;
}
const RecordArena& JsonDecoder::recordArena() const {
  return parser_->records;
}

void JsonDecoder::run(std::string_view json, bool padded, DecodeFn fn, void* out) {
  auto& p = *parser_;
  simdjson::error_code error = simdjson::SUCCESS;
  // simdjson counts the document root as a level of its own.
  std::size_t depth = depthLimit(options_) + 1;
  if (p.depth != depth || p.parser.capacity() < json.size()) {
    error = p.parser.allocate(std::max<std::size_t>(json.size(), p.parser.capacity()), depth);
    p.depth = error ? 0 : depth;
  }
  if (!error) error = p.parser.parse(json.data(), json.size(), !padded).error();
  if (error == simdjson::NUMBER_ERROR)
    return decodeRewritten(p.parser, json, error, options_, p.records, fn, out);
  if (error) {
    // Only the text is at fault here, unless memory or the parser's size limit ran out.
    bool textAtFault = error != simdjson::MEMALLOC && error != simdjson::CAPACITY;
    throw invalidJson(
        json, error,
        textAtFault ? scanJsonText(json, depthLimit(options_)).invalidAt : std::nullopt);
  }
  // The tape holds all that decoding reads. A large document's structural index (about as
  // large as the document) goes back to the system while the records are built; a smaller one
  // stays, so that decoding one document after another does not touch its pages afresh.
  constexpr std::size_t kReleasedIndex = std::size_t{16} << 20;
  if (auto* implementation = p.parser.implementation.get()) {
    std::size_t used = std::size_t{implementation->n_structural_indexes} + 64;
    std::size_t kept = SIMDJSON_ROUNDUP_N(p.parser.capacity(), 64) + 2 + 7;
    std::size_t bytes = std::min(used, kept) * sizeof(std::uint32_t);
    if (bytes >= kReleasedIndex) releasePages(implementation->structural_indexes.get(), bytes);
  }
  decodeTape<false>(p.parser.doc, json, options_, p.records, nullptr, fn, out);
}

void JsonDecoder::releaseBuffers() {
  auto& p = *parser_;
  p.parser = simdjson::dom::parser();
  p.depth = 0;
}

}  // namespace orvane
