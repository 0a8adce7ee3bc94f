// What the suite's device is like on Windows, where no program may tell the system its battery, its
// language or the time: the engine gets doubles of the calls that ask for these, and of those that
// a test wants to see.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "ImportDoubles.windows.h"

namespace e2e {

/// Excludes other threads while it lives: the engine's threads call the doubles as well.
class Lock {
 public:
  explicit Lock(SRWLOCK& wanted) : lock(wanted) { AcquireSRWLockExclusive(&lock); }
  ~Lock() { ReleaseSRWLockExclusive(&lock); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  SRWLOCK& lock;
};

/// What the engine drew into a window: without a display, a real window's pixels go nowhere.
struct WindowSurface {
  HDC dc = nullptr;
  HBITMAP bitmap = nullptr;
  int width = 0;
  int height = 0;
  /// Rows from the top.
  const std::uint32_t* pixels = nullptr;
  /// Counts what was drawn.
  std::uint64_t version = 0;
};

/// Milliseconds that run at the device's rate.
class Ticks {
 public:
  DWORD GetMs(double rate) {
    const ULONGLONG real = GetTickCount64();
    ms += static_cast<double>(real - lastReal) * rate;
    lastReal = real;
    return static_cast<DWORD>(ms);
  }

 private:
  ULONGLONG lastReal = GetTickCount64();
  double ms = 0;
};

struct DeviceState {
  SRWLOCK lock = SRWLOCK_INIT;

  bool isRussian = false;
  BYTE batteryFlag = 0;
  BYTE batteryPercent = 80;

  /// File to open for a port such as "COM1". Ports that are not listed do not exist.
  std::map<std::wstring, std::wstring> ports;

  double timeRate = 50;
  Ticks ticks;
  bool isClockStopped = false;
  /// Device time at the machine's time `clockBaseReal`; a stopped clock stands there. Both in 100 ns
  /// since 1601.
  ULONGLONG clockBase = 0;
  ULONGLONG clockBaseReal = 0;
  int zoneHours = 0;

  std::set<HANDLE> requirements;
  int requirementsTaken = 0;
  int idleTimerResets = 0;
  /// Paths of the sound files started.
  std::vector<std::wstring> sounds;

  /// Memory contexts and bitmaps that the engine has made and not deleted.
  std::set<HGDIOBJ> drawingObjects;
  std::map<HWND, WindowSurface> surfaces;
};

/// State of the one device that exists at a time; null without one.
extern DeviceState* theState;

/// The doubles, which work on `theState`.
std::vector<ImportDouble> MakeDoubles();

}  // namespace e2e
