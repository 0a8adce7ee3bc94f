// The update cycle: what happens on the reader thread for every sentence or position that comes in.

#include <pm.h>

#include "engine/Engine.h"
#include "events/SpeedEvents.h"
#include "gps/FixRecord.h"
#include "sensors/Sensor.h"
#include "sms/SmsReport.h"
#include "sms/SmsReporter.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

WCHAR BACKLIGHT_DEVICE[] = TEXT("BKL1:");

}  // namespace

void Engine::OnUpdate(const char* sentence) {
  SmsReport report;
  {
    const LockGuard guard(dataLock);
    if (!fix->ParseSentence(sentence)) {
      return;
    }
    report = UpdateFromFix();
  }
  FinishUpdate(report);
}

void Engine::OnUpdate(const GPS_POSITION* position) {
  SmsReport report;
  {
    const LockGuard guard(dataLock);
    if (!fix->ApplyGpsPosition(position)) {
      return;
    }
    report = UpdateFromFix();
  }
  FinishUpdate(report);
}

/// Sensors, views and the report of the fix, under the data lock.
SmsReport Engine::UpdateFromFix() {
  for (int index = 0; index < sensorCount; ++index) {
    GetSensor(index)->Update(*fix);
  }
  for (int index = 0; index < widgetCount; ++index) {
    GetWidget(index)->Attach();
  }
  return smsReporter->Tick();
}

/// What reaches out of the engine, without the lock: a message may take seconds to be sent.
void Engine::FinishUpdate(const SmsReport& report) {
  report.Send();
  {
    const LockGuard guard(dataLock);
    speedEvents->Check(*fix);
  }
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
