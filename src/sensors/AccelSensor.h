#pragma once

#include <cstdint>

#include "base/MissingValue.h"
#include "sensors/SaveableSensor.h"

namespace ferolin {

/// Best time from standstill to a target speed. The run starts at the last fix below 1 km/h; the
/// moment at which the target is crossed is interpolated between two fixes.
class AccelSensor : public SaveableSensor {
 public:
  explicit AccelSensor(float targetKmh);
  void GetRegistryString(char* out, int size) const override;
  int SetRegistryString(const char* text) override;
  void Update(const FixRecord& fix) override;
  void Reset() override;

 private:
  bool CrossesTarget(float speedKmh) const;
  void RecordRun(float speedKmh, std::int64_t time);

  std::int64_t startTime = 0;       ///< file time of the last fix at standstill, 0 for none
  std::int64_t lastTime = 0;        ///< file time of the previous fix
  float lastSpeed = MISSING_FLOAT;  ///< km/h
  float bestTime = MISSING_FLOAT;   ///< seconds
  float targetSpeed;                ///< km/h
};

}  // namespace ferolin
