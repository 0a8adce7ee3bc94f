#pragma once

#include <cstdint>

#include "base/MissingValue.h"
#include "sensors/SaveableSensor.h"

namespace ferolin {

/// Distance driven: speed integrated over time by trapezoids. Gaps without a fix add nothing.
class DistanceSensor : public SaveableSensor {
 public:
  using SaveableSensor::SaveableSensor;
  void GetRegistryString(char* out, int size) const override;
  int SetRegistryString(const char* text) override;
  void Update(const FixRecord& fix) override;
  void Reset() override;

 private:
  void ShowDistance();

  std::int64_t lastTime = 0;        ///< file time of the previous fix, 0 when it had none
  float lastSpeed = MISSING_FLOAT;  ///< km/h, missing when the chain is broken
  float distanceKm = 0;
};

}  // namespace ferolin
