#pragma once

#include <array>
#include <cstdint>

#include "widgets/PathBox.h"
#include "widgets/PathPoints.h"

namespace ferolin {

/// Blocks of a track, so that a drawing can pass over those in which there is nothing to see. Level
/// 0 holds a block for every 16 points, level 1 one for every 4 of those, and so on. To a block
/// belong the lines from each of its points on to the next. Takes less than 2 bytes a point.
class PathIndex {
 public:
  struct Block {
    PathBox box;     ///< holds the lines
    float step = 0;  ///< the longest line's extent in latitude or in longitude
  };

  static constexpr int LEVELS = 5;

  PathIndex() = default;
  ~PathIndex();
  PathIndex(const PathIndex&) = delete;
  PathIndex& operator=(const PathIndex&) = delete;

  /// Takes in the points that have come since the last call. A track that has become shorter is a
  /// new one.
  void Update(const PathPoints& points);

  /// False when the memory has run out; there are no blocks any more then.
  bool IsUsable() const { return isUsable; }

  /// Number of the block that point `number` belongs to.
  static int BlockOf(int level, int number) { return number >> ShiftOf(level); }
  /// Number of the first point of a block.
  static int FirstOf(int level, int block) { return block << ShiftOf(level); }

  /// The block must have been reached by an update.
  const Block& GetBlock(int level, int block) const {
    return levels[static_cast<std::size_t>(level)].blocks[block];
  }

 private:
  static constexpr int ShiftOf(int level) { return 4 + 2 * level; }
  static constexpr int NONE = -1;

  struct Level {
    Block* blocks = nullptr;
    int count = 0;
    int capacity = 0;
  };

  static bool Reach(Level& level, int block);
  void Add(int number, const TrackPoint& point);
  Block& BlockAt(int level, int number) {
    return levels[static_cast<std::size_t>(level)].blocks[BlockOf(level, number)];
  }
  void WidenBlocksOf(int number, const TrackPoint& point);
  void NoteStep(int number, float step);
  void Drop();

  std::array<Level, LEVELS> levels;
  int end = 0;  ///< number of the next point to take in
  // The last point that had a position.
  int lastKnown = NONE;  ///< its number
  float lastLatitude = 0;
  float lastLongitude = 0;
  bool isUsable = true;
};

}  // namespace ferolin
