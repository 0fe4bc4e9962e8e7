// The decoding half of the keyed coding interface. Records read themselves through these
// handles only; a coder (the JSON coder) supplies the backend.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include <orvane/coding/CodingError.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/coding/UserInfo.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// A value in the backend's document: an opaque handle whose meaning only the backend knows.
using Node = std::uint64_t;

namespace detail {
/// Whether n bytes at a and b are the same: in a few overlapping word loads, which fold into
/// constants for a record's constant keys, and without a library call otherwise.
inline bool equalBytes(const void* a, const void* b, std::size_t n) noexcept {
  auto word64 = [](const void* p) {
    std::uint64_t v;
    std::memcpy(&v, p, 8);
    return v;
  };
  auto word32 = [](const void* p) {
    std::uint32_t v;
    std::memcpy(&v, p, 4);
    return v;
  };
  const auto* x = static_cast<const unsigned char*>(a);
  const auto* y = static_cast<const unsigned char*>(b);
  if (n >= 8) {
    for (std::size_t i = 0; i + 8 < n; i += 8) {
      if (word64(x + i) != word64(y + i)) return false;
    }
    return word64(x + n - 8) == word64(y + n - 8);
  }
  if (n >= 4) return word32(x) == word32(y) && word32(x + n - 4) == word32(y + n - 4);
  for (std::size_t i = 0; i < n; ++i) {
    if (x[i] != y[i]) return false;
  }
  return true;
}
}  // namespace detail

/// What a typed read of the backend found. Reads never throw: the containers turn a status into
/// the right error, or into no value for a tolerant key.
enum class ReadStatus : std::uint8_t {
  ok,         ///< the value was read
  null,       ///< the value is null
  mismatch,   ///< a value of another kind
  corrupted,  ///< the right kind, but unusable (an Int that does not fit, an invalid date or URL)
};

/// The document behind a decoder. Implemented by a coder; records never call it directly.
class DecoderBackend {
 public:
  virtual ~DecoderBackend();

  ///@{

  /// What kind of value `node` is; a node is at most one of the three.
  virtual bool isNull(Node node) const noexcept = 0;
  virtual bool isObject(Node node) const noexcept = 0;
  virtual bool isArray(Node node) const noexcept = 0;
  ///@}

  /// How a member's value looks, as far as the containers read it without asking the backend.
  enum class MemberKind : std::uint8_t {
    number,  ///< a number, whose value the backend has read already
    null,    ///< null, which an optional read takes for absent without asking the backend
    other,   ///< anything else: the containers ask the backend
  };

  /// Per-container lookup state. The backend lays out the members that follow the cursor in
  /// `ahead` (only while no key of the object repeats), so that a record reading its keys in
  /// order finds each one, and a number's value, without a call into the backend. The rest is
  /// the backend's own: where the members after `ahead` begin (zero until it is prepared),
  /// a filter of the keys present, the filter bits of keys that repeat.
  struct LookupState {
    /// One member laid out ahead of the cursor: its key (bytes owned by the backend's
    /// document), how its value looks, and the value itself.
    struct Member {
      const char* key;          ///< the key's bytes, not NUL-terminated
      std::uint32_t keyLength;  ///< in bytes
      MemberKind kind;          ///< whether `number` holds the value
      Node value;               ///< the member's value, as the backend names it
      double number;            ///< the value as readDouble reads it, when kind is number

      /// Whether the member's key is exactly `text`, byte for byte.
      bool hasKey(std::string_view text) const noexcept {
        return keyLength == text.size() && detail::equalBytes(key, text.data(), text.size());
      }
    };
    /// How many members the backend lays out at most.
    static constexpr std::uint8_t kAhead = 8;
    Member ahead[kAhead];        ///< filled by the backend; entries from `count` on are unset
    std::uint8_t count = 0;      ///< how many entries of `ahead` are set
    std::uint8_t next = 0;       ///< the member at the cursor, when below count
    std::uint64_t position = 0;  ///< the backend's: where the members after `ahead` begin
    std::uint64_t filter = 0;    ///< the backend's: a filter of the keys present
    std::uint64_t repeated = 0;  ///< the backend's: the filter bits of keys that repeat
  };

  /// Whether `node` is an object; when it is, the backend may prepare `state` for its lookups
  /// (containers call this as they open an object, with a zeroed state).
  virtual bool openObject(Node node, LookupState& state) const noexcept {
    (void)state;
    return isObject(node);
  }

  /// Finds `key` in the object `object`. Records read their keys in a fixed order, so the
  /// backend may resume where the previous lookup ended. When a key appears twice, the last one
  /// counts. Called when the member at the cursor in `state.ahead` is not the key.
  virtual bool findMember(Node object, std::string_view key, Node& value,
                          LookupState& state) const noexcept = 0;

  /// The first element of an array and the element count; elements follow through `next`.
  virtual std::size_t arrayCount(Node array) const noexcept = 0;
  /// Only called on a non-empty array.
  virtual Node firstElement(Node array) const noexcept = 0;
  /// Only called while an element follows `element`.
  virtual Node nextElement(Node element) const noexcept = 0;

  ///@{

  /// Reads `node` as a scalar into `out`, which is set only on `ok`. A string or URL is a view
  /// into the document and valid while it lives; the coder checks the URL's text and converts
  /// dates by its own strategy.
  virtual ReadStatus readString(Node node, std::string_view& out) const noexcept = 0;
  virtual ReadStatus readDouble(Node node, double& out) const noexcept = 0;
  virtual ReadStatus readInt(Node node, std::int64_t& out) const noexcept = 0;
  virtual ReadStatus readBool(Node node, bool& out) const noexcept = 0;
  virtual ReadStatus readDate(Node node, Date& out) const noexcept = 0;
  virtual ReadStatus readUrl(Node node, std::string_view& out) const noexcept = 0;
  ///@}

  /// A phrase for error messages: "a string", "a number", "null", ...
  virtual std::string describe(Node node) const = 0;
  /// Why a `corrupted` read of `type` failed, as the error's description.
  virtual std::string corruptionReason(Node node, std::string_view type) const = 0;
};

/// Told of every value that a tolerant key dropped although the document held one (an unknown
/// enumeration string, a value of another kind). Absent keys and nulls are not reported.
class DecodingWarnings {
 public:
  virtual ~DecodingWarnings();
  /// `path` leads to the dropped value; `reason` is the description that a required read of
  /// it would have raised.
  virtual void dropped(const CodingPath& path, const std::string& reason) = 0;
};

/// What every decoder of one decode shares. A coder makes one per decode over its backend and
/// the caller's user-info map; the import-source flag is read from that map here, once, so
/// every coder gets the same import behaviour.
class DecodingContext {
 public:
  /// Refers to all three; they must outlive every decoder of the decode.
  DecodingContext(const DecoderBackend& backend, const UserInfo& userInfo,
                  DecodingWarnings* warnings = nullptr)
      : backend(&backend),
        userInfo(&userInfo),
        warnings(warnings),
        fromImportSource(isFromImportSource(userInfo)) {}

  /// The document being decoded.
  const DecoderBackend* const backend;
  /// The caller's map, as `Decoder::userInfo()` hands it to records.
  const UserInfo* const userInfo;
  /// Null unless the caller asked to hear of dropped values.
  DecodingWarnings* const warnings;
  /// True only for a `bool` true under `CodingUserInfoKey::fromImportSource()`.
  const bool fromImportSource;
};

class KeyedDecodingContainer;
class UnkeyedDecodingContainer;
class SingleValueDecodingContainer;

template <class T>
struct Coding;

/// `std::optional<T>`, except that an optional record is a null `Ref`.
template <class T>
struct OptionalOf {
  using type = std::optional<T>;  ///< no value is `std::nullopt`
};
/// A record held by `Ref` needs no `std::optional` around it: null is its absence.
template <class T>
struct OptionalOf<std::shared_ptr<T>> {
  using type = std::shared_ptr<T>;  ///< no value is null
};
/// What an optional or tolerant read of a T gives.
template <class T>
using Optional = typename OptionalOf<T>::type;

/// A decoder for one value of the document. Cheap to copy; valid only during the decode call
/// that handed it out (its coding path lives on that call's stack).
class Decoder {
 public:
  /// A decoder for `node`, at the path that `path` ends (null at the root). Coders and
  /// containers make them; records receive them.
  Decoder(const DecodingContext& context, Node node, const CodingPathLink* path)
      : context_(&context), node_(node), path_(path) {}

  /// The keyed object of this value. May be called more than once: every container reads the
  /// same object. Fails with valueNotFound on null and typeMismatch on any other kind.
  KeyedDecodingContainer container() const;
  /// The array of this value. Fails with valueNotFound on null and typeMismatch on any other
  /// kind.
  UnkeyedDecodingContainer unkeyedContainer() const;
  /// This value as a scalar. Never fails itself; its reads do.
  SingleValueDecodingContainer singleValueContainer() const;

  /// The path from the root to this value, built on each call (for errors and messages).
  CodingPath codingPath() const { return CodingPathLink::materialize(path_); }
  /// The same path as its last link, without building it: what `DecodingError::dataCorrupted`
  /// takes. Null at the root.
  const CodingPathLink* pathLink() const { return path_; }
  /// The caller's user-info map, the same for every decoder of the decode.
  const UserInfo& userInfo() const { return *context_->userInfo; }
  /// The user-info flag `fromImportSource`, looked up once per decode.
  bool isFromImportSource() const { return context_->fromImportSource; }
  /// What every decoder of this decode shares: backend, user info, warnings observer.
  const DecodingContext& context() const { return *context_; }
  /// This value as the backend names it.
  Node node() const { return node_; }

 private:
  friend class KeyedDecodingContainer;
  [[noreturn]] void throwNotAnObject() const;

  const DecodingContext* context_;
  Node node_;
  const CodingPathLink* path_;
};

/// Reads scalar values; a raw-value enumeration or an `Identifier` decodes through it.
class SingleValueDecodingContainer {
 public:
  /// Reads the value that `decoder` stands for.
  explicit SingleValueDecodingContainer(const Decoder& decoder) : decoder_(decoder) {}

  /// True when the value is null. Reads nothing else and never fails.
  bool decodeNil() const;
  /// The value as a String; null fails with valueNotFound, another kind with typeMismatch.
  std::string decodeString() const;
  /// The string without a copy; valid while the document lives.
  std::string_view decodeStringView() const;
  ///@{

  /// The value as that scalar. Null fails with valueNotFound, another kind with typeMismatch,
  /// and a value of the right kind that does not fit (an Int beyond 64 bits, a date or URL the
  /// coder refuses) with dataCorrupted.
  double decodeDouble() const;
  std::int64_t decodeInt() const;
  bool decodeBool() const;
  Date decodeDate() const;
  Url decodeUrl() const;
  ///@}

  /// The path of the value, built on each call.
  CodingPath codingPath() const { return decoder_.codingPath(); }
  /// The path's last link, for `DecodingError::dataCorrupted`.
  const CodingPathLink* pathLink() const { return decoder_.pathLink(); }

  /// Reads a string without raising: absent strings, nulls and other kinds give no value.
  std::optional<std::string_view> tryStringView() const noexcept;

 private:
  Decoder decoder_;
};

/// Reads the members of one keyed object.
class KeyedDecodingContainer {
 public:
  /// A container for `object`, whose path `path` ends. Expects an object: `Decoder::container`
  /// checks that first.
  KeyedDecodingContainer(const DecodingContext& context, Node object, const CodingPathLink* path)
      : context_(&context), object_(object), path_(path) {}
  /// A container for the object under `key` of a container whose path is `parent`; it carries
  /// its own last path link, so it may outlive the call that made it.
  KeyedDecodingContainer(const DecodingContext& context, Node object, const CodingPathLink* parent,
                         std::string_view key)
      : context_(&context), object_(object), path_(nullptr), self_{parent, key}, nested_(true) {}

  /// Required key: absent fails with keyNotFound, null with valueNotFound, another kind with
  /// typeMismatch; a failure inside the value propagates.
  template <class T>
  T decode(std::string_view key) const;
  /// Optional key: absent or null give no value; any other failure propagates.
  template <class T>
  Optional<T> decodeIfPresent(std::string_view key) const;
  /// Tolerant key: every failure of this one read gives no value. Scalars and raw-value
  /// enumerations are checked without raising anything.
  template <class T>
  Optional<T> decodeTolerant(std::string_view key) const;

  /// True when the key is present, even with a null value.
  bool contains(std::string_view key) const;
  /// True when the key is absent or null.
  bool decodeNil(std::string_view key) const;

  /// The object under a required key: absent fails with keyNotFound, null with valueNotFound,
  /// another kind with typeMismatch.
  KeyedDecodingContainer nestedContainer(std::string_view key) const;
  /// The array under a required key, failing as `nestedContainer` does.
  UnkeyedDecodingContainer nestedUnkeyedContainer(std::string_view key) const;

  /// The path of this object, built on each call.
  CodingPath codingPath() const { return CodingPathLink::materialize(pathLink()); }
  /// Valid during calls on this container.
  const CodingPathLink* pathLink() const { return nested_ ? &self_ : path_; }
  /// What every decoder of this decode shares.
  const DecodingContext& context() const { return *context_; }

  /// Hands the value under a required key to `fn(const Decoder&)`.
  template <class Fn>
  decltype(auto) withDecoder(std::string_view key, Fn&& fn) const {
    CodingPathLink link{pathLink(), key};
    Decoder sub(*context_, require(key), &link);
    return fn(static_cast<const Decoder&>(sub));
  }

  // Scalar reads behind the templates; each does one lookup and one backend read.
  ///@{

  /// A scalar under a required key, as `decode<T>(key)` reads it: absent fails with
  /// keyNotFound, null with valueNotFound, another kind with typeMismatch, a value that does
  /// not fit with dataCorrupted.
  std::string decodeString(std::string_view key) const;
  double decodeDouble(std::string_view key) const {
    if (const Member* m = takeNext(key)) {
      return m->kind == MemberKind::number ? m->number : readDouble(key, m->value);
    }
    return decodeDoubleElsewhere(key);
  }
  std::int64_t decodeInt(std::string_view key) const;
  bool decodeBool(std::string_view key) const;
  Date decodeDate(std::string_view key) const;
  Url decodeUrl(std::string_view key) const;
  ///@}

  ///@{

  /// A scalar under an optional key, as `decodeIfPresent<T>(key)` reads it: absent or null
  /// give no value; a value of another kind or one that does not fit fails as above.
  std::optional<std::string> decodeStringIfPresent(std::string_view key) const;
  std::optional<double> decodeDoubleIfPresent(std::string_view key) const {
    if (const Member* m = takeNext(key)) {
      if (m->kind == MemberKind::number) return m->number;
      if (m->kind == MemberKind::null) return std::nullopt;
      return readDouble(key, m->value);
    }
    return decodeDoubleIfPresentElsewhere(key);
  }
  std::optional<std::int64_t> decodeIntIfPresent(std::string_view key) const;
  std::optional<bool> decodeBoolIfPresent(std::string_view key) const;
  std::optional<Date> decodeDateIfPresent(std::string_view key) const;
  std::optional<Url> decodeUrlIfPresent(std::string_view key) const;
  ///@}

  ///@{

  /// A scalar under a tolerant key, as `decodeTolerant<T>(key)` reads it: every failure gives
  /// no value, without raising; a dropped non-null value is reported to the warnings observer.
  /// The string is a view into the document.
  std::optional<std::string_view> tolerantStringView(std::string_view key) const noexcept;
  std::optional<double> tolerantDouble(std::string_view key) const noexcept;
  std::optional<std::int64_t> tolerantInt(std::string_view key) const noexcept;
  std::optional<bool> tolerantBool(std::string_view key) const noexcept;
  std::optional<Date> tolerantDate(std::string_view key) const noexcept;
  std::optional<Url> tolerantUrl(std::string_view key) const noexcept;
  ///@}

 private:
  using Member = DecoderBackend::LookupState::Member;
  using MemberKind = DecoderBackend::MemberKind;

  /// The member at the cursor when its key is `key`, and the cursor moved past it; otherwise
  /// null. Inline, so that a record's constant key compares as a constant.
  const Member* takeNext(std::string_view key) const noexcept {
    auto& s = lookup_;
    if (s.next < s.count) {
      const Member& m = s.ahead[s.next];
      if (m.hasKey(key)) {
        ++s.next;
        return &m;
      }
    }
    return nullptr;
  }
  /// The lookup in the backend, once takeNext found nothing.
  bool findElsewhere(std::string_view key, Node& value) const noexcept {
    return context_->backend->findMember(object_, key, value, lookup_);
  }
  bool find(std::string_view key, Node& value) const noexcept {
    if (const Member* m = takeNext(key)) {
      value = m->value;
      return true;
    }
    return findElsewhere(key, value);
  }
  /// The value under a required key; raises keyNotFound when absent.
  Node require(std::string_view key) const {
    Node value;
    if (!find(key, value)) throwKeyNotFound(key);
    return value;
  }
  /// The value under an optional key: false when absent or null.
  bool lookupPresent(std::string_view key, Node& value) const noexcept {
    if (const Member* m = takeNext(key)) {
      value = m->value;
      return m->kind != MemberKind::null;
    }
    return findElsewhere(key, value) && !context_->backend->isNull(value);
  }
  [[noreturn]] void throwKeyNotFound(std::string_view key) const;
  /// Tells the warnings observer that the value under `key` was dropped, unless it is null.
  void reportDropped(std::string_view key, Node value, const std::string& reason) const;
  friend class Decoder;
  /// Whether the value is an object, and the lookups prepared when it is.
  bool open() const noexcept { return context_->backend->openObject(object_, lookup_); }
  double readDouble(std::string_view key, Node value) const;
  double decodeDoubleElsewhere(std::string_view key) const;
  std::optional<double> decodeDoubleIfPresentElsewhere(std::string_view key) const;

  template <class T>
  static constexpr bool isScalar = std::is_same_v<T, std::string> || std::is_same_v<T, double> ||
                                   std::is_same_v<T, std::int64_t> || std::is_same_v<T, bool> ||
                                   std::is_same_v<T, Date> || std::is_same_v<T, Url>;

  template <class T>
  T decodeScalar(std::string_view key) const;
  template <class T>
  std::optional<T> decodeScalarIfPresent(std::string_view key) const;
  template <class T>
  std::optional<T> tolerantScalar(std::string_view key) const noexcept;
  template <class View, class T>
  std::optional<T> tolerantRead(std::string_view key, Node value) const noexcept;
  /// The value under a tolerant key, read as a required one would be; a failure gives no value
  /// and is reported.
  template <class T>
  Optional<T> decodeOrDrop(std::string_view key, Node value) const;

  const DecodingContext* context_;
  Node object_;
  const CodingPathLink* path_;
  CodingPathLink self_;
  bool nested_ = false;
  mutable DecoderBackend::LookupState lookup_;
};

/// Reads the elements of one array in order.
class UnkeyedDecodingContainer {
 public:
  /// A container for `array`, whose path `path` ends, with its cursor at the first element.
  /// Expects an array: `Decoder::unkeyedContainer` checks that first.
  UnkeyedDecodingContainer(const DecodingContext& context, Node array, const CodingPathLink* path);
  /// A container for the array under `key` of a container whose path is `parent`.
  UnkeyedDecodingContainer(const DecodingContext& context, Node array, const CodingPathLink* parent,
                           std::string_view key);

  /// True once every element has been decoded.
  bool isAtEnd() const { return index_ >= count_; }
  /// How many elements the array has, decoded or not.
  std::size_t count() const { return count_; }
  /// The index of the element that `decode` reads next, from 0.
  std::size_t currentIndex() const { return index_; }
  /// The path of the array, built on each call.
  CodingPath codingPath() const { return CodingPathLink::materialize(pathLink()); }
  /// The path's last link, for errors.
  const CodingPathLink* pathLink() const { return nested_ ? &self_ : path_; }

  /// Decodes the next element; past the end fails with valueNotFound.
  template <class T>
  T decode() {
    checkNotAtEnd();
    CodingPathLink link{pathLink(), {}, index_, true};
    Decoder sub(*context_, current_, &link);
    T value = Coding<T>::decode(sub);
    advance();
    return value;
  }

 private:
  void checkNotAtEnd() const;
  void advance();

  const DecodingContext* context_;
  const CodingPathLink* path_;
  CodingPathLink self_;
  bool nested_ = false;
  std::size_t count_;
  std::size_t index_ = 0;
  Node current_ = 0;
};

/// Whether `Coding<T>` can read a value of T without raising for its ordinary failures.
template <class T, class = void>
struct HasTolerantCoding : std::false_type {};
template <class T>
struct HasTolerantCoding<T, std::void_t<decltype(Coding<T>::tryDecode(
                                std::declval<const SingleValueDecodingContainer&>()))>>
    : std::true_type {};

// --- Keyed container templates ------------------------------------------------------------

template <class T>
T KeyedDecodingContainer::decode(std::string_view key) const {
  if constexpr (isScalar<T>) {
    return decodeScalar<T>(key);
  } else {
    CodingPathLink link{pathLink(), key};
    Decoder sub(*context_, require(key), &link);
    return Coding<T>::decode(sub);
  }
}

template <class T>
Optional<T> KeyedDecodingContainer::decodeIfPresent(std::string_view key) const {
  if constexpr (isScalar<T>) {
    return decodeScalarIfPresent<T>(key);
  } else {
    Node value;
    if (!lookupPresent(key, value)) return Optional<T>{};
    CodingPathLink link{pathLink(), key};
    Decoder sub(*context_, value, &link);
    return Optional<T>(Coding<T>::decode(sub));
  }
}

template <class T>
Optional<T> KeyedDecodingContainer::decodeTolerant(std::string_view key) const {
  if constexpr (isScalar<T>) {
    return tolerantScalar<T>(key);
  } else if constexpr (HasTolerantCoding<T>::value) {
    Node value;
    if (!find(key, value)) return Optional<T>{};
    CodingPathLink link{pathLink(), key};
    Decoder sub(*context_, value, &link);
    auto result = Coding<T>::tryDecode(SingleValueDecodingContainer(sub));
    if (!result && context_->warnings && !context_->backend->isNull(value)) {
      // Only to say why: the required read raises what the tolerant one swallowed.
      (void)decodeOrDrop<T>(key, value);
    }
    return result;
  } else {
    // Records under a tolerant key are rare; their failures may come from deep inside.
    Node value;
    if (!find(key, value)) return Optional<T>{};
    return decodeOrDrop<T>(key, value);
  }
}

template <class T>
Optional<T> KeyedDecodingContainer::decodeOrDrop(std::string_view key, Node value) const {
  CodingPathLink link{pathLink(), key};
  Decoder sub(*context_, value, &link);
  try {
    return Optional<T>(Coding<T>::decode(sub));
  } catch (const DecodingError& e) {
    if (context_->warnings) reportDropped(key, value, e.description());
    return Optional<T>{};
  }
}

template <class T>
T KeyedDecodingContainer::decodeScalar(std::string_view key) const {
  if constexpr (std::is_same_v<T, std::string>)
    return decodeString(key);
  else if constexpr (std::is_same_v<T, double>)
    return decodeDouble(key);
  else if constexpr (std::is_same_v<T, std::int64_t>)
    return decodeInt(key);
  else if constexpr (std::is_same_v<T, bool>)
    return decodeBool(key);
  else if constexpr (std::is_same_v<T, Date>)
    return decodeDate(key);
  else
    return decodeUrl(key);
}

template <class T>
std::optional<T> KeyedDecodingContainer::decodeScalarIfPresent(std::string_view key) const {
  if constexpr (std::is_same_v<T, std::string>)
    return decodeStringIfPresent(key);
  else if constexpr (std::is_same_v<T, double>)
    return decodeDoubleIfPresent(key);
  else if constexpr (std::is_same_v<T, std::int64_t>)
    return decodeIntIfPresent(key);
  else if constexpr (std::is_same_v<T, bool>)
    return decodeBoolIfPresent(key);
  else if constexpr (std::is_same_v<T, Date>)
    return decodeDateIfPresent(key);
  else
    return decodeUrlIfPresent(key);
}

template <class T>
std::optional<T> KeyedDecodingContainer::tolerantScalar(std::string_view key) const noexcept {
  if constexpr (std::is_same_v<T, std::string>) {
    auto v = tolerantStringView(key);
    return v ? std::optional<std::string>(std::string(*v)) : std::nullopt;
  } else if constexpr (std::is_same_v<T, double>)
    return tolerantDouble(key);
  else if constexpr (std::is_same_v<T, std::int64_t>)
    return tolerantInt(key);
  else if constexpr (std::is_same_v<T, bool>)
    return tolerantBool(key);
  else if constexpr (std::is_same_v<T, Date>)
    return tolerantDate(key);
  else
    return tolerantUrl(key);
}

}  // namespace orvane
