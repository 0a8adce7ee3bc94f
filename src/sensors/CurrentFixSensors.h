// Sensors that show the current fix or the device and keep no state of their own.
#pragma once

#include "sensors/Sensor.h"

namespace ferolin {

/// "OK", or "No signal" in the user's language.
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

/// Local time of the fix as "9:05:07", with or without a valid fix.
class CurrentTimeSensor : public Sensor {
 public:
  using Sensor::Sensor;
  void Update(const FixRecord& fix) override;
};

/// Speed now; empty without a valid fix.
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

}  // namespace ferolin
