// A drive for a sensor: fixes at chosen moments.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "gps/FixRecord.h"
#include "sensors/Sensor.h"
#include "support/EditableFix.h"

namespace ferolin {

class Drive {
 public:
  explicit Drive(Sensor& drivenSensor) : sensor(drivenSensor) {}

  /// A valid fix `seconds` after the start (2024-03-01 12:00:00, to the millisecond).
  Drive& At(double seconds, float speedKmh) { return Update(seconds, speedKmh, 1); }

  /// A fix that is not valid.
  Drive& LostAt(double seconds, float speedKmh = 50) { return Update(seconds, speedKmh, 0); }

  /// A valid fix that has no speed.
  Drive& WithoutSpeedAt(double seconds) { return Update(seconds, MISSING_FLOAT, 1); }

  /// A valid fix whose time is none, as a receiver sends that does not know the date yet.
  Drive& Timeless(float speedKmh) {
    fix.SetLocalTime({});
    fix.speedKmh = speedKmh;
    fix.fixValid = 1;
    sensor.Update(fix);
    return *this;
  }

  /// Valid fixes at an even pace of one second, `count` of them.
  Drive& Every(double firstSecond, int count, float speedKmh) {
    for (int number = 0; number < count; ++number) {
      At(firstSecond + number, speedKmh);
    }
    return *this;
  }

  std::string Text() const { return sensor.GetValueText(); }

  std::string State() const {
    char state[256] = "";
    sensor.GetRegistryString(state, sizeof state);
    return state;
  }

 private:
  Drive& Update(double seconds, float speedKmh, std::uint8_t valid) {
    fix.SetLocalTime(
        TimeAt(static_cast<std::int64_t>(seconds * 1000 + (seconds < 0 ? -0.5 : 0.5))));
    fix.speedKmh = speedKmh;
    fix.fixValid = valid;
    sensor.Update(fix);
    return *this;
  }

  static SYSTEMTIME TimeAt(std::int64_t milliseconds) {
    const SYSTEMTIME start = {2024, 3, 0, 1, 12, 0, 0, 0};
    FILETIME file;
    SystemTimeToFileTime(&start, &file);
    std::int64_t count = static_cast<std::int64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime;
    count += milliseconds * 10'000;
    file = {static_cast<DWORD>(count), static_cast<DWORD>(count >> 32)};
    SYSTEMTIME time = {};
    FileTimeToSystemTime(&file, &time);
    return time;
  }

  Sensor& sensor;
  testing_support::EditableFix fix;
};

}  // namespace ferolin
