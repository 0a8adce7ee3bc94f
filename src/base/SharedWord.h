#pragma once

#include <atomic>
#include <cstdint>

namespace ferolin {

/// One word that several threads read and write without a lock: every reader sees some value that
/// was written, whole. It orders nothing else; what belongs together is guarded by the engine's
/// data lock.
template <class T>
class SharedWord {
 public:
  static_assert(sizeof(T) <= sizeof(std::uintptr_t));

  constexpr SharedWord(T initial) : value(initial) {}
  SharedWord(const SharedWord&) = delete;

  SharedWord& operator=(T newValue) {
    value.store(newValue, std::memory_order_relaxed);
    return *this;
  }
  SharedWord& operator=(const SharedWord&) = delete;

  T Get() const { return value.load(std::memory_order_relaxed); }
  operator T() const { return Get(); }

 private:
  std::atomic<T> value;
};

}  // namespace ferolin
