// A power requirement of the device's screen light.
#pragma once

#include <pm.h>
#include <windows.h>

/// Release it with ReleasePowerRequirement.
inline HANDLE HoldBacklight() {
  char16_t name[] = u"BKL1:";
  return SetPowerRequirement(name, D0, POWER_NAME, nullptr, 0);
}
