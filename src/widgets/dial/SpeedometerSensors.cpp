#include "widgets/dial/SpeedometerSensors.h"

#include <algorithm>
#include <cstring>

#include "base/Number.h"
#include "sensors/Sensor.h"
#include "widgets/WidgetOwner.h"

namespace ferolin {

namespace {

struct NamedIndex {
  Word word;
  int SpeedometerSensors::*index;
};

/// Tried in this order: the first word contained in the name decides.
constexpr NamedIndex NAMED_INDEXES[] = {
    {Word::SPEED, &SpeedometerSensors::speed},
    {Word::AVERAGE_SPEED, &SpeedometerSensors::averageSpeed},
    {Word::DISTANCE, &SpeedometerSensors::distance},
    {Word::MAX_SPEED, &SpeedometerSensors::maxSpeed},
    {Word::CURRENT_TIME, &SpeedometerSensors::currentTime},
};

/// The number at that offset of `name`; 0 behind its end.
double NumberAt(const char* name, std::size_t offset) {
  return ParseDouble(name + std::min(offset, std::strlen(name)));
}

void Assign(const Sensor& sensor, int index, SpeedometerSensors& sensors) {
  for (const NamedIndex& named : NAMED_INDEXES) {
    if (IsNamed(sensor, named.word)) {
      sensors.*named.index = index;
      return;
    }
  }
  if (IsNamed(sensor, Word::FASTEST)) {
    sensors.fastest.Add(index);
  } else if (IsNamed(sensor, Word::ACCEL)) {
    sensors.acceleration.Add(index);
  } else if (IsNamed(sensor, Word::AZIMUTH)) {
    sensors.azimuth = index;
  }
}

}  // namespace

bool SpeedometerSensors::AreAllFound() const {
  return azimuth != NO_SENSOR && !fastest.IsEmpty() && !acceleration.IsEmpty() &&
         std::ranges::all_of(NAMED_INDEXES, [this](const NamedIndex& named) {
           return this->*named.index != NO_SENSOR;
         });
}

void SpeedometerSensors::Find(const WidgetOwner& owner) {
  for (int index = 0; index < owner.GetSensorCount(); ++index) {
    Assign(*owner.GetSensor(index), index, *this);
  }
}

double AccelerationTarget(const char* sensorName) {
  return NumberAt(sensorName, std::strcspn(sensorName, "0-") + 2);
}

double FastestDistance(const char* sensorName) {
  const char* word = GetText(Word::FASTEST);
  const char* found = std::strstr(sensorName, word);
  return found != nullptr ? NumberAt(found, std::strlen(word) + 1) : 0;
}

}  // namespace ferolin
