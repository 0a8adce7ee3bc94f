#include "sensors/AverageSpeedSensor.h"

#include "base/DeviceTime.h"
#include "base/Number.h"
#include "base/Saturate.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"
#include "sensors/StatePair.h"
#include "sensors/TripText.h"

namespace ferolin {

namespace {

constexpr float HOURS_PER_SECOND = 0.00027777778F;

}  // namespace

void AverageSpeedSensor::GetRegistryString(char* out, int) const {
  PrintState(out, "%g;%i", distanceKm, static_cast<int>(seconds));
}

int AverageSpeedSensor::SetRegistryString(const char* text) {
  const StatePair saved(text);
  const float savedKm = static_cast<float>(ParseDouble(saved.first.c_str()));
  const std::int64_t savedSeconds = ParseInt64(saved.second.c_str());
  if (!(savedSeconds > 0 && savedKm > 0)) {
    return 0;
  }
  distanceKm = savedKm;
  seconds = savedSeconds;
  SetText("%.2f %s", static_cast<double>(distanceKm) / (static_cast<double>(seconds) / 3600.0),
          GetText(Word::KMH));
  return 1;
}

void AverageSpeedSensor::Update(const FixRecord& fix) {
  if (!FixCounts(fix)) {
    lastSpeed = MISSING_FLOAT;
    return;
  }
  const std::int64_t time = fix.GetLocalFileTime();
  if (!IsMissing(lastSpeed) && lastTime != 0 && time >= lastTime) {
    const std::int64_t step = (time - lastTime) / FILE_TIME_PER_SECOND;
    seconds = SaturatedSum(seconds, step);
    distanceKm +=
        ((fix.GetSpeedKmh() + lastSpeed) * 0.5F) * (static_cast<float>(step) * HOURS_PER_SECOND);
    if (seconds != 0) {
      const float hours = static_cast<float>(seconds) * HOURS_PER_SECOND;
      SetText("%.2f %s", static_cast<double>(distanceKm) / static_cast<double>(hours),
              GetText(Word::KMH));
    }
  }
  lastSpeed = fix.GetSpeedKmh();
  lastTime = time;
}

void AverageSpeedSensor::Reset() {
  seconds = 0;
  lastTime = 0;
  lastSpeed = MISSING_FLOAT;
  distanceKm = 0;
}

}  // namespace ferolin
