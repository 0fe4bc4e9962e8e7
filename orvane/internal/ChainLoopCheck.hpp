// A loop check for chains of owners that records walk upwards.
#pragma once

#include <cstddef>

namespace orvane {

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

}  // namespace orvane
