#pragma once

#include <array>
#include <span>

#include "base/GrowingArray.h"
#include "widgets/path/PathBox.h"
#include "widgets/path/PathPoints.h"

namespace ferolin {

/// The positions of a track, by themselves, and blocks of them, so that a drawing can pass over
/// those in which there is nothing to see. Level 0 holds a block for every 16 points, level 1 one
/// for every 4 of those, and so on. To a block belong the lines from each of its points on to the
/// next. Takes less than 10 bytes a point.
class PathIndex {
 public:
  /// In degrees x 100 + minutes.
  struct Position {
    float latitude;
    float longitude;
  };

  struct Block {
    PathBox box;     ///< holds the lines
    float step = 0;  ///< the longest line's extent in latitude or in longitude
  };

  static constexpr int LEVELS = 5;

  /// Takes in the points that have come since the last call. A track that has become shorter is a
  /// new one.
  void Update(const PathPoints& points);

  /// False when the memory has run out, or a position was no number; there is nothing any more
  /// then.
  bool IsUsable() const { return isUsable; }

  /// Numbers of the oldest point that has a position, and of the one that will come next. Equal
  /// when there is none with a position.
  int GetFirst() const { return first; }
  int GetEnd() const { return end; }

  /// Of points `from` up to, but not including, `to`, which are to lie from GetFirst() to GetEnd().
  /// A point without position has that of the one before. Borrowed: good until the next update.
  std::span<const Position> GetPositions(int from, int to) const {
    return positions.Get().subspan(static_cast<std::size_t>(from),
                                   static_cast<std::size_t>(to - from));
  }

  /// How far points lie from the one before, on average, in latitude or in longitude, whichever is
  /// more; in degrees x 100 + minutes, of which a jump counts as 1. 0 without points.
  double GetMeanStep() const { return end > first ? stepSum / (end - first) : 0; }

  /// Number of the block that point `number` belongs to.
  static int BlockOf(int level, int number) { return number >> ShiftOf(level); }
  /// Number of the first point of a block.
  static int FirstOf(int level, int block) { return block << ShiftOf(level); }

  /// The block must have been reached by an update.
  const Block& GetBlock(int level, int block) const {
    return levels[static_cast<std::size_t>(level)].Get()[static_cast<std::size_t>(block)];
  }

 private:
  static constexpr int ShiftOf(int level) { return 4 + 2 * level; }

  bool Reach(int number);
  bool Add(const TrackPoint& point);
  Position& PositionAt(int number) { return positions.Get()[static_cast<std::size_t>(number)]; }
  Block& BlockAt(int level, int number) {
    return levels[static_cast<std::size_t>(level)]
        .Get()[static_cast<std::size_t>(BlockOf(level, number))];
  }
  void WidenBlocksOf(int number, Position position);
  void NoteStep(int number, float step);
  void Drop();

  GrowingArray<Position> positions;
  std::array<GrowingArray<Block>, LEVELS> levels;
  int first = 0;
  int end = 0;
  double stepSum = 0;
  bool isUsable = true;
};

}  // namespace ferolin
