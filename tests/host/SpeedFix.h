// Fixes that have a speed, for tests of sums.
#pragma once

#include "sources/Fix.h"

namespace host {

inline Fix SpeedFix(std::int64_t timeMs, std::optional<double> kmh, bool hasFix) {
  Fix fix;
  fix.timeMs = timeMs;
  fix.hasFix = hasFix;
  fix.speedKmh = kmh;
  return fix;
}

}  // namespace host
