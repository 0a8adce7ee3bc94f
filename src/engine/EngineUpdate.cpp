// The update cycle: what happens on the reader thread for every sentence or position that comes in.

#include <pm.h>

#include "engine/Engine.h"
#include "events/SpeedEvents.h"
#include "gps/FixRecord.h"
#include "sensors/Sensor.h"
#include "sms/SmsReporter.h"

namespace ferolin {

namespace {

WCHAR BACKLIGHT_DEVICE[] = TEXT("BKL1:");

}  // namespace

void Engine::OnUpdate(const char* sentence) {
  {
    const LockGuard guard(dataLock);
    if (!fix->ParseSentence(sentence)) {
      return;
    }
    UpdateFromFix();
  }
  FinishUpdate();
}

void Engine::OnUpdate(const GPS_POSITION* position) {
  {
    const LockGuard guard(dataLock);
    if (!fix->ApplyGpsPosition(position)) {
      return;
    }
    UpdateFromFix();
  }
  FinishUpdate();
}

/// Everything that reads the fix, under the data lock.
void Engine::UpdateFromFix() {
  for (int index = 0; index < sensorCount; ++index) {
    GetSensor(index)->Update(*fix);
  }
  smsReporter->Tick();
  speedEvents->Check(*fix);
}

/// Everything that reaches out of the engine, without the lock.
void Engine::FinishUpdate() {
  NotifyHost();
  KeepPower();
}

void Engine::NotifyHost() const {
  const HWND window = hostWindow;
  if (window != nullptr && IsWindow(window)) {
    PostMessageW(window, wndMessageId, 0, 0);
  }
}

/// A release that fails is tried again at the next update; a requirement that could not be had (null) is not asked for
/// again.
void Engine::KeepPower() {
  if (alwaysTurnOn) {
    SystemIdleTimerReset();
    if (powerRequirement == INVALID_HANDLE_VALUE) {
      powerRequirement = SetPowerRequirement(BACKLIGHT_DEVICE, D0, POWER_NAME, nullptr, 0);
    }
  } else if (powerRequirement != INVALID_HANDLE_VALUE &&
             ReleasePowerRequirement(powerRequirement) == ERROR_SUCCESS) {
    powerRequirement = INVALID_HANDLE_VALUE;
  }
}

}  // namespace ferolin
