// Reads any decodable type from JSON text.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>

#include <orvane/coding/Coding.hpp>
#include <orvane/coding/RecordArena.hpp>
#include <orvane/coding/UserInfo.hpp>
#include <orvane/json/DateStrategy.hpp>

namespace orvane {

/// How a JsonDecoder reads: dates, user info, depth, packing, and who hears of dropped values.
struct JsonDecoderOptions {
  /// How dates are read: ISO 8601 text unless told otherwise.
  DateStrategy dates = DateStrategy::iso8601;
  /// Handed to every record's decoding: the `fromImportSource` flag, say.
  UserInfo userInfo;
  /// Documents nested deeper than this many arrays and objects are refused as invalid (an
  /// empty one does not count as a level). The parser keeps memory for every level, so a
  /// larger limit counts as `kDeepestLimit`.
  std::size_t maxDepth = 512;
  /// The deepest `maxDepth` that counts as given.
  static constexpr std::size_t kDeepestLimit = std::size_t{1} << 20;
  /// Packs the decoded records into large chunks of the decoder's own `RecordArena`: faster, and
  /// smaller, but a record kept from a released graph keeps its chunk. Turn it off to decode
  /// records that will be kept long after the rest of their graph is gone.
  bool packRecords = true;
  /// When set, told of every value that a tolerant key dropped although the document held one
  /// (see `DecodingWarnings`). Off by default; costs nothing when off.
  DecodingWarnings* warnings = nullptr;
};

/// Parses a document and decodes a value of the requested type from it. Invalid JSON, invalid
/// UTF-8 and nesting beyond the limit fail with dataCorrupted at the root, with the parser's
/// reason. Errors carry their location in the text when it can be found. Numbers beyond 64 bits
/// or the double range are numbers still: they fail only where they do not fit the type read.
/// A JsonDecoder keeps its parser's buffers between calls; use one per thread.
class JsonDecoder {
 public:
  /// Keeps `options` for every decode; the parser's buffers are allocated on first use.
  explicit JsonDecoder(JsonDecoderOptions options = {});
  ~JsonDecoder();
  ///@{

  /// Takes over the parser, its buffers and its arena; the decoder moved from may only be
  /// assigned to or destroyed.
  JsonDecoder(JsonDecoder&&) noexcept;
  JsonDecoder& operator=(JsonDecoder&&) noexcept;
  ///@}

  /// As given to the constructor.
  const JsonDecoderOptions& options() const { return options_; }
  ///@{

  /// The chunks that this decoder packs records into (`JsonDecoderOptions::packRecords`), with
  /// their statistics. Records may outlive the decoder.
  RecordArena& recordArena();
  const RecordArena& recordArena() const;
  ///@}

  /// Decodes `T` from `json`, which is copied into a padded buffer first.
  template <class T>
  T decode(std::string_view json) {
    return decodeImpl<T>(json, false);
  }

  /// Decodes `T` from `json` without copying it: at least `kPadding` readable bytes must
  /// follow the end of `json` in memory (their contents do not matter).
  template <class T>
  T decodePadded(std::string_view json) {
    return decodeImpl<T>(json, true);
  }

  /// Frees the parser's buffers, which are otherwise kept for the next document (about three
  /// times the size of the largest one read): call it after a large document when no other
  /// follows soon. The records' chunks stay with the records, and the decoded values need
  /// neither these buffers nor the text they were decoded from.
  void releaseBuffers();

  /// How many readable bytes `decodePadded` needs after the end of the text.
  static constexpr std::size_t kPadding = 64;

 private:
  template <class T>
  T decodeImpl(std::string_view json, bool padded) {
    std::optional<T> result;
    run(
        json, padded,
        [](const Decoder& d, void* out) {
          static_cast<std::optional<T>*>(out)->emplace(Coding<T>::decode(d));
        },
        &result);
    return std::move(*result);
  }

  void run(std::string_view json, bool padded, void (*fn)(const Decoder&, void*), void* out);

  struct Parser;
  JsonDecoderOptions options_;
  std::unique_ptr<Parser> parser_;
};

}  // namespace orvane
