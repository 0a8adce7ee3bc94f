// The update cycle: what happens on the reader thread for every sentence or position that comes in.

#include <pm.h>

#include "engine/Engine.h"
#include "events/SpeedEvents.h"
#include "gps/FixRecord.h"
#include "sensors/Sensor.h"
#include "sms/SmsReporter.h"
#include "widgets/Widget.h"

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
  for (int index = 0; index < widgetCount; ++index) {
    GetWidget(index)->Attach();
  }
  smsReporter->Tick();
  speedEvents->Check(*fix);
}

/// Everything that reaches out of the engine, without the lock.
void Engine::FinishUpdate() {
  PostToHost(wndMessageId, 0, 0);
  KeepPower();
  RequestRedraw();
}

/// A release that fails is tried again at the next update; a requirement that could not be had
/// (null) is not asked for again.
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
