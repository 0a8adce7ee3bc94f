#pragma once

#include <array>
#include <memory>

#include "sensors/Sensor.h"

namespace ferolin {

class FixRecord;

/// The sensors, owned, in the order of `FerolinSensor`.
class SensorTable {
 public:
  static constexpr std::size_t MAX_SENSORS = 50;

  /// Makes the sensors; they show `fix` from the start, so that a host has something to list before
  /// the first update. Should the memory run out, the list ends there.
  explicit SensorTable(const FixRecord& fix);

  /// Null for an index out of range.
  Sensor* Get(int index) const;
  int GetCount() const { return sensorCount; }

  /// Brings all sensors up to date, in list order.
  void Update(const FixRecord& fix);

 private:
  std::array<std::unique_ptr<Sensor>, MAX_SENSORS> sensors;
  std::int32_t sensorCount = 0;
};

}  // namespace ferolin
