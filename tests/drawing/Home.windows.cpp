#include "Home.h"

extern "C" {

/// Stands in for the platform's, which would tell of this machine.
BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL) {
  constexpr BYTE CHARGING = 8;
  *status = {};
  status->BatteryFlag = CHARGING;
  status->BatteryLifePercent = 65;
  return TRUE;
}

}  // extern "C"

namespace drawing {

/// The pictures lie beside the program.
HMODULE PrepareHome() {
  return GetModuleHandleW(nullptr);
}

}  // namespace drawing
