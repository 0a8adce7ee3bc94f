#include "sensors/DistanceSensor.h"

#include "base/Number.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"
#include "sensors/TripText.h"

namespace ferolin {

void DistanceSensor::GetRegistryString(char* out, int) const {
  PrintState(out, "%g", distanceKm);
}

int DistanceSensor::SetRegistryString(const char* text) {
  const float saved = static_cast<float>(ParseDouble(text));
  if (!(saved > 0)) {
    return 0;
  }
  distanceKm = saved;
  ShowDistance();
  return 1;
}

void DistanceSensor::Update(const FixRecord& fix) {
  constexpr double HOURS_PER_SECOND = 0.0002777777777777778;
  if (!FixCounts(fix)) {
    lastSpeed = MISSING_FLOAT;
    return;
  }
  const std::int64_t time = fix.GetLocalFileTime();
  if (!IsMissing(lastSpeed) && lastTime != 0 && time >= lastTime) {
    const float seconds = static_cast<float>(time - lastTime) * 1e-7F;
    const double hours = static_cast<double>(seconds) * HOURS_PER_SECOND;
    const float meanSpeed = (fix.GetSpeedKmh() + lastSpeed) * 0.5F;
    distanceKm = static_cast<float>(hours * static_cast<double>(meanSpeed) +
                                    static_cast<double>(distanceKm));
    ShowDistance();
  }
  lastSpeed = fix.GetSpeedKmh();
  lastTime = time;
}

void DistanceSensor::Reset() {
  lastTime = 0;
  lastSpeed = MISSING_FLOAT;
  distanceKm = 0;
}

void DistanceSensor::ShowDistance() {
  if (distanceKm < 1.0F) {
    SetText("%.0f %s", distanceKm * 1000.0F, GetText(Word::METRE));
  } else {
    SetText(distanceKm < 10.0F ? "%.2f %s" : "%.1f %s", distanceKm, GetText(Word::KM));
  }
}

}  // namespace ferolin
