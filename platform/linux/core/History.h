// What was asked of the device, for tests to read back.
#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <vector>

namespace handheld {

/// Keeps the latest entries only: a host may run for months and never read them.
template <typename Entry>
class History {
 public:
  static constexpr std::size_t CAPACITY = 65536;

  void Add(const Entry& entry) {
    AddIf(entry, [] { return true; });
  }

  /// Runs `action` and, when it returns true, adds the entry under the same lock: whoever sees the
  /// effect of the action finds the entry. Returns the result of the action.
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
