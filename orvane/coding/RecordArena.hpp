// Packed storage for the records of one decode.
#pragma once

#include <cstddef>

namespace orvane {

namespace detail {
struct RecordArenaShared;

/// Where the thread's record arena is filling: saved and restored by nested scopes.
struct RecordArenaState {
  char* cursor = nullptr;
  char* end = nullptr;
  void* chunk = nullptr;
  RecordArenaShared* arena = nullptr;  // null outside a scope and in a disabled one

  std::size_t count = 0;   // records placed in the current chunk
  std::size_t bytes = 0;   // and their bytes
  std::size_t chunks = 0;  // chunks this scope has filled
};
}  // namespace detail

/// Memory held by the record chunks of one arena.
struct RecordArenaStatistics {
  /// Chunks that hold live records or that a scope is filling.
  std::size_t usedBytes = 0;
  /// The live records in those chunks. Not yet counted: the records of the chunk that a scope
  /// on another thread is filling, and of an outer scope's chunk while an inner one is open.
  std::size_t recordBytes = 0;
  /// Released chunks kept for reuse by later decodes.
  std::size_t cachedBytes = 0;
};

/// Where packed records come from: the chunks that hold them, and a few released chunks kept
/// for the next decode. A `JsonDecoder` owns one (one decoder per thread, so nothing is shared
/// between decoders); a caller who packs records of their own makes one.
///
/// Records outlive their arena safely: once it is gone, a chunk goes back to the system when
/// its last record is released, from any thread.
class RecordArena {
 public:
  /// Keeps up to `maxCachedChunks` released chunks for reuse.
  explicit RecordArena(std::size_t maxCachedChunks = 16);
  ~RecordArena();
  RecordArena(const RecordArena&) = delete;
  RecordArena& operator=(const RecordArena&) = delete;

  /// What the chunks hold now; see `RecordArenaStatistics` for what is not yet counted.
  RecordArenaStatistics statistics() const;
  /// Gives the cached chunks back to the system.
  void releaseCachedChunks();

 private:
  friend class RecordArenaScope;
  detail::RecordArenaShared* shared_;
};

/// While a scope is alive on a thread, the records made on that thread (through `make` or
/// `decode`) are packed into large chunks of its arena instead of one heap block each: a
/// decoded graph has tens of thousands of small records, and their heap headers, rounding and
/// first-touch page faults cost more than their contents. A decoder opens one scope per decode.
///
/// Records stay ordinary `Ref`s: each one keeps its chunk alive, and a chunk is given back when
/// its last record is released, from any thread. The price is granularity: a record kept from a
/// released graph keeps its whole chunk (2 MB at most) in memory.
///
/// Scopes nest: an inner scope fills chunks of its own, and the outer one resumes where it was
/// when the inner one ends. A disabled scope (`enabled == false`) leaves its records on the heap.
class RecordArenaScope {
 public:
  /// Packs this thread's records into `arena` until the scope ends, or, when `enabled` is
  /// false, leaves them on the heap (an inner scope may turn packing off for its part).
  explicit RecordArenaScope(RecordArena& arena, bool enabled = true);
  ~RecordArenaScope();
  RecordArenaScope(const RecordArenaScope&) = delete;
  RecordArenaScope& operator=(const RecordArenaScope&) = delete;

 private:
  detail::RecordArenaState saved_;
};

}  // namespace orvane
