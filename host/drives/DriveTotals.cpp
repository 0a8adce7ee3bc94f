#include "drives/DriveTotals.h"

#include <algorithm>

namespace host {

namespace {}  // namespace

void DriveTotals::Add(const Fix& fix) {
  const std::int64_t timeMs = fix.timeMs.value_or(endMs);
  const bool isStep = !clock.Jumps(timeMs) && hasBegun;
  const std::int64_t stepMs = isStep ? std::max<std::int64_t>(timeMs - endMs, 0) : 0;
  const std::optional<double> kmh = fix.hasFix ? fix.speedKmh : std::nullopt;
  if (kmh && lastKmh) {
    distanceKm += (*kmh + *lastKmh) / 2 * static_cast<double>(stepMs) / MS_PER_HOUR;
  }
  highestKmh = std::max(highestKmh, kmh.value_or(0));
  durationMs += stepMs;
  endMs = timeMs;
  lastKmh = kmh;
  moving.Add(fix);
  hasBegun = true;
}

void DriveTotals::PutInto(Drive& drive) const {
  drive.startMs = endMs - durationMs;
  drive.endMs = endMs;
  drive.distanceKm = distanceKm;
  drive.highestKmh = highestKmh;
  drive.moving = moving.GetSums();
}

}  // namespace host
