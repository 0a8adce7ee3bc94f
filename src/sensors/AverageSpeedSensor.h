#pragma once

#include <cstdint>

#include "base/MissingValue.h"
#include "sensors/SaveableSensor.h"

namespace ferolin {

/// Average speed over all time with a fix, standing time included. Counts whole seconds between
/// fixes: two fixes within one second add neither time nor distance.
class AverageSpeedSensor : public SaveableSensor {
 public:
  using SaveableSensor::SaveableSensor;
  void GetRegistryString(char* out, int size) const override;
  int SetRegistryString(const char* text) override;
  void Update(const FixRecord& fix) override;
  void Reset() override;

 private:
  std::int64_t seconds = 0;
  std::int64_t lastTime = 0;        ///< file time of the previous fix
  float lastSpeed = MISSING_FLOAT;  ///< km/h, missing when the chain is broken
  float distanceKm = 0;
};

}  // namespace ferolin
