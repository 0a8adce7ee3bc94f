#pragma once

#include <atomic>
#include <chrono>

#include "common/WakeEvent.h"

namespace parlex {

/// Limit of a worker's waiting: none, until another thread sets an end.
class Patience {
 public:
  using Clock = std::chrono::steady_clock;

  /// Sets the end, from any thread, and wakes the worker.
  void EndIn(std::chrono::milliseconds time) {
    end = Clock::now() + time;
    changed.Raise();
  }

  Clock::time_point GetEnd() const { return end; }

  bool IsOver() const { return Clock::now() >= GetEnd(); }

  /// Called by the worker: waits for one of `events` on the descriptor, until `deadline` or a
  /// change of the end.
  void AwaitDescriptor(int descriptor, short events, Clock::time_point deadline);

 private:
  siblings::WakeEvent changed;
  std::atomic<Clock::time_point> end = Clock::time_point::max();
};

}  // namespace parlex
