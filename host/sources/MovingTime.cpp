#include "sources/MovingTime.h"

namespace host {

namespace {

constexpr double MS_PER_HOUR = 3600000;

}  // namespace

std::optional<double> MovingTime::Sums::GetAverageKmh() const {
  return movingMs > 0 ? std::optional(movingKm * MS_PER_HOUR / static_cast<double>(movingMs))
                      : std::nullopt;
}

void MovingTime::Resume(const Sums& kept) {
  sums = kept;
  lastMs.reset();
}

/// A step belongs to the speed at its end.
void MovingTime::Add(const Fix& fix) {
  if (!fix.timeMs || !fix.hasFix || !fix.speedKmh) {
    lastMs.reset();
    return;
  }
  const std::int64_t stepMs = *fix.timeMs - lastMs.value_or(*fix.timeMs);
  const bool counts = !clock.Jumps(*fix.timeMs) && stepMs > 0;
  if (counts && *fix.speedKmh < STANDSTILL_KMH) {
    sums.stoppedMs += stepMs;
  } else if (counts) {
    sums.movingMs += stepMs;
    sums.movingKm += (*fix.speedKmh + lastKmh) / 2 * static_cast<double>(stepMs) / MS_PER_HOUR;
  }
  lastMs = fix.timeMs;
  lastKmh = *fix.speedKmh;
}

}  // namespace host
