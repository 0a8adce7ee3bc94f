#pragma once

#include "base/MissingValue.h"
#include "sensors/SaveableSensor.h"

namespace ferolin {

/// Highest speed so far. A fix that has a speed counts even when it is not valid.
class MaxSpeedSensor : public SaveableSensor {
 public:
  using SaveableSensor::SaveableSensor;
  void GetRegistryString(char* out, int size) const override;
  int SetRegistryString(const char* text) override;
  void Update(const FixRecord& fix) override;
  void Reset() override;

 private:
  void SetMaximum(float speedKmh);

  float maximumKmh = MISSING_FLOAT;
};

}  // namespace ferolin
