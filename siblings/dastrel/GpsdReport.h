#pragma once

#include <chrono>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace dastrel {

constexpr double UNKNOWN = std::numeric_limits<double>::quiet_NaN();

/// A position of gpsd (TPV).
struct GpsdFix {
  static constexpr int MODE_2D = 2;
  static constexpr int MODE_3D = 3;

  int mode = 0;
  /// Kind of fix by gpsd's numbers; 0 when it is not told.
  int status = 0;
  /// UTC.
  std::optional<std::chrono::sys_time<std::chrono::milliseconds>> time;
  double latitude = UNKNOWN;           // degrees
  double longitude = UNKNOWN;          // degrees
  double seaLevelAltitude = UNKNOWN;   // metres
  double ellipsoidAltitude = UNKNOWN;  // metres
  double speed = UNKNOWN;              // metres per second
  double course = UNKNOWN;             // degrees
};

struct GpsdSatellite {
  int prn = 0;
  double elevation = UNKNOWN;  // degrees
  double azimuth = UNKNOWN;    // degrees
  double signal = UNKNOWN;     // dB
  bool isUsed = false;
};

/// A sky view of gpsd (SKY).
struct GpsdSky {
  double pdop = UNKNOWN;
  double hdop = UNKNOWN;
  double vdop = UNKNOWN;
  std::vector<GpsdSatellite> satellites;
};

/// One line of gpsd. Values that are missing, of another type or impossible are unknown.
struct GpsdReport {
  /// `line` may end with a line end. Throws only for lack of memory.
  static GpsdReport Parse(std::string_view line);

  /// False for what is no whole object of JSON.
  bool isSensible = false;
  std::optional<GpsdFix> fix;
  std::optional<GpsdSky> sky;
};

}  // namespace dastrel
