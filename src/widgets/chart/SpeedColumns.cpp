#include "widgets/chart/SpeedColumns.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace ferolin {

namespace {

/// Floats from zero up stand in the same order as their bits, and those below zero have negative
/// ones. Comparing bits takes handhelds one instruction, comparing floats takes them dozens.
std::int32_t BitsOf(const TrackPoint& point) {
  return std::bit_cast<std::int32_t>(point.speedKmh);
}

float SpeedOf(std::int32_t bits) {
  return std::bit_cast<float>(std::max<std::int32_t>(bits, 0));
}

}  // namespace

void SpeedColumns::Clear() {
  columns.Clear();
  maximum = 0;
}

bool SpeedColumns::Add(int x, std::span<const TrackPoint> points) {
  std::int32_t lowest = BitsOf(points.front());
  std::int32_t highest = lowest;
  for (const TrackPoint& point : points) {
    lowest = std::min(lowest, BitsOf(point));
    highest = std::max(highest, BitsOf(point));
  }
  const Column column = {x, SpeedOf(lowest), SpeedOf(highest)};
  maximum = std::max(maximum, column.maximum);
  return columns.Add(column);
}

}  // namespace ferolin
