#include "widgets/PathIndex.h"

#include <algorithm>
#include <cstdlib>

namespace ferolin {

namespace {

constexpr int GROWTH = 256;

}  // namespace

PathIndex::~PathIndex() {
  Drop();
}

void PathIndex::Update(const PathPoints& points) {
  if (end > points.GetEnd()) {
    Drop();
    end = 0;
    isUsable = true;
  }
  for (int number = std::max(end, points.GetFirst()); isUsable && number < points.GetEnd();
       ++number) {
    Add(number, points[number]);
  }
  end = points.GetEnd();
}

void PathIndex::Add(int number, const TrackPoint& point) {
  for (int level = 0; level < LEVELS; ++level) {
    if (!Reach(levels[static_cast<std::size_t>(level)], BlockOf(level, number))) {
      Drop();
      return;
    }
  }
  if (!HasPosition(point)) {
    return;
  }
  if (lastKnown != NONE && BlockOf(0, lastKnown) != BlockOf(0, number)) {
    WidenBlocksOf(lastKnown, point);
  }
  WidenBlocksOf(number, point);
  lastKnown = number;
}

/// What a block holds, the blocks above it hold too.
void PathIndex::WidenBlocksOf(int number, const TrackPoint& point) {
  for (int level = 0; level < LEVELS; ++level) {
    PathBox& box = levels[static_cast<std::size_t>(level)].boxes[BlockOf(level, number)];
    if (box.Contains(point.latitude, point.longitude)) {
      return;
    }
    box.Widen(point.latitude, point.longitude);
  }
}

/// Makes the blocks up to this one; false when there is no memory for them.
bool PathIndex::Reach(Level& level, int block) {
  if (block >= level.capacity) {
    const int capacity = block + GROWTH;
    void* grown = std::realloc(level.boxes, static_cast<std::size_t>(capacity) * sizeof(PathBox));
    if (grown == nullptr) {
      return false;
    }
    level.boxes = static_cast<PathBox*>(grown);
    level.capacity = capacity;
  }
  while (level.count <= block) {
    level.boxes[level.count++] = PathBox();
  }
  return true;
}

void PathIndex::Drop() {
  for (Level& level : levels) {
    std::free(level.boxes);
    level = Level();
  }
  lastKnown = NONE;
  isUsable = false;
}

}  // namespace ferolin
