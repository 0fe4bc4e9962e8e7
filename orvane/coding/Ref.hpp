// Ownership vocabulary shared by every record.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

namespace orvane {

/// A reference-type record always lives behind a shared pointer, so that its children can hold
/// weak back-references to it.
template <class T>
using Ref = std::shared_ptr<T>;

/// A weak back-reference from a child to its owner.
template <class T>
using WeakRef = std::weak_ptr<T>;

/// Lets `makeRef` reach a constructor that nobody else can call: records are built only
/// through their `make` and `decode` functions, always inside a `Ref`.
template <class T>
class Passkey {
  friend T;
  Passkey() = default;
};

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

namespace detail {

/// Says, step by step along a chain of owners, whether the chain has come back on itself:
/// each step is compared with one saved at doubling distances, so nothing is kept per step.
class ChainLoopCheck {
 public:
  explicit ChainLoopCheck(const void* start) noexcept : saved_(start) {}
  bool revisits(const void* node) noexcept {
    if (node == saved_) return true;
    if (++steps_ == reach_) {
      saved_ = node;
      steps_ = 0;
      reach_ *= 2;
    }
    return false;
  }

 private:
  const void* saved_;
  std::size_t steps_ = 0;
  std::size_t reach_ = 1;
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

/// Ends the process after writing `file:line: Fatal error: message` to standard error. Used for
/// programming errors that the model treats as fatal (abstract paths, missing owners).
[[noreturn]] void fatalError(std::string_view message, std::string_view file, int line);

}  // namespace orvane
