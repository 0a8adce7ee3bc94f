#include "Home.h"

extern "C" {

/// Takes the place of the platform's function, which would report this machine's battery.
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
