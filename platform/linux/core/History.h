// What was asked of the device, for tests to read back.
#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

namespace handheld {

/// Remembers the latest entries only: a host may run for months without anybody asking.
template <typename Entry>
class History {
 public:
  static constexpr std::size_t CAPACITY = 65536;

  void Add(const Entry& entry) {
    AddIf(entry, [] { return true; });
  }

  /// Carries out `action` and notes the entry when that returns true, in one step: whoever learns
  /// of the action finds the entry. Returns what the action did.
  template <typename Action>
  bool AddIf(const Entry& entry, Action action) {
    const std::lock_guard lock(mutex);
    if (!action()) {
      return false;
    }
    if (entries.size() == CAPACITY) {
      entries.pop_front();
    }
    entries.push_back(entry);
    return true;
  }

  std::vector<Entry> GetAll() const {
    const std::lock_guard lock(mutex);
    return {entries.begin(), entries.end()};
  }

  void Forget() {
    const std::lock_guard lock(mutex);
    entries.clear();
  }

 private:
  mutable std::mutex mutex;
  std::deque<Entry> entries;
};

}  // namespace handheld
