#include "sensors/MaxSpeedSensor.h"

#include "base/Number.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"

namespace ferolin {

void MaxSpeedSensor::GetRegistryString(char* out, int) const {
  PrintState(out, "%g", maximumKmh);
}

int MaxSpeedSensor::SetRegistryString(const char* text) {
  const float saved = static_cast<float>(ParseDouble(text));
  if (!(saved > 0)) {
    return 0;
  }
  SetMaximum(saved);
  return 1;
}

void MaxSpeedSensor::Update(const FixRecord& fix) {
  if (!IsMissing(fix.GetSpeedKmh()) && (IsMissing(maximumKmh) || fix.GetSpeedKmh() > maximumKmh)) {
    SetMaximum(fix.GetSpeedKmh());
  }
}

void MaxSpeedSensor::Reset() {
  maximumKmh = MISSING_FLOAT;
  Sensor::Reset();
}

void MaxSpeedSensor::SetMaximum(float speedKmh) {
  maximumKmh = speedKmh;
  SetText("%.1f %s", maximumKmh, GetText(Word::KMH));
}

}  // namespace ferolin
