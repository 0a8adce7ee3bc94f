#include "track/TrackStore.h"

#include <crt.h>

#include <cstdlib>
#include <cstring>

#include "base/MissingValue.h"

namespace ferolin {

namespace {

constexpr int GROWTH_POINTS = 1000;

bool SameMoment(const SYSTEMTIME& left, const SYSTEMTIME& right) {
  return left.wYear == right.wYear && left.wMonth == right.wMonth && left.wDay == right.wDay &&
         left.wHour == right.wHour && left.wMinute == right.wMinute &&
         left.wSecond == right.wSecond && left.wMilliseconds == right.wMilliseconds;
}

}  // namespace

TrackStore::TrackStore()
    : points(static_cast<TrackPoint*>(std::malloc(GROWTH_POINTS * sizeof(TrackPoint)))) {}

TrackStore::~TrackStore() {
  std::free(points);
}

int TrackStore::Append(const TrackPoint& point) {
  if (points == nullptr || IsMissing(point.latitude) || IsMissing(point.longitude) ||
      point.speedKmh < 0.0F || RepeatsLast(point)) {
    return 0;
  }
  MakeRoom();
  points[pointCount] = point;
  return ++pointCount;
}

const TrackPoint* TrackStore::GetPoint(int index) const {
  return index >= 0 && index < pointCount ? points + index : nullptr;
}

bool TrackStore::RepeatsLast(const TrackPoint& point) const {
  const TrackPoint* last = GetPoint(pointCount - 1);
  return last != nullptr && last->altitude == point.altitude && last->latitude == point.latitude &&
         last->longitude == point.longitude && last->course == point.course &&
         last->speedKmh == point.speedKmh && SameMoment(last->time, point.time);
}

int TrackStore::GetCapacity() const {
  return static_cast<int>(CrtBlockSize(points) / sizeof(TrackPoint));
}

void TrackStore::MakeRoom() {
  const int capacity = GetCapacity();
  if (pointCount + 1 < capacity) {
    return;
  }
  const std::size_t wanted =
      static_cast<std::size_t>(capacity + GROWTH_POINTS) * sizeof(TrackPoint);
  if (void* grown = std::realloc(points, wanted)) {
    points = static_cast<TrackPoint*>(grown);
  } else if (pointCount >= capacity) {
    // No more memory: from here on the oldest point goes for each new one.
    ++droppedCount;
    pointCount = capacity - 1;
    std::memmove(points, points + 1, static_cast<std::size_t>(pointCount) * sizeof(TrackPoint));
  }
}

}  // namespace ferolin
