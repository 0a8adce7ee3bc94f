// Power status and requirements of the handheld over the desktop's.

#include <pm.h>
#include <windows.h>

extern "C" {

BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL) {
  constexpr BYTE NO_BATTERY = 0x80;
  constexpr BYTE UNKNOWN_PERCENTAGE = 0xFF;
  SYSTEM_POWER_STATUS desktop = {};
  if (!GetSystemPowerStatus(&desktop)) {
    return FALSE;
  }
  // The two structures differ behind the percentage.
  *status = {};
  status->ACLineStatus = desktop.ACLineStatus;
  status->BatteryFlag = desktop.BatteryFlag;
  status->BatteryLifePercent = desktop.BatteryLifePercent;
  status->BatteryLifeTime = desktop.BatteryLifeTime;
  status->BatteryFullLifeTime = desktop.BatteryFullLifeTime;
  status->BackupBatteryFlag = NO_BATTERY;
  status->BackupBatteryLifePercent = UNKNOWN_PERCENTAGE;
  return TRUE;
}

void WINAPI SystemIdleTimerReset() {
  SetThreadExecutionState(ES_SYSTEM_REQUIRED);
}

/// Keeps the display on for every device and state: the engine holds the backlight only, and the
/// desktop cannot hold single devices.
HANDLE WINAPI SetPowerRequirement(LPVOID, CEDEVICE_POWER_STATE, ULONG, LPVOID, ULONG) {
  REASON_CONTEXT reason = {};
  reason.Version = POWER_REQUEST_CONTEXT_VERSION;
  reason.Flags = POWER_REQUEST_CONTEXT_SIMPLE_STRING;
  wchar_t text[] = L"The speedometer is being watched";
  reason.Reason.SimpleReasonString = text;
  const HANDLE request = PowerCreateRequest(&reason);
  if (request == INVALID_HANDLE_VALUE) {
    return nullptr;
  }
  PowerSetRequest(request, PowerRequestDisplayRequired);
  return request;
}

/// Closing the request ends it.
DWORD WINAPI ReleasePowerRequirement(HANDLE requirement) {
  return CloseHandle(requirement) ? ERROR_SUCCESS : GetLastError();
}

}  // extern "C"
