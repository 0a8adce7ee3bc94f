#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "widgets/SensorSearch.h"

namespace ferolin {

class WidgetOwner;

/// Indexes of the first sensors of a kind in the engine's list.
template <std::size_t CAPACITY>
class SensorList {
 public:
  /// Does nothing when the list is full.
  void Add(int index) {
    if (count < CAPACITY) {
      indexes[count++] = index;
    }
  }
  bool IsEmpty() const { return count == 0; }
  std::span<const int> Get() const { return {indexes.data(), count}; }

 private:
  std::array<int, CAPACITY> indexes = {};
  std::size_t count = 0;
};

/// Indexes of the sensors that the speedometer shows; NO_SENSOR for one that was not found.
struct SpeedometerSensors {
  bool AreAllFound() const;
  /// Finds the sensors by their names. Sensors found before stay in the lists.
  void Find(const WidgetOwner& owner);

  int speed = NO_SENSOR;
  int averageSpeed = NO_SENSOR;
  int distance = NO_SENSOR;
  int maxSpeed = NO_SENSOR;
  int currentTime = NO_SENSOR;
  int azimuth = NO_SENSOR;
  SensorList<3> fastest;
  SensorList<5> acceleration;
};

/// Target speed of an acceleration sensor by its name: "Accel. 0-100 km/h" gives 100.
double AccelerationTarget(const char* sensorName);

/// Distance of a fastest sensor by its name: "Fastest 402m" gives 402.
double FastestDistance(const char* sensorName);

}  // namespace ferolin
