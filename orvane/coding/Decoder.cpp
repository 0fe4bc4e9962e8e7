#include <orvane/coding/Decoder.hpp>

namespace orvane {

DecoderBackend::~DecoderBackend() = default;
DecodingWarnings::~DecodingWarnings() = default;

namespace {

std::string quoted(std::string_view key) {
  std::string s = "No value associated with key \"";
  s += key;
  s += "\".";
  return s;
}

// What a failed read of `type` found, in the words of the error it raises.
std::string statusDescription(const DecodingContext& ctx, Node node, ReadStatus status,
                              std::string_view type) {
  switch (status) {
    case ReadStatus::null:
      return "Expected " + std::string(type) + " value but found null instead.";
    case ReadStatus::mismatch:
      return "Expected to decode " + std::string(type) + " but found " +
             ctx.backend->describe(node) + " instead.";
    case ReadStatus::corrupted:
    case ReadStatus::ok:
      break;
  }
  return ctx.backend->corruptionReason(node, type);
}

[[noreturn]] void throwStatus(const DecodingContext& ctx, Node node, const CodingPathLink* path,
                              ReadStatus status, std::string_view type) {
  using Kind = DecodingError::Kind;
  Kind kind = status == ReadStatus::null       ? Kind::valueNotFound
              : status == ReadStatus::mismatch ? Kind::typeMismatch
                                               : Kind::dataCorrupted;
  throw DecodingError(kind, CodingPathLink::materialize(path),
                      statusDescription(ctx, node, status, type));
}

// One generic body for the six scalar kinds: which backend read, and the type's name in errors.
template <class T>
struct Scalar;
template <>
struct Scalar<std::string_view> {
  static constexpr std::string_view name = "String";
  static ReadStatus read(const DecoderBackend& b, Node n, std::string_view& v) {
    return b.readString(n, v);
  }
};
template <>
struct Scalar<double> {
  static constexpr std::string_view name = "Double";
  static ReadStatus read(const DecoderBackend& b, Node n, double& v) { return b.readDouble(n, v); }
};
template <>
struct Scalar<std::int64_t> {
  static constexpr std::string_view name = "Int";
  static ReadStatus read(const DecoderBackend& b, Node n, std::int64_t& v) {
    return b.readInt(n, v);
  }
};
template <>
struct Scalar<bool> {
  static constexpr std::string_view name = "Bool";
  static ReadStatus read(const DecoderBackend& b, Node n, bool& v) { return b.readBool(n, v); }
};
template <>
struct Scalar<Date> {
  static constexpr std::string_view name = "Date";
  static ReadStatus read(const DecoderBackend& b, Node n, Date& v) { return b.readDate(n, v); }
};
struct UrlView {
  std::string_view text;
};
template <>
struct Scalar<UrlView> {
  static constexpr std::string_view name = "URL";
  static ReadStatus read(const DecoderBackend& b, Node n, UrlView& v) {
    return b.readUrl(n, v.text);
  }
};

template <class T>
T readValue(const DecodingContext& ctx, Node node, const CodingPathLink* path) {
  T value{};
  ReadStatus s = Scalar<T>::read(*ctx.backend, node, value);
  if (s != ReadStatus::ok) throwStatus(ctx, node, path, s, Scalar<T>::name);
  return value;
}

// The value read as a view, as the caller keeps it: a string or URL view is copied only when
// the caller asked for an owning type.
template <class T, class View>
T own(View v) {
  if constexpr (std::is_same_v<View, UrlView>)
    return Url(std::string(v.text));
  else
    return T(v);
}

}  // namespace

// --- Decoder ------------------------------------------------------------------------------

KeyedDecodingContainer Decoder::container() const {
  KeyedDecodingContainer c(*context_, node_, path_);
  if (!c.open()) throwNotAnObject();
  return c;
}

void Decoder::throwNotAnObject() const {
  const auto& b = *context_->backend;
  if (b.isNull(node_)) {
    throw DecodingError(DecodingError::Kind::valueNotFound, codingPath(),
                        "Expected a keyed object but found null instead.");
  }
  throw DecodingError(
      DecodingError::Kind::typeMismatch, codingPath(),
      "Expected to decode a keyed object but found " + b.describe(node_) + " instead.");
}

UnkeyedDecodingContainer Decoder::unkeyedContainer() const {
  const auto& b = *context_->backend;
  if (!b.isArray(node_)) {
    if (b.isNull(node_)) {
      throw DecodingError(DecodingError::Kind::valueNotFound, codingPath(),
                          "Expected an array but found null instead.");
    }
    throw DecodingError(DecodingError::Kind::typeMismatch, codingPath(),
                        "Expected to decode an array but found " + b.describe(node_) + " instead.");
  }
  return UnkeyedDecodingContainer(*context_, node_, path_);
}

SingleValueDecodingContainer Decoder::singleValueContainer() const {
  return SingleValueDecodingContainer(*this);
}

// --- Single value -------------------------------------------------------------------------

bool SingleValueDecodingContainer::decodeNil() const {
  return decoder_.context().backend->isNull(decoder_.node());
}

std::string_view SingleValueDecodingContainer::decodeStringView() const {
  return readValue<std::string_view>(decoder_.context(), decoder_.node(), decoder_.pathLink());
}
std::string SingleValueDecodingContainer::decodeString() const {
  return std::string(decodeStringView());
}
double SingleValueDecodingContainer::decodeDouble() const {
  return readValue<double>(decoder_.context(), decoder_.node(), decoder_.pathLink());
}
std::int64_t SingleValueDecodingContainer::decodeInt() const {
  return readValue<std::int64_t>(decoder_.context(), decoder_.node(), decoder_.pathLink());
}
bool SingleValueDecodingContainer::decodeBool() const {
  return readValue<bool>(decoder_.context(), decoder_.node(), decoder_.pathLink());
}
Date SingleValueDecodingContainer::decodeDate() const {
  return readValue<Date>(decoder_.context(), decoder_.node(), decoder_.pathLink());
}
Url SingleValueDecodingContainer::decodeUrl() const {
  return own<Url>(readValue<UrlView>(decoder_.context(), decoder_.node(), decoder_.pathLink()));
}

std::optional<std::string_view> SingleValueDecodingContainer::tryStringView() const noexcept {
  std::string_view v;
  if (decoder_.context().backend->readString(decoder_.node(), v) != ReadStatus::ok) {
    return std::nullopt;
  }
  return v;
}

// --- Keyed --------------------------------------------------------------------------------

void KeyedDecodingContainer::throwKeyNotFound(std::string_view key) const {
  throw DecodingError(DecodingError::Kind::keyNotFound, codingPath(), quoted(key),
                      std::string(key));
}

bool KeyedDecodingContainer::contains(std::string_view key) const {
  Node value;
  return find(key, value);
}

bool KeyedDecodingContainer::decodeNil(std::string_view key) const {
  Node value;
  return !lookupPresent(key, value);
}

KeyedDecodingContainer KeyedDecodingContainer::nestedContainer(std::string_view key) const {
  CodingPathLink link{pathLink(), key};
  Decoder sub(*context_, require(key), &link);
  KeyedDecodingContainer c(*context_, sub.node(), pathLink(), key);
  if (!c.open()) sub.throwNotAnObject();
  return c;
}

UnkeyedDecodingContainer KeyedDecodingContainer::nestedUnkeyedContainer(
    std::string_view key) const {
  CodingPathLink link{pathLink(), key};
  Decoder sub(*context_, require(key), &link);
  (void)sub.unkeyedContainer();  // raises when the value is not an array
  return UnkeyedDecodingContainer(*context_, sub.node(), pathLink(), key);
}

namespace {
template <class View, class T>
T requiredScalar(const DecodingContext& ctx, const CodingPathLink* path, std::string_view key,
                 Node value) {
  CodingPathLink link{path, key};
  return own<T>(readValue<View>(ctx, value, &link));
}
}  // namespace

void KeyedDecodingContainer::reportDropped(std::string_view key, Node value,
                                           const std::string& reason) const {
  if (context_->backend->isNull(value)) return;
  CodingPathLink link{pathLink(), key};
  context_->warnings->dropped(CodingPathLink::materialize(&link), reason);
}

template <class View, class T>
std::optional<T> KeyedDecodingContainer::tolerantRead(std::string_view key,
                                                      Node value) const noexcept {
  View v{};
  ReadStatus status = Scalar<View>::read(*context_->backend, value, v);
  if (status == ReadStatus::ok) return own<T>(v);
  // A null is dropped without a word, so it needs no description.
  if (context_->warnings && status != ReadStatus::null) {
    // An observer that throws is the caller's own business; it must not escape a noexcept read.
    try {
      reportDropped(key, value, statusDescription(*context_, value, status, Scalar<View>::name));
    } catch (...) {
    }
  }
  return std::nullopt;
}

#define ORVANE_KEYED_SCALAR(T, View, Name)                                                       \
  T KeyedDecodingContainer::decode##Name(std::string_view key) const {                           \
    return requiredScalar<View, T>(*context_, pathLink(), key, require(key));                    \
  }                                                                                              \
  std::optional<T> KeyedDecodingContainer::decode##Name##IfPresent(std::string_view key) const { \
    Node value;                                                                                  \
    if (!lookupPresent(key, value)) return std::nullopt;                                         \
    return requiredScalar<View, T>(*context_, pathLink(), key, value);                           \
  }
ORVANE_KEYED_SCALAR(std::string, std::string_view, String)
ORVANE_KEYED_SCALAR(std::int64_t, std::int64_t, Int)
ORVANE_KEYED_SCALAR(bool, bool, Bool)
ORVANE_KEYED_SCALAR(Date, Date, Date)
ORVANE_KEYED_SCALAR(Url, UrlView, Url)
#undef ORVANE_KEYED_SCALAR

// Doubles take the member at the cursor inline (see the header); these are the other ways.
double KeyedDecodingContainer::readDouble(std::string_view key, Node value) const {
  return requiredScalar<double, double>(*context_, pathLink(), key, value);
}
double KeyedDecodingContainer::decodeDoubleElsewhere(std::string_view key) const {
  Node value;
  if (!findElsewhere(key, value)) throwKeyNotFound(key);
  return readDouble(key, value);
}
std::optional<double> KeyedDecodingContainer::decodeDoubleIfPresentElsewhere(
    std::string_view key) const {
  Node value;
  if (!findElsewhere(key, value) || context_->backend->isNull(value)) return std::nullopt;
  return readDouble(key, value);
}

#define ORVANE_TOLERANT_SCALAR(T, View, Name)                                                    \
  std::optional<T> KeyedDecodingContainer::tolerant##Name(std::string_view key) const noexcept { \
    Node value;                                                                                  \
    if (!find(key, value)) return std::nullopt;                                                  \
    return tolerantRead<View, T>(key, value);                                                    \
  }
ORVANE_TOLERANT_SCALAR(std::string_view, std::string_view, StringView)
ORVANE_TOLERANT_SCALAR(double, double, Double)
ORVANE_TOLERANT_SCALAR(std::int64_t, std::int64_t, Int)
ORVANE_TOLERANT_SCALAR(bool, bool, Bool)
ORVANE_TOLERANT_SCALAR(Date, Date, Date)
ORVANE_TOLERANT_SCALAR(Url, UrlView, Url)
#undef ORVANE_TOLERANT_SCALAR

// --- Unkeyed ------------------------------------------------------------------------------

UnkeyedDecodingContainer::UnkeyedDecodingContainer(const DecodingContext& context, Node array,
                                                   const CodingPathLink* path)
    : context_(&context), path_(path) {
  count_ = context.backend->arrayCount(array);
  if (count_ > 0) current_ = context.backend->firstElement(array);
}

UnkeyedDecodingContainer::UnkeyedDecodingContainer(const DecodingContext& context, Node array,
                                                   const CodingPathLink* parent,
                                                   std::string_view key)
    : UnkeyedDecodingContainer(context, array, nullptr) {
  self_ = CodingPathLink{parent, key};
  nested_ = true;
}

void UnkeyedDecodingContainer::checkNotAtEnd() const {
  if (!isAtEnd()) return;
  CodingPathLink link{pathLink(), {}, index_, true};
  throw DecodingError(DecodingError::Kind::valueNotFound, CodingPathLink::materialize(&link),
                      "Unkeyed container is at end.");
}

void UnkeyedDecodingContainer::advance() {
  ++index_;
  if (index_ < count_) current_ = context_->backend->nextElement(current_);
}

}  // namespace orvane
