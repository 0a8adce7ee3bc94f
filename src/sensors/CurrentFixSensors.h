// Sensors that show the current fix or the device and keep no state of their own.
#pragma once

#include "sensors/Sensor.h"

namespace ferolin {

/// "OK", or that there is no signal.
class GpsStatusSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

class SatellitesUsedSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

/// Local time of the fix, "9:05:07", also without a valid fix.
class CurrentTimeSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

/// Empty without a valid fix.
class SpeedSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

/// Degrees, minutes and whole seconds, cut and never rounded, with a letter for the hemisphere.
class LatitudeSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

class LongitudeSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

class AltitudeSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

/// Course in whole degrees, without a unit.
class AzimuthSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

/// One of the three dilutions of precision.
class DopSensor : public Sensor {
 public:
  DopSensor(std::string name, float (FixRecord::*getDop)() const)
      : Sensor(std::move(name)), getDop(getDop) {}
  void Update(const FixRecord& fix) override;

 private:
  float (FixRecord::*getDop)() const;
};

/// Charge of the device's own battery.
class BatterySensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

}  // namespace ferolin
