#include "engine/PowerKeeper.h"

#include <pm.h>

namespace ferolin {

namespace {

WCHAR BACKLIGHT_DEVICE[] = TEXT("BKL1:");

}  // namespace

/// Windows CE answers a refused requirement with null; it is not asked for again.
void PowerKeeper::Update() {
  if (alwaysTurnOn) {
    SystemIdleTimerReset();
    if (powerRequirement == INVALID_HANDLE_VALUE) {
      powerRequirement = SetPowerRequirement(BACKLIGHT_DEVICE, D0, POWER_NAME, nullptr, 0);
    }
  } else {
    Release();
  }
}

void PowerKeeper::Release() {
  if (powerRequirement != INVALID_HANDLE_VALUE &&
      ReleasePowerRequirement(powerRequirement) == ERROR_SUCCESS) {
    powerRequirement = INVALID_HANDLE_VALUE;
  }
}

}  // namespace ferolin
