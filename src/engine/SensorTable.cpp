// The list of sensors. Hosts keep choices by index, so the order never changes.

#include <new>

#include "engine/Engine.h"
#include "gps/FixRecord.h"
#include "sensors/AccelSensor.h"
#include "sensors/AverageSpeedSensor.h"
#include "sensors/CurrentFixSensors.h"
#include "sensors/DistanceSensor.h"
#include "sensors/ElapsedSensor.h"
#include "sensors/FastestSensor.h"
#include "sensors/LocalizedText.h"
#include "sensors/MaxSpeedSensor.h"

namespace ferolin {

namespace {

using SensorPointer = std::unique_ptr<Sensor>;

template <class Kind, class... Arguments>
SensorPointer Make(Arguments... arguments) {
  return SensorPointer(new (std::nothrow) Kind(arguments...));
}

template <class Kind, Word WORD>
SensorPointer Named() {
  return Make<Kind>(GetText(WORD));
}

template <int METRES>
SensorPointer Fastest() {
  return Make<FastestSensor>(static_cast<float>(METRES));
}

template <int KMH>
SensorPointer Accel() {
  return Make<AccelSensor>(static_cast<float>(KMH));
}

SensorPointer Hdop() {
  return Make<DopSensor>("HDOP", &FixRecord::hdop);
}

SensorPointer Vdop() {
  return Make<DopSensor>("VDOP", &FixRecord::vdop);
}

SensorPointer Pdop() {
  return Make<DopSensor>("PDOP", &FixRecord::pdop);
}

constexpr SensorPointer (*SENSORS[])() = {
    &Named<GpsStatusSensor, Word::GPS_STATUS>,
    &Named<SatellitesUsedSensor, Word::SATELLITES_USED>,
    &Named<CurrentTimeSensor, Word::CURRENT_TIME>,
    &Fastest<100>,
    &Fastest<402>,
    &Fastest<1000>,
    &Named<DistanceSensor, Word::DISTANCE>,
    &Named<ElapsedSensor, Word::ELAPSED>,
    &Named<AverageSpeedSensor, Word::AVERAGE_SPEED>,
    &Named<SpeedSensor, Word::SPEED>,
    &Named<MaxSpeedSensor, Word::MAX_SPEED>,
    &Accel<10>,
    &Accel<30>,
    &Accel<60>,
    &Accel<100>,
    &Accel<150>,
    &Accel<200>,
    &Named<LatitudeSensor, Word::LATITUDE>,
    &Named<LongitudeSensor, Word::LONGITUDE>,
    &Named<AltitudeSensor, Word::ALTITUDE>,
    &Named<AzimuthSensor, Word::AZIMUTH>,
    &Hdop,
    &Vdop,
    &Pdop,
    &Named<BatterySensor, Word::BATTERY_STATUS>,
    &Fastest<500>,
    &Fastest<10000>,
    &Accel<20>,
    &Accel<40>,
    &Accel<50>,
    &Accel<70>,
    &Accel<80>,
    &Accel<90>,
    &Accel<120>,
};

}  // namespace

/// Sensors show the empty fix from the start, so that a host has something to list before the first
/// update. Should the memory run out, the list ends there.
void Engine::BuildSensorTable() {
  static_assert(std::size(SENSORS) <= MAX_SENSORS);
  for (const auto makeSensor : SENSORS) {
    SensorPointer sensor = makeSensor();
    if (sensor == nullptr) {
      return;
    }
    sensor->Update(*fix);
    sensors[static_cast<std::size_t>(sensorCount++)] = std::move(sensor);
  }
}

}  // namespace ferolin
