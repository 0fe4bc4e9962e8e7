// The encoding half of the keyed coding interface. Encoders stream: a record's members are
// written in the order its encoding operation writes them, with no tree built in between.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include <orvane/coding/CodingError.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Url.hpp>

namespace orvane {

/// Which members records write: each record's own encoding operation, or the document form.
enum class EncodingForm : std::uint8_t {
  /// What each record's encoding operation writes: the members the client sends back to the
  /// service (a project writes five; most records leave their identifier out). The text is a
  /// request body; it does not, in general, decode again as the same record.
  records,
  /// The document form: every member that decoding reads, under the document's own keys and
  /// as the same coder reads it back, so that decoding the text gives an equal graph. Written
  /// from the same field statements that drive decoding; decode-only records have it too.
  document,
};

/// The document an encoder writes into. Open containers form a stack; a container is named by
/// its level in that stack, and writing into a level first closes every container above it, so
/// a nested container ends where its parent's next member begins.
class EncoderBackend {
 public:
  /// A backend for text in `form`: the records consult it through `Encoder::form()`.
  explicit EncoderBackend(EncodingForm form = EncodingForm::records) : form_(form) {}
  virtual ~EncoderBackend();

  /// Which members the records write into this document.
  EncodingForm form() const { return form_; }

  /// Starts a member `key` of the object at `level`.
  void member(int level, std::string_view key) {
    closeAbove(level);
    writeKey(key);
  }
  /// Starts the next element of the array at `level`.
  void element(int level) { closeAbove(level); }
  ///@{

  /// Opens an object or an array at the current position and returns its level.
  virtual int openObject() = 0;
  virtual int openArray() = 0;
  ///@}

  /// Closes every container above `level`.
  void closeAbove(int level) {
    // Nearly always the innermost container already: no call then.
    if (level < depth_) closeTo(level);
  }
  /// Starts a member `key` of the innermost container, an object.
  virtual void writeKey(std::string_view key) = 0;

  ///@{

  /// Writes a scalar at the current position: after `member` or `element`, or as a value of
  /// its own.
  virtual void writeNull() = 0;
  virtual void writeString(std::string_view value) = 0;
  virtual void writeBool(bool value) = 0;
  virtual void writeInt(std::int64_t value) = 0;
  ///@}

  /// Raises EncodingError for a non-finite number, at `path`.
  virtual void writeDouble(double value, const CodingPathLink* path) = 0;
  /// Writes the date as the coder's date strategy says; `path` is for a number that the
  /// strategy makes of it, which may fail as `writeDouble` does.
  virtual void writeDate(Date value, const CodingPathLink* path) = 0;
  /// Writes the address's text unchanged.
  virtual void writeUrl(const Url& value) = 0;

  ///@{

  /// A member `key` of the object at `level` with a scalar value, in one call: most members
  /// are scalars, and a backend can write key and value together. `parent` is the path of the
  /// object, for errors. By default member() then the matching write.
  virtual void memberString(int level, std::string_view key, std::string_view value);
  virtual void memberDouble(int level, std::string_view key, double value,
                            const CodingPathLink* parent);
  virtual void memberInt(int level, std::string_view key, std::int64_t value);
  virtual void memberBool(int level, std::string_view key, bool value);
  ///@}

 protected:
  /// Closes containers until the one at `level` is the innermost (or none is open at 0).
  virtual void closeTo(int level) = 0;
  /// How many containers are open: kept up to date by openObject, openArray and closeTo.
  int depth_ = 0;

 private:
  EncodingForm form_;
};

class KeyedEncodingContainer;
class UnkeyedEncodingContainer;
class SingleValueEncodingContainer;

template <class T>
struct Coding;

/// An encoder for one value position. Passed by reference to a record's `encode`; calling
/// `container()` more than once writes every container into the same object.
class Encoder {
 public:
  /// An encoder for the value that the container at `level` is about to receive, at the path
  /// that `path` ends. Coders and containers make them; records receive them.
  Encoder(EncoderBackend& backend, int level, const CodingPathLink* path)
      : backend_(&backend), level_(level), path_(path) {}

  /// Opens this value's object on the first call; later calls write into the same object.
  inline KeyedEncodingContainer container();
  /// Opens this value's array on the first call; later calls append to the same array.
  inline UnkeyedEncodingContainer unkeyedContainer();
  /// Writes this value as one scalar.
  SingleValueEncodingContainer singleValueContainer();
  /// The path from the root to this value, built on each call.
  CodingPath codingPath() const { return CodingPathLink::materialize(path_); }
  /// The same path as its last link, without building it. Null at the root.
  const CodingPathLink* pathLink() const { return path_; }
  /// Which members records write: their encoding operation's, or the document form.
  EncodingForm form() const { return backend_->form(); }

  /// Ends the value: one that wrote nothing becomes an empty object, and every container it
  /// opened is closed.
  void finish() {
    if (objectLevel_ < 0 && arrayLevel_ < 0 && !wroteScalar_) backend_->openObject();
    backend_->closeAbove(level_);
  }

 private:
  friend class SingleValueEncodingContainer;
  EncoderBackend* backend_;
  int level_;  // the level of the container holding this value
  const CodingPathLink* path_;
  int objectLevel_ = -1;
  int arrayLevel_ = -1;
  bool wroteScalar_ = false;
};

/// Writes the value of one encoder as a single scalar. Write once: the value is what was
/// written.
class SingleValueEncodingContainer {
 public:
  /// Writes the value that `encoder` stands for.
  explicit SingleValueEncodingContainer(Encoder& encoder) : encoder_(&encoder) {}
  /// Writes null.
  void encodeNil();
  ///@{

  /// Writes the scalar: a date as the coder's date strategy says, an address as its text. A
  /// non-finite double raises EncodingError.
  void encode(std::string_view value);
  void encode(const std::string& value) { encode(std::string_view(value)); }
  void encode(const char* value) { encode(std::string_view(value)); }
  void encode(double value);
  void encode(std::int64_t value);
  void encode(bool value);
  void encode(Date value);
  void encode(const Url& value);
  ///@}

 private:
  EncoderBackend& backend() { return *encoder_->backend_; }
  void begin();
  Encoder* encoder_;
};

/// Writes the members of one object.
class KeyedEncodingContainer {
 public:
  /// Writes into the object open at `level`, whose path `path` ends.
  KeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* path)
      : backend_(&backend), level_(level), path_(path) {}
  /// Writes into the object open at `level` under `key` of a container whose path is
  /// `parent`; it carries its own last path link, so it may outlive the call that made it.
  KeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* parent,
                         std::string_view key)
      : backend_(&backend), level_(level), path_(nullptr), self_{parent, key}, nested_(true) {}

  /// Always written.
  template <class T>
  void encode(std::string_view key, const T& value);
  /// Written when present: no value writes nothing.
  template <class T>
  void encodeIfPresent(std::string_view key, const T& value) {
    if (value) encode(key, *value);
  }
  /// Writes `key` with a null value (a record that must send the member even without a value).
  void encodeNil(std::string_view key);

  /// Opens an object as the member `key`; it ends where this object's next member begins.
  KeyedEncodingContainer nestedContainer(std::string_view key);
  /// Opens an array as the member `key`; it ends where this object's next member begins.
  UnkeyedEncodingContainer nestedUnkeyedContainer(std::string_view key);
  /// The path's last link, for errors.
  const CodingPathLink* pathLink() const { return nested_ ? &self_ : path_; }
  /// The path of this object, built on each call.
  CodingPath codingPath() const { return CodingPathLink::materialize(pathLink()); }

  ///@{

  /// A scalar member in one call, without an encoder for the value: what `encode<T>` comes
  /// to for strings, numbers, Booleans, dates and addresses. A non-finite double raises
  /// EncodingError.
  void encode(std::string_view key, std::string_view value) {
    backend_->memberString(level_, key, value);
  }
  void encode(std::string_view key, const std::string& value) {
    encode(key, std::string_view(value));
  }
  void encode(std::string_view key, const char* value) { encode(key, std::string_view(value)); }
  void encode(std::string_view key, double value) {
    backend_->memberDouble(level_, key, value, pathLink());
  }
  void encode(std::string_view key, std::int64_t value) { backend_->memberInt(level_, key, value); }
  void encode(std::string_view key, bool value) { backend_->memberBool(level_, key, value); }
  void encode(std::string_view key, Date value);
  void encode(std::string_view key, const Url& value);
  ///@}

 private:
  EncoderBackend* backend_;
  int level_;
  const CodingPathLink* path_;
  CodingPathLink self_;
  bool nested_ = false;
};

/// Writes the elements of one array.
class UnkeyedEncodingContainer {
 public:
  /// Appends to the array open at `level`, whose path `path` ends.
  UnkeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* path)
      : backend_(&backend), level_(level), path_(path) {}
  /// Appends to the array open at `level` under `key` of a container whose path is `parent`.
  UnkeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* parent,
                           std::string_view key)
      : backend_(&backend), level_(level), path_(nullptr), self_{parent, key}, nested_(true) {}

  /// Appends `value` as the next element, through `Coding<T>`; an element that writes
  /// nothing is an empty object.
  template <class T>
  void encode(const T& value) {
    backend_->element(level_);
    CodingPathLink link{pathLink(), {}, count_++, true};
    Encoder sub(*backend_, level_, &link);
    Coding<T>::encode(sub, value);
    sub.finish();
  }
  /// How many elements this container has appended.
  std::size_t count() const { return count_; }
  /// The path's last link, for errors.
  const CodingPathLink* pathLink() const { return nested_ ? &self_ : path_; }

 private:
  EncoderBackend* backend_;
  int level_;
  const CodingPathLink* path_;
  CodingPathLink self_;
  bool nested_ = false;
  std::size_t count_ = 0;
};

inline KeyedEncodingContainer Encoder::container() {
  if (objectLevel_ < 0) objectLevel_ = backend_->openObject();
  return KeyedEncodingContainer(*backend_, objectLevel_, path_);
}

inline UnkeyedEncodingContainer Encoder::unkeyedContainer() {
  if (arrayLevel_ < 0) arrayLevel_ = backend_->openArray();
  return UnkeyedEncodingContainer(*backend_, arrayLevel_, path_);
}

template <class T>
void KeyedEncodingContainer::encode(std::string_view key, const T& value) {
  if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
    encode(key, static_cast<std::int64_t>(value));
  } else if constexpr (requires { Coding<T>::text(value); }) {
    // Written as a single string: the member in one call.
    encode(key, Coding<T>::text(value));
  } else {
    backend_->member(level_, key);
    CodingPathLink link{pathLink(), key};
    Encoder sub(*backend_, level_, &link);
    Coding<T>::encode(sub, value);
    sub.finish();
  }
}

}  // namespace orvane
