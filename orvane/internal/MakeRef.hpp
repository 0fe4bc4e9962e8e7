// Where records are built: packed into the current decode's chunks, or on the heap.
#pragma once

#include <cstddef>
#include <memory>
#include <utility>

#include <orvane/coding/Ref.hpp>

namespace orvane {

namespace detail {

/// The thread's record arena, when a `RecordArenaScope` is active on it.
bool recordArenaActive() noexcept;
void* recordArenaAllocate(std::size_t bytes, std::size_t alignment);
void recordArenaRelease(void* block, std::size_t bytes) noexcept;
/// The largest block the arena hands out.
inline constexpr std::size_t kRecordArenaMaxBlock = 64 * 1024;

template <class T>
struct RecordArenaAllocator {
  using value_type = T;
  RecordArenaAllocator() = default;
  template <class U>
  RecordArenaAllocator(const RecordArenaAllocator<U>&) noexcept {}
  T* allocate(std::size_t n) {
    return static_cast<T*>(recordArenaAllocate(n * sizeof(T), alignof(T)));
  }
  void deallocate(T* p, std::size_t n) noexcept { recordArenaRelease(p, n * sizeof(T)); }
  template <class U>
  bool operator==(const RecordArenaAllocator<U>&) const noexcept {
    return true;
  }
};

}  // namespace detail

/// Makes a record inside a `Ref`: packed into the current decode's chunks while a
/// `RecordArenaScope` is active on this thread, on the heap otherwise.
template <class T, class... Args>
Ref<T> makeRef(Args&&... args) {
  static_assert(sizeof(T) + 64 <= detail::kRecordArenaMaxBlock);
  if (detail::recordArenaActive()) {
    return std::allocate_shared<T>(detail::RecordArenaAllocator<T>{}, std::forward<Args>(args)...);
  }
  return std::make_shared<T>(std::forward<Args>(args)...);
}

}  // namespace orvane
