// Notices that the device has slept.
#pragma once

#include <windows.h>

namespace app {

/// Compares the clock with the count of the milliseconds that the device was awake.
class SleepWatch {
 public:
  /// Whether the clock has gone on by more than ten seconds beyond the count since the last call.
  bool HasSlept();

 private:
  DWORD lastTickMs = GetTickCount();
  int lastSecondOfDay = -1;
};

}  // namespace app
