#include "sensors/BatterySensor.h"

#include <windows.h>

#include "base/Format.h"
#include "sensors/LocalizedText.h"

namespace ferolin {

namespace {

constexpr int FULL_BATTERY_PERCENT = 100;

std::string BatteryText() {
  SYSTEM_POWER_STATUS_EX status = {};
  if (!GetSystemPowerStatusEx(&status, TRUE)) {
    return NOT_AVAILABLE;
  }
  const int percent = status.BatteryLifePercent;
  const bool known = percent <= FULL_BATTERY_PERCENT;
  if (status.BatteryFlag & BATTERY_FLAG_CHARGING) {
    const char* charging = GetText(Word::CHARGING);
    return known ? Format("%i%%(%s)", percent, charging) : charging;
  }
  return known ? Format("%i%%", percent) : NOT_AVAILABLE;
}

}  // namespace

void BatterySensor::Update(const FixRecord&) {
  SetText("%s", BatteryText());
}

}  // namespace ferolin
