#include "widgets/chart/SpeedColumns.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace ferolin {

namespace {

/// The bits of a float as an integer. Floats from zero up have the order of their bits, and floats
/// below zero have negative ones. Handhelds compare integers in one instruction, floats in dozens.
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
