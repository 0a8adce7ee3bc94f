#include "widgets/path/PathIndex.h"

#include <algorithm>
#include <cmath>

namespace ferolin {

void PathIndex::Update(const PathPoints& points) {
  if (end > points.GetEnd()) {
    Drop();
    first = 0;
    end = 0;
    stepSum = 0;
    isUsable = true;
  }
  first = std::max(first, points.GetFirst());
  while (first < end && !HasPosition(points[first])) {
    ++first;
  }
  for (; isUsable && end < points.GetEnd(); ++end) {
    if (!Reach(end) || (end >= points.GetFirst() && !Add(points[end]))) {
      Drop();
    }
  }
  end = points.GetEnd();
}

/// Takes in point number `end`. False when its position is no number.
bool PathIndex::Add(const TrackPoint& point) {
  if (!HasPosition(point)) {
    if (end == first) {
      ++first;
      return true;
    }
    PositionAt(end) = PositionAt(end - 1);
  } else if (std::isfinite(point.latitude) && std::isfinite(point.longitude)) {
    PositionAt(end) = {point.latitude, point.longitude};
  } else {
    return false;
  }
  const Position position = PositionAt(end);
  if (end > first) {
    const Position last = PositionAt(end - 1);
    WidenBlocksOf(end - 1, position);
    const float step = std::max(std::fabs(position.latitude - last.latitude),
                                std::fabs(position.longitude - last.longitude));
    NoteStep(end - 1, step);
    stepSum += std::min(step, 1.0F);
  }
  WidenBlocksOf(end, position);
  return true;
}

/// What a block holds, the blocks above it hold too.
void PathIndex::WidenBlocksOf(int number, Position position) {
  for (int level = 0; level < LEVELS; ++level) {
    PathBox& box = BlockAt(level, number).box;
    if (box.Contains(position.latitude, position.longitude)) {
      return;
    }
    box.Widen(position.latitude, position.longitude);
  }
}

/// The same holds for the steps.
void PathIndex::NoteStep(int number, float step) {
  for (int level = 0; level < LEVELS; ++level) {
    float& longest = BlockAt(level, number).step;
    if (longest >= step) {
      return;
    }
    longest = step;
  }
}

/// Makes room for point `number` and the blocks that it belongs to; false without memory for that.
bool PathIndex::Reach(int number) {
  bool isReached = positions.Add({});
  for (int level = 0; level < LEVELS; ++level) {
    GrowingArray<Block>& blocks = levels[static_cast<std::size_t>(level)];
    if (blocks.Get().size() == static_cast<std::size_t>(BlockOf(level, number))) {
      isReached = blocks.Add({}) && isReached;
    }
  }
  return isReached;
}

void PathIndex::Drop() {
  positions.Release();
  for (GrowingArray<Block>& blocks : levels) {
    blocks.Release();
  }
  isUsable = false;
}

}  // namespace ferolin
