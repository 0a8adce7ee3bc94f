#include "sensors/ElapsedSensor.h"

#include "base/DeviceTime.h"
#include "base/Number.h"
#include "base/Saturate.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"
#include "sensors/TripText.h"

namespace ferolin {

void ElapsedSensor::GetRegistryString(char* out, int) const {
  PrintState(out, "%i", static_cast<int>(seconds));
}

int ElapsedSensor::SetRegistryString(const char* text) {
  const std::int64_t saved = ParseInt64(text);
  if (saved <= 0) {
    return 0;
  }
  seconds = saved;
  ShowTime();
  return 1;
}

void ElapsedSensor::Update(const FixRecord& fix) {
  if (!FixCounts(fix)) {
    return;
  }
  const std::int64_t time = fix.GetLocalFileTime();
  if (lastTime != 0 && time > lastTime) {
    seconds = SaturatedSum(seconds, (time - lastTime) / FILE_TIME_PER_SECOND);
    ShowTime();
  }
  lastTime = time;
}

void ElapsedSensor::Reset() {
  seconds = 0;
  lastTime = 0;
}

/// "7 s", "1:02", "1:02:05", "1days1:1:1": only the form with days goes without leading zeros.
void ElapsedSensor::ShowTime() {
  const int days = Saturated<int>(seconds / 86400);
  const int secondOfDay = static_cast<int>(seconds % 86400);
  const int hour = secondOfDay / 3600;
  const int minute = secondOfDay % 3600 / 60;
  const int second = secondOfDay % 60;
  if (days != 0) {
    SetText("%i%s%i:%i:%i", days, GetText(Word::DAYS), hour, minute, second);
  } else if (hour != 0) {
    SetText("%i:%02i:%02i", hour, minute, second);
  } else if (minute != 0) {
    SetText("%i:%02i", minute, second);
  } else {
    SetText("%i %s", second, GetText(Word::SECOND));
  }
}

}  // namespace ferolin
