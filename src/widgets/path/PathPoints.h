#pragma once

#include <cstddef>
#include <span>

#include "base/MissingValue.h"
#include "track/TrackPoint.h"
#include "track/TrackStore.h"

namespace ferolin {

/// The points of a track that are there now. Each is known by its number in the run, which stays
/// when the oldest points are lost. Borrowed: good until the track is appended to.
class PathPoints {
 public:
  explicit PathPoints(const TrackStore& track)
      : PathPoints({track.GetPoint(0), static_cast<std::size_t>(track.GetPointCount())},
                   track.GetDroppedCount()) {}
  PathPoints(std::span<const TrackPoint> thePoints, int firstNumber)
      : points(thePoints), first(firstNumber) {}

  /// Numbers of the oldest point and of the one that will come next.
  int GetFirst() const { return first; }
  int GetEnd() const { return first + static_cast<int>(points.size()); }
  int GetCount() const { return static_cast<int>(points.size()); }

  /// `number` is to be from GetFirst() to GetEnd() - 1.
  const TrackPoint& operator[](int number) const {
    return points[static_cast<std::size_t>(number - first)];
  }

 private:
  std::span<const TrackPoint> points;
  int first;
};

inline bool HasPosition(const TrackPoint& point) {
  return !IsMissing(point.latitude) && !IsMissing(point.longitude);
}

}  // namespace ferolin
