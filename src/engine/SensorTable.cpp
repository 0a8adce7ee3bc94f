#include "engine/SensorTable.h"

#include <ferolin.h>

#include <new>

#include "gps/FixRecord.h"
#include "sensors/AccelSensor.h"
#include "sensors/AverageSpeedSensor.h"
#include "sensors/BatterySensor.h"
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
  return Make<DopSensor>("HDOP", &FixRecord::GetHdop);
}

SensorPointer Vdop() {
  return Make<DopSensor>("VDOP", &FixRecord::GetVdop);
}

SensorPointer Pdop() {
  return Make<DopSensor>("PDOP", &FixRecord::GetPdop);
}

struct SensorEntry {
  FerolinSensor index;
  SensorPointer (*make)();
};

constexpr SensorEntry SENSORS[] = {
    {FEROLIN_SENSOR_GPS_STATUS, &Named<GpsStatusSensor, Word::GPS_STATUS>},
    {FEROLIN_SENSOR_SATELLITES_USED, &Named<SatellitesUsedSensor, Word::SATELLITES_USED>},
    {FEROLIN_SENSOR_CURRENT_TIME, &Named<CurrentTimeSensor, Word::CURRENT_TIME>},
    {FEROLIN_SENSOR_FASTEST_100, &Fastest<100>},
    {FEROLIN_SENSOR_FASTEST_402, &Fastest<402>},
    {FEROLIN_SENSOR_FASTEST_1000, &Fastest<1000>},
    {FEROLIN_SENSOR_DISTANCE, &Named<DistanceSensor, Word::DISTANCE>},
    {FEROLIN_SENSOR_ELAPSED, &Named<ElapsedSensor, Word::ELAPSED>},
    {FEROLIN_SENSOR_AVERAGE_SPEED, &Named<AverageSpeedSensor, Word::AVERAGE_SPEED>},
    {FEROLIN_SENSOR_SPEED, &Named<SpeedSensor, Word::SPEED>},
    {FEROLIN_SENSOR_MAX_SPEED, &Named<MaxSpeedSensor, Word::MAX_SPEED>},
    {FEROLIN_SENSOR_ACCEL_10, &Accel<10>},
    {FEROLIN_SENSOR_ACCEL_30, &Accel<30>},
    {FEROLIN_SENSOR_ACCEL_60, &Accel<60>},
    {FEROLIN_SENSOR_ACCEL_100, &Accel<100>},
    {FEROLIN_SENSOR_ACCEL_150, &Accel<150>},
    {FEROLIN_SENSOR_ACCEL_200, &Accel<200>},
    {FEROLIN_SENSOR_LATITUDE, &Named<LatitudeSensor, Word::LATITUDE>},
    {FEROLIN_SENSOR_LONGITUDE, &Named<LongitudeSensor, Word::LONGITUDE>},
    {FEROLIN_SENSOR_ALTITUDE, &Named<AltitudeSensor, Word::ALTITUDE>},
    {FEROLIN_SENSOR_AZIMUTH, &Named<AzimuthSensor, Word::AZIMUTH>},
    {FEROLIN_SENSOR_HDOP, &Hdop},
    {FEROLIN_SENSOR_VDOP, &Vdop},
    {FEROLIN_SENSOR_PDOP, &Pdop},
    {FEROLIN_SENSOR_BATTERY_STATUS, &Named<BatterySensor, Word::BATTERY_STATUS>},
    {FEROLIN_SENSOR_FASTEST_500, &Fastest<500>},
    {FEROLIN_SENSOR_FASTEST_10000, &Fastest<10000>},
    {FEROLIN_SENSOR_ACCEL_20, &Accel<20>},
    {FEROLIN_SENSOR_ACCEL_40, &Accel<40>},
    {FEROLIN_SENSOR_ACCEL_50, &Accel<50>},
    {FEROLIN_SENSOR_ACCEL_70, &Accel<70>},
    {FEROLIN_SENSOR_ACCEL_80, &Accel<80>},
    {FEROLIN_SENSOR_ACCEL_90, &Accel<90>},
    {FEROLIN_SENSOR_ACCEL_120, &Accel<120>},
};

constexpr bool AreSensorsInOrder() {
  int index = 0;
  for (const SensorEntry& entry : SENSORS) {
    if (entry.index != index++) {
      return false;
    }
  }
  return index == FEROLIN_SENSOR_COUNT;
}

static_assert(AreSensorsInOrder(), "hosts know the sensors by these indexes");

}  // namespace

SensorTable::SensorTable(const FixRecord& fix) {
  static_assert(std::size(SENSORS) <= MAX_SENSORS);
  for (const SensorEntry& entry : SENSORS) {
    SensorPointer sensor = entry.make();
    if (sensor == nullptr) {
      return;
    }
    sensor->Update(fix);
    sensors[static_cast<std::size_t>(sensorCount++)] = std::move(sensor);
  }
}

Sensor* SensorTable::Get(int index) const {
  return index >= 0 && index < sensorCount ? sensors[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

void SensorTable::Update(const FixRecord& fix) {
  for (int index = 0; index < sensorCount; ++index) {
    Get(index)->Update(fix);
  }
}

}  // namespace ferolin
