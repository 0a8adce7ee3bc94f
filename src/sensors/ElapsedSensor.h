#pragma once

#include <cstdint>

#include "sensors/SaveableSensor.h"

namespace ferolin {

/// Time with a fix. A gap without one counts once the fix is back; a clock that goes back adds
/// nothing.
class ElapsedSensor : public SaveableSensor {
 public:
  using SaveableSensor::SaveableSensor;
  void GetRegistryString(char* out, int size) const override;
  int SetRegistryString(const char* text) override;
  void Update(const FixRecord& fix) override;
  void Reset() override;

 private:
  void ShowTime();

  std::int64_t seconds = 0;
  std::int64_t lastTime = 0;  ///< file time of the previous fix, 0 when there was none
};

}  // namespace ferolin
