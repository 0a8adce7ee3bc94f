#include "run/TripStretch.h"

#include <array>
#include <string>

#include "handheld.h"

namespace host {

namespace {

/// Sensors that remember the time of the last position while there is no fix.
constexpr std::array PATIENT_SENSORS = {
    FEROLIN_SENSOR_ELAPSED,   FEROLIN_SENSOR_ACCEL_10,  FEROLIN_SENSOR_ACCEL_20,
    FEROLIN_SENSOR_ACCEL_30,  FEROLIN_SENSOR_ACCEL_40,  FEROLIN_SENSOR_ACCEL_50,
    FEROLIN_SENSOR_ACCEL_60,  FEROLIN_SENSOR_ACCEL_70,  FEROLIN_SENSOR_ACCEL_80,
    FEROLIN_SENSOR_ACCEL_90,  FEROLIN_SENSOR_ACCEL_100, FEROLIN_SENSOR_ACCEL_120,
    FEROLIN_SENSOR_ACCEL_150, FEROLIN_SENSOR_ACCEL_200,
};

}  // namespace

/// A state has the figure but not the time of the last position.
void StartStretch(const EngineLibrary& engine) {
  for (const int sensor : PATIENT_SENSORS) {
    const std::string state = engine.GetSensorState(sensor);
    engine().ResetSensorValue(sensor);
    engine().SetSensorRegistryString(sensor, handheld::WideFromUtf8(state).c_str());
  }
}

}  // namespace host
