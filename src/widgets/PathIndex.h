#pragma once

#include <array>
#include <cstdint>

#include "widgets/PathBox.h"
#include "widgets/PathPoints.h"

namespace ferolin {

/// Boxes around stretches of a track, so that a drawing can pass over stretches in which there is
/// nothing to see. Level 0 holds a box for every 16 points, level 1 one for every 16 of those, and
/// so on. The box of a block holds its points and the next one after them: with that, the lines
/// from each of its points on to the next. Takes about one byte a point.
class PathIndex {
 public:
  static constexpr int LEVELS = 3;
  static constexpr int FAN_OUT = 16;

  PathIndex() = default;
  ~PathIndex();
  PathIndex(const PathIndex&) = delete;
  PathIndex& operator=(const PathIndex&) = delete;

  /// Takes in the points that have come since the last call. A track that has become shorter is a
  /// new one.
  void Update(const PathPoints& points);

  /// False when the memory has run out; there are no boxes any more then.
  bool IsUsable() const { return isUsable; }

  /// Number of the block that point `number` belongs to.
  static int BlockOf(int level, int number) { return number >> SHIFT * (level + 1); }
  /// Number of the first point of a block.
  static int FirstOf(int level, int block) { return block << SHIFT * (level + 1); }

  /// The block must have been reached by an update.
  const PathBox& GetBox(int level, int block) const {
    return levels[static_cast<std::size_t>(level)].boxes[block];
  }

 private:
  static constexpr int SHIFT = 4;
  static constexpr int NONE = -1;

  struct Level {
    PathBox* boxes = nullptr;
    int count = 0;
    int capacity = 0;
  };

  static bool Reach(Level& level, int block);
  void Add(int number, const TrackPoint& point);
  void WidenBlocksOf(int number, const TrackPoint& point);
  void Drop();

  std::array<Level, LEVELS> levels;
  int end = 0;           ///< number of the next point to take in
  int lastKnown = NONE;  ///< number of the last point that had a position
  bool isUsable = true;
};

}  // namespace ferolin
