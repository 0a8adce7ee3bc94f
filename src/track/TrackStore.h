#pragma once

#include <cstdint>

#include "track/TrackPoint.h"

namespace ferolin {

/// The route of this run: every accepted fix, oldest first, in one block of memory that grows by
/// 1000 points at a time. When it can grow no more, the oldest points make room for new ones. Not
/// locked: the engine's data lock guards it.
class TrackStore {
 public:
  /// Takes room for 1000 points. Without that memory every append is refused.
  TrackStore();
  ~TrackStore();
  TrackStore(const TrackStore&) = delete;
  TrackStore& operator=(const TrackStore&) = delete;

  /// Adds a point unless its position is missing, its speed is negative, or it repeats the last
  /// point (the day of the week is not compared). Returns the new count, or 0 when nothing was
  /// added.
  int Append(const TrackPoint& point);

  int GetPointCount() const { return pointCount; }

  /// Number of points that have made room so far. The point at index i has the number
  /// i + GetDroppedCount() in the run.
  int GetDroppedCount() const { return droppedCount; }

  /// Null when `index` is out of range. The address is valid until the next append.
  const TrackPoint* GetPoint(int index) const;

 private:
  bool RepeatsLast(const TrackPoint& point) const;
  int GetCapacity() const;
  void MakeRoom();

  TrackPoint* points;
  std::int32_t pointCount = 0;
  std::int32_t droppedCount = 0;
};

}  // namespace ferolin
