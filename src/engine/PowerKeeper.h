#pragma once

#include <windows.h>

#include "base/SharedWord.h"

namespace ferolin {

/// Keeps the backlight on and the device awake while positions arrive, if the host wants it.
class PowerKeeper {
 public:
  bool IsAlwaysTurnOn() const { return alwaysTurnOn != 0; }
  /// Takes effect at the next update.
  void SetAlwaysTurnOn(DWORD flag) { alwaysTurnOn = flag; }

  /// The step at each update, on the reader's thread.
  void Update();

  /// Gives the backlight back, if it is held. A release that fails leaves it held.
  void Release();

 private:
  SharedWord<DWORD> alwaysTurnOn = 0;
  /// INVALID_HANDLE_VALUE while none was asked for; null when none could be had.
  SharedWord<HANDLE> powerRequirement = INVALID_HANDLE_VALUE;
};

}  // namespace ferolin
