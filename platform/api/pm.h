// Power manager of the device.
#pragma once

#include <windef.h>

enum CEDEVICE_POWER_STATE { PwrDeviceUnspecified = -1, D0 = 0, D1, D2, D3, D4, PwrDeviceMaximum };

constexpr ULONG POWER_NAME = 1;

extern "C" {
/// Holds a device (such as "BKL1:", the backlight) at a power state. Null on failure.
HANDLE WINAPI SetPowerRequirement(LPVOID device, CEDEVICE_POWER_STATE state, ULONG flags,
                                  LPVOID systemState, ULONG stateFlags);
/// Returns ERROR_SUCCESS or an error code.
DWORD WINAPI ReleasePowerRequirement(HANDLE requirement);
}
