// Tracks for tests of the path.
#pragma once

#include <windows.h>

#include "track/TrackPoint.h"

namespace ferolin {

/// A point in NMEA form, `second` seconds into March 2024.
inline TrackPoint PathPointAt(float latitude, float longitude, float kmh, int second) {
  const auto part = [](int number) { return static_cast<WORD>(number); };
  const SYSTEMTIME time = {2024,
                           3,
                           0,
                           part(1 + second / 86400),
                           part(second / 3600 % 24),
                           part(second / 60 % 60),
                           part(second % 60),
                           0};
  return {150, longitude, latitude, 0, kmh, time};
}

}  // namespace ferolin
