// The device's API on desktop Windows: the system's own header, and what only the handheld has.
#pragma once

#pragma GCC system_header
#include_next <windows.h>

// The device's API has the wide calls by their own names alone, so these words are free there.
#undef DrawText

/// The desktop knows no mask for alpha; a section of 32 bits a pixel keeps its fourth byte all the same.
#ifndef BI_ALPHABITFIELDS
#define BI_ALPHABITFIELDS BI_BITFIELDS
#endif

struct SYSTEM_POWER_STATUS_EX {
  BYTE ACLineStatus;
  BYTE BatteryFlag;
  BYTE BatteryLifePercent;
  BYTE Reserved1;
  DWORD BatteryLifeTime;
  DWORD BatteryFullLifeTime;
  BYTE Reserved2;
  BYTE BackupBatteryFlag;
  BYTE BackupBatteryLifePercent;
  BYTE Reserved3;
  DWORD BackupBatteryLifeTime;
  DWORD BackupBatteryFullLifeTime;
};

extern "C" {
/// The desktop's functions are named in 8-bit characters only. A name that cannot be is not found.
FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name);

/// There is no backup battery on a desktop: its members are 0, its flag says "none".
BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL update);

/// Puts off the machine's sleep.
void WINAPI SystemIdleTimerReset();
}
