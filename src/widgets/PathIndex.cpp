#include "widgets/PathIndex.h"

#include <algorithm>
#include <cmath>
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
  if (lastKnown != NONE) {
    WidenBlocksOf(lastKnown, point);
    NoteStep(lastKnown, std::max(std::fabs(point.latitude - lastLatitude),
                                 std::fabs(point.longitude - lastLongitude)));
  }
  WidenBlocksOf(number, point);
  lastKnown = number;
  lastLatitude = point.latitude;
  lastLongitude = point.longitude;
}

/// What a block holds, the blocks above it hold too.
void PathIndex::WidenBlocksOf(int number, const TrackPoint& point) {
  for (int level = 0; level < LEVELS; ++level) {
    PathBox& box = BlockAt(level, number).box;
    if (box.Contains(point.latitude, point.longitude)) {
      return;
    }
    box.Widen(point.latitude, point.longitude);
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

/// Makes the blocks up to this one; false when there is no memory for them.
bool PathIndex::Reach(Level& level, int block) {
  if (block >= level.capacity) {
    const int capacity = block + GROWTH;
    void* grown = std::realloc(level.blocks, static_cast<std::size_t>(capacity) * sizeof(Block));
    if (grown == nullptr) {
      return false;
    }
    level.blocks = static_cast<Block*>(grown);
    level.capacity = capacity;
  }
  while (level.count <= block) {
    level.blocks[level.count++] = Block();
  }
  return true;
}

void PathIndex::Drop() {
  for (Level& level : levels) {
    std::free(level.blocks);
    level = Level();
  }
  lastKnown = NONE;
  isUsable = false;
}

}  // namespace ferolin
