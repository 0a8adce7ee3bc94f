#pragma once

#include <cstddef>
#include <span>

#include "track/TrackPoint.h"
#include "track/TrackStore.h"

namespace ferolin {

/// The points that a track holds now, all of them with a position. Each is named by its number in
/// the run, which it keeps when older points are dropped. Borrowed: valid until the next append.
class PathPoints {
 public:
  explicit PathPoints(const TrackStore& track)
      : PathPoints({track.GetPoint(0), static_cast<std::size_t>(track.GetPointCount())},
                   track.GetDroppedCount()) {}
  PathPoints(std::span<const TrackPoint> points, int first) : points(points), first(first) {}

  /// Number of the oldest point, and of the point that will come next.
  int GetFirst() const { return first; }
  int GetEnd() const { return first + static_cast<int>(points.size()); }
  int GetCount() const { return static_cast<int>(points.size()); }

  /// `number` must lie from GetFirst() to GetEnd() - 1.
  const TrackPoint& operator[](int number) const {
    return points[static_cast<std::size_t>(number - first)];
  }
  const TrackPoint& GetNewest() const { return points.back(); }

 private:
  std::span<const TrackPoint> points;
  int first;
};

}  // namespace ferolin
