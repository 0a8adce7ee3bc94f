// One moment of the simulated drive.
#pragma once

#include <cstdint>

namespace host {

/// The car and its view of the sky.
struct DemoState {
  /// Seconds since the start of the drive.
  std::int64_t second = 0;
  double latitude = 55.7512;   // degrees north
  double longitude = 37.5984;  // degrees east
  double altitude = 148.0;     // metres
  double course = 40.0;        // degrees from north, 0 to below 360
  double speed = 0.0;          // metres per second
  bool hasFix = true;          // false in the tunnel
  /// Share of the sky that is visible, 0 to 1.
  double sky = 1.0;
};

}  // namespace host
