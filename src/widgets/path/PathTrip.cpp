#include "widgets/path/PathTrip.h"

#include <algorithm>

#include "base/DeviceTime.h"
#include "base/Saturate.h"

namespace ferolin {

namespace {

constexpr float HOUR_SECONDS = 3600;
constexpr float MEAN_KM_PER_SECOND = 0.00013888889F;  // 1 / (2 x 3600)

}  // namespace

void PathTrip::Update(const PathPoints& points) {
  if (processedCount > points.GetEnd()) {
    *this = PathTrip();
  }
  for (int number = std::max(processedCount, points.GetFirst()); number < points.GetEnd();
       ++number) {
    Add(points[number]);
  }
  processedCount = points.GetEnd();
}

void PathTrip::Add(const TrackPoint& point) {
  const std::int64_t time = FileTimeOf(point.time);
  if (time > previousTime && previousTime != 0 && !IsMissing(previousKmh)) {
    AddStretch(time - previousTime, point.speedKmh);
  }
  previousTime = time;
  previousKmh = point.speedKmh;
  box.Widen(point.latitude, point.longitude);
}

/// Adds a stretch driven at the mean of both speeds, over whole seconds.
void PathTrip::AddStretch(std::int64_t units, float speedKmh) {
  const auto seconds = Saturated<std::int32_t>(units / FILE_TIME_PER_SECOND);
  elapsedSeconds = Saturated<std::int32_t>(std::int64_t{elapsedSeconds} + seconds);
  distanceKm += (speedKmh + previousKmh) * static_cast<float>(seconds) * MEAN_KM_PER_SECOND;
  if (elapsedSeconds > 0) {
    averageKmh = distanceKm * HOUR_SECONDS / static_cast<float>(elapsedSeconds);
  }
}

}  // namespace ferolin
