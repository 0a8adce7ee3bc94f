#pragma once

#include "sensors/Sensor.h"

namespace ferolin {

/// Charge of the device's own battery: "80%", "80%(charging)", "charging" or "N/A".
class BatterySensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

}  // namespace ferolin
