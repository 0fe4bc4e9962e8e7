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

/// The document an encoder writes into. Open containers form a stack; a container is named by
/// its level in that stack, and writing into a level first closes every container above it, so
/// a nested container ends where its parent's next member begins.
class EncoderBackend {
 public:
  virtual ~EncoderBackend();

  /// Starts a member `key` of the object at `level`.
  void member(int level, std::string_view key) {
    closeAbove(level);
    writeKey(key);
  }
  /// Starts the next element of the array at `level`.
  void element(int level) { closeAbove(level); }
  /// Opens an object or an array at the current position and returns its level.
  virtual int openObject() = 0;
  virtual int openArray() = 0;
  /// Closes every container above `level`.
  void closeAbove(int level) {
    // Nearly always the innermost container already: no call then.
    if (level < depth_) closeTo(level);
  }
  /// Starts a member `key` of the innermost container, an object.
  virtual void writeKey(std::string_view key) = 0;

  virtual void writeNull() = 0;
  virtual void writeString(std::string_view value) = 0;
  virtual void writeBool(bool value) = 0;
  virtual void writeInt(std::int64_t value) = 0;
  /// Raises EncodingError for a non-finite number.
  virtual void writeDouble(double value, const CodingPathLink* path) = 0;
  virtual void writeDate(Date value, const CodingPathLink* path) = 0;
  virtual void writeUrl(const Url& value) = 0;

  /// A member `key` of the object at `level` with a scalar value, in one call: most members
  /// are scalars, and a backend can write key and value together. `parent` is the path of the
  /// object, for errors. By default member() then the matching write.
  virtual void memberString(int level, std::string_view key, std::string_view value);
  virtual void memberDouble(int level, std::string_view key, double value,
                            const CodingPathLink* parent);
  virtual void memberInt(int level, std::string_view key, std::int64_t value);
  virtual void memberBool(int level, std::string_view key, bool value);

 protected:
  /// Closes containers until the one at `level` is the innermost (or none is open at 0).
  virtual void closeTo(int level) = 0;
  /// How many containers are open: kept up to date by openObject, openArray and closeTo.
  int depth_ = 0;
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
  Encoder(EncoderBackend& backend, int level, const CodingPathLink* path)
      : backend_(&backend), level_(level), path_(path) {}

  inline KeyedEncodingContainer container();
  inline UnkeyedEncodingContainer unkeyedContainer();
  SingleValueEncodingContainer singleValueContainer();
  CodingPath codingPath() const { return CodingPathLink::materialize(path_); }
  const CodingPathLink* pathLink() const { return path_; }

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

class SingleValueEncodingContainer {
 public:
  explicit SingleValueEncodingContainer(Encoder& encoder) : encoder_(&encoder) {}
  void encodeNil();
  void encode(std::string_view value);
  void encode(const std::string& value) { encode(std::string_view(value)); }
  void encode(const char* value) { encode(std::string_view(value)); }
  void encode(double value);
  void encode(std::int64_t value);
  void encode(bool value);
  void encode(Date value);
  void encode(const Url& value);

 private:
  EncoderBackend& backend() { return *encoder_->backend_; }
  void begin();
  Encoder* encoder_;
};

/// Writes the members of one object.
class KeyedEncodingContainer {
 public:
  KeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* path)
      : backend_(&backend), level_(level), path_(path) {}
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
  void encodeNil(std::string_view key);

  KeyedEncodingContainer nestedContainer(std::string_view key);
  UnkeyedEncodingContainer nestedUnkeyedContainer(std::string_view key);
  const CodingPathLink* pathLink() const { return nested_ ? &self_ : path_; }
  CodingPath codingPath() const { return CodingPathLink::materialize(pathLink()); }

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
  UnkeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* path)
      : backend_(&backend), level_(level), path_(path) {}
  UnkeyedEncodingContainer(EncoderBackend& backend, int level, const CodingPathLink* parent,
                           std::string_view key)
      : backend_(&backend), level_(level), path_(nullptr), self_{parent, key}, nested_(true) {}

  template <class T>
  void encode(const T& value) {
    backend_->element(level_);
    CodingPathLink link{pathLink(), {}, count_++, true};
    Encoder sub(*backend_, level_, &link);
    Coding<T>::encode(sub, value);
    sub.finish();
  }
  std::size_t count() const { return count_; }
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
