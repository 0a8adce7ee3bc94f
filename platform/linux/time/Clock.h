// The device's clock.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <mutex>

namespace handheld {

/// Moments and spans are in units of 100 ns; moments count from the start of 1601 (UTC).
class Clock {
 public:
  static Clock& Instance();

  std::int64_t GetNow() const;
  void Set(std::int64_t now);
  void SetStopped(bool stopped);

  /// Ignores rates that are not above 0.
  void SetRate(double rate);
  double GetRate() const { return rate.load(std::memory_order_relaxed); }

  /// Milliseconds since the device was switched on; goes on while the clock is stopped.
  DWORD GetTicks() const;

  /// Sleeps for this span of the device's time.
  void Sleep(DWORD milliseconds) const;

 private:
  std::int64_t GetNowLocked() const;
  std::int64_t GetTicksLocked() const;
  void Rebase();

  mutable std::mutex mutex;
  std::atomic<double> rate{1};
  /// True until the clock is first changed: it shows the machine's time.
  bool isMachineTime = true;
  bool isStopped = false;
  /// The device's time and ticks (100 ns) at `machineBase`.
  std::int64_t timeBase = 0;
  std::int64_t ticksBase = 0;
  /// Machine's uptime in 100 ns.
  std::int64_t machineBase = 0;
};

}  // namespace handheld
