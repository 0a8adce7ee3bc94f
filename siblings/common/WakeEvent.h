#pragma once

#include <atomic>

namespace siblings {

/// Ends another thread's wait in poll(). Once raised it stays raised until cleared. Any thread may
/// raise it; the waiting thread clears it. Construction throws std::system_error when the process
/// has no descriptors left.
class WakeEvent {
 public:
  WakeEvent();
  ~WakeEvent();
  WakeEvent(const WakeEvent&) = delete;
  WakeEvent& operator=(const WakeEvent&) = delete;

  void Raise();
  void Clear();
  bool IsRaised() const { return raised; }

  /// Readable while raised; for poll().
  int GetDescriptor() const { return descriptor; }

  /// Waits at most this long. True when the event is raised.
  bool WaitFor(int timeoutMs) const;

 private:
  int descriptor;
  std::atomic<bool> raised = false;
};

}  // namespace siblings
