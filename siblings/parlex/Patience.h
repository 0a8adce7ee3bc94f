#pragma once

#include <atomic>
#include <chrono>

#include "common/WakeEvent.h"

namespace parlex {

/// How long a worker may go on waiting: without end, until another thread sets an end to it.
class Patience {
 public:
  using Clock = std::chrono::steady_clock;

  /// From any thread: everything has to be over within this time. Wakes the worker, so that it
  /// looks anew.
  void EndIn(std::chrono::milliseconds time) {
    end = Clock::now() + time;
    changed.Raise();
  }

  Clock::time_point GetEnd() const { return end; }

  bool IsOver() const { return Clock::now() >= GetEnd(); }

  /// By the worker: waits for one of `events` on the descriptor, until `deadline` or until the end
  /// is changed.
  void AwaitDescriptor(int descriptor, short events, Clock::time_point deadline);

 private:
  siblings::WakeEvent changed;
  std::atomic<Clock::time_point> end = Clock::time_point::max();
};

}  // namespace parlex
