#pragma once

#include <windows.h>

namespace ferolin {

/// One accepted fix of the route.
struct TrackPoint {
  float altitude;   ///< metres above sea level, MISSING_FLOAT when unknown
  float longitude;  ///< degrees x 100 + minutes, negative = West
  float latitude;   ///< degrees x 100 + minutes, negative = South
  float course;     ///< degrees from true north, MISSING_FLOAT when unknown
  float speedKmh;   ///< never negative
  SYSTEMTIME time;  ///< local time of the fix
};
static_assert(sizeof(TrackPoint) == 36);

}  // namespace ferolin
