#include <orvane/coding/RecordArena.hpp>

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <mutex>
#include <new>
#include <vector>

#include <orvane/internal/MakeRef.hpp>

#if defined(__linux__)
#include <sys/mman.h>
#endif

// Under AddressSanitizer, the free parts of chunks are poisoned, so that a record used after
// its release is reported as it would be on the heap.
#if defined(__SANITIZE_ADDRESS__)
#define ORVANE_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORVANE_ASAN 1
#endif
#endif
#if defined(ORVANE_ASAN)
#include <sanitizer/asan_interface.h>
#define ORVANE_POISON(p, n) ASAN_POISON_MEMORY_REGION(p, n)
#define ORVANE_UNPOISON(p, n) ASAN_UNPOISON_MEMORY_REGION(p, n)
#else
#define ORVANE_POISON(p, n) ((void)(p), (void)(n))
#define ORVANE_UNPOISON(p, n) ((void)(p), (void)(n))
#endif

namespace orvane {

namespace {

// Chunks are aligned to their size, so a record finds its chunk's header from its own address.
constexpr std::size_t kChunk = std::size_t{2} << 20;

struct ChunkHeader;

}  // namespace

namespace detail {
// What an arena and the chunks it made share. The arena holds one reference and every chunk
// in use one more, so the last of them, whichever it is, frees it.
struct RecordArenaShared {
  explicit RecordArenaShared(std::size_t maxCached) : maxCached(maxCached) {}
  std::atomic<std::size_t> references{1};
  std::mutex mutex;
  std::vector<void*> cached;
  ChunkHeader* inUse = nullptr;  // the chunks that hold records or are being filled
  std::size_t maxCached;         // 0 once the arena is gone: nobody would reuse a chunk then

  void release() noexcept {
    if (references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }
};
}  // namespace detail

namespace {

using detail::RecordArenaShared;

// What a chunk holds, in one word so that a release is one atomic operation: kRecord for each
// live record plus its bytes, and kOwner while a scope is still filling it, so that it cannot
// reach zero before the scope has added up what it placed. Chunks in use are linked for the
// statistics (under their arena's mutex).
struct alignas(64) ChunkHeader {
  std::atomic<std::int64_t> live;
  RecordArenaShared* arena = nullptr;
  ChunkHeader* previous = nullptr;
  ChunkHeader* next = nullptr;
};
constexpr std::int64_t kRecord = std::int64_t{1} << 24;
constexpr std::int64_t kOwner = std::int64_t{1} << 60;
static_assert(kChunk < kRecord / 2, "a chunk's bytes fit below one record's unit");

// The live record bytes of a chunk that nobody fills (or that the caller fills: its bytes
// placed so far are not in the word yet, and those released are).
std::int64_t liveBytes(const ChunkHeader& header) {
  std::int64_t word = header.live.load(std::memory_order_relaxed);
  if (word > kOwner / 2) word -= kOwner;
  std::int64_t records = (word + kRecord / 2) >> 24;
  return word - records * kRecord;
}

thread_local detail::RecordArenaState current;

void* mapChunk(bool hugePages) {
#if defined(__linux__)
  void* p = mmap(nullptr, 2 * kChunk, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (p == MAP_FAILED) throw std::bad_alloc();
  auto start = reinterpret_cast<std::uintptr_t>(p);
  std::uintptr_t aligned = (start + kChunk - 1) & ~(kChunk - 1);
  if (aligned > start) munmap(p, aligned - start);
  std::uintptr_t tail = aligned + kChunk;
  if (start + 2 * kChunk > tail) munmap(reinterpret_cast<void*>(tail), start + 2 * kChunk - tail);
  // Large decodes touch every page of their chunks: one fault per 2 MB instead of 512.
  if (hugePages) madvise(reinterpret_cast<void*>(aligned), kChunk, MADV_HUGEPAGE);
  return reinterpret_cast<void*>(aligned);
#else
  (void)hugePages;
  void* p = std::aligned_alloc(kChunk, kChunk);
  if (!p) throw std::bad_alloc();
  return p;
#endif
}

void unmapChunk(void* chunk) noexcept {
  ORVANE_UNPOISON(chunk, kChunk);
#if defined(__linux__)
  munmap(chunk, kChunk);
#else
  std::free(chunk);
#endif
}

// The chunk's last record is gone: it is kept for the arena's next decode, or unmapped.
void giveBack(ChunkHeader* header) noexcept {
  RecordArenaShared* arena = header->arena;
  bool kept = false;
  {
    std::lock_guard lock(arena->mutex);
    (header->previous ? header->previous->next : arena->inUse) = header->next;
    if (header->next) header->next->previous = header->previous;
    header->~ChunkHeader();
    if (arena->cached.size() < arena->maxCached) {
      arena->cached.push_back(header);
      kept = true;
    }
  }
  if (!kept) unmapChunk(header);
  arena->release();
}

// Ends the filling of the state's chunk: from now on only its records' releases count.
void retire(detail::RecordArenaState& state) noexcept {
  if (!state.chunk) return;
  auto* header = static_cast<ChunkHeader*>(state.chunk);
  std::int64_t delta = static_cast<std::int64_t>(state.count) * kRecord +
                       static_cast<std::int64_t>(state.bytes) - kOwner;
  if (header->live.fetch_add(delta, std::memory_order_acq_rel) + delta == 0) giveBack(header);
  state.chunk = nullptr;
  state.cursor = state.end = nullptr;
  state.count = 0;
  state.bytes = 0;
}

void startChunk(detail::RecordArenaState& state) {
  RecordArenaShared* arena = state.arena;
  void* memory = nullptr;
  {
    std::lock_guard lock(arena->mutex);
    if (!arena->cached.empty()) {
      memory = arena->cached.back();
      arena->cached.pop_back();
    }
  }
  // A scope's first chunk keeps small pages, so that a small decode touches little memory.
  if (!memory) memory = mapChunk(state.chunks > 0);
  retire(state);
  ORVANE_UNPOISON(memory, sizeof(ChunkHeader));
  ORVANE_POISON(static_cast<char*>(memory) + sizeof(ChunkHeader), kChunk - sizeof(ChunkHeader));
  auto* header = new (memory) ChunkHeader{kOwner, arena};
  arena->references.fetch_add(1, std::memory_order_relaxed);
  {
    std::lock_guard lock(arena->mutex);
    header->next = arena->inUse;
    if (arena->inUse) arena->inUse->previous = header;
    arena->inUse = header;
  }
  state.chunk = header;
  state.cursor = static_cast<char*>(memory) + sizeof(ChunkHeader);
  state.end = static_cast<char*>(memory) + kChunk;
  state.count = 0;
  state.bytes = 0;
  ++state.chunks;
}

}  // namespace

namespace detail {

bool recordArenaActive() noexcept {
  return current.arena != nullptr;
}

void* recordArenaAllocate(std::size_t bytes, std::size_t alignment) {
  if (bytes > kRecordArenaMaxBlock || alignment > alignof(ChunkHeader)) throw std::bad_alloc();
  auto& state = current;
  auto align = [&] {
    auto at = reinterpret_cast<std::uintptr_t>(state.cursor);
    return (at + alignment - 1) & ~(alignment - 1);
  };
  std::uintptr_t at = align();
  if (!state.chunk || at + bytes > reinterpret_cast<std::uintptr_t>(state.end)) {
    startChunk(state);
    at = align();
  }
  state.cursor = reinterpret_cast<char*>(at + bytes);
  ++state.count;
  state.bytes += bytes;
  ORVANE_UNPOISON(reinterpret_cast<void*>(at), bytes);
  return reinterpret_cast<void*>(at);
}

void recordArenaRelease(void* block, std::size_t bytes) noexcept {
  ORVANE_POISON(block, bytes);
  auto* header =
      reinterpret_cast<ChunkHeader*>(reinterpret_cast<std::uintptr_t>(block) & ~(kChunk - 1));
  std::int64_t share = kRecord + static_cast<std::int64_t>(bytes);
  if (header->live.fetch_sub(share, std::memory_order_acq_rel) == share) giveBack(header);
}

}  // namespace detail

RecordArena::RecordArena(std::size_t maxCachedChunks)
    : shared_(new detail::RecordArenaShared(maxCachedChunks)) {}

RecordArena::~RecordArena() {
  {
    std::lock_guard lock(shared_->mutex);
    shared_->maxCached = 0;
  }
  releaseCachedChunks();
  shared_->release();
}

RecordArenaStatistics RecordArena::statistics() const {
  std::int64_t records = current.arena == shared_ ? static_cast<std::int64_t>(current.bytes) : 0;
  std::size_t used = 0;
  std::size_t cached = 0;
  {
    std::lock_guard lock(shared_->mutex);
    for (const ChunkHeader* h = shared_->inUse; h; h = h->next) {
      used += kChunk;
      records += liveBytes(*h);
    }
    cached = shared_->cached.size() * kChunk;
  }
  return {used, static_cast<std::size_t>(records), cached};
}

void RecordArena::releaseCachedChunks() {
  std::vector<void*> chunks;
  {
    std::lock_guard lock(shared_->mutex);
    chunks.swap(shared_->cached);
  }
  for (void* chunk : chunks) unmapChunk(chunk);
}

RecordArenaScope::RecordArenaScope(RecordArena& arena, bool enabled) : saved_(current) {
  current = detail::RecordArenaState{};
  current.arena = enabled ? arena.shared_ : nullptr;
}

RecordArenaScope::~RecordArenaScope() {
  retire(current);
  current = saved_;
}

}  // namespace orvane
