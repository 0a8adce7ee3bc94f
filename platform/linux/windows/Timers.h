// Timers of windows.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace handheld {

/// Timers of one thread's windows, in the device's time. Guarded by the lock of the thread's queue.
class Timers {
 public:
  /// Tells whether the caller wants this message.
  using Filter = std::function<bool(const MSG&)>;

  /// Starts the timer, anew when there is one of this window and number.
  void Set(HWND window, UINT_PTR number, DWORD periodMs);
  /// False when there is no such timer.
  bool Kill(HWND window, UINT_PTR number);
  void DropWindow(HWND window);

  /// Message of the wanted timer that has been due for the longest time. `restart` begins its next
  /// period.
  std::optional<MSG> FindDue(const Filter& isWanted, bool restart);

  /// Real time until a wanted timer is due, 0 at least. No value without such a timer.
  std::optional<std::chrono::nanoseconds> GetWait(const Filter& isWanted) const;

 private:
  struct Timer {
    HWND window;
    UINT_PTR number;
    DWORD periodMs;
    /// Tick count at which it is due.
    DWORD dueTicks;

    MSG GetMessage(DWORD ticks) const;
  };

  std::vector<Timer> timers;
};

}  // namespace handheld
