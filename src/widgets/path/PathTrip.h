#pragma once

#include <cstdint>

#include "base/MissingValue.h"
#include "track/TrackPoint.h"
#include "widgets/path/PathBox.h"
#include "widgets/path/PathPoints.h"

namespace ferolin {

/// Elapsed time, distance and average speed of the whole track, and the box around it. Used under
/// the engine's data lock.
class PathTrip {
 public:
  /// Takes in the points added since the last call. A track that has become shorter is a new one:
  /// everything starts again.
  void Update(const PathPoints& points);

  std::int32_t GetElapsedSeconds() const { return elapsedSeconds; }
  float GetDistanceKm() const { return distanceKm; }
  /// 0 while no time has elapsed.
  float GetAverageKmh() const { return averageKmh; }
  const PathBox& GetBox() const { return box; }

 private:
  void Add(const TrackPoint& point);
  void AddStretch(std::int64_t units, float speedKmh);

  int processedCount = 0;         ///< number of the next point to take in
  std::int64_t previousTime = 0;  ///< in 100-nanosecond units since 1601
  float previousKmh = MISSING_FLOAT;
  std::int32_t elapsedSeconds = 0;
  float distanceKm = 0;
  float averageKmh = 0;
  PathBox box;
};

}  // namespace ferolin
