#pragma once

#include <cstddef>

#include "base/GrowingArray.h"
#include "widgets/path/PathBox.h"
#include "widgets/path/PathPoints.h"

namespace ferolin {

/// A box around each block of 64 points, so that drawing can pass over what is out of view. To a
/// block belong the lines from each of its points to the next one. Takes a quarter of a byte a
/// point. When memory runs out the newest points stay without a box.
class PathIndex {
 public:
  static constexpr int BLOCK = 64;

  /// Takes in the points added since the last call. A track that has become shorter is a new one.
  void Update(const PathPoints& points);

  /// Box around the block of point `number`; without limits while the block is not complete.
  const PathBox& GetBox(int number) const;

  /// Number of the first point of the next block.
  static int EndOfBlock(int number) { return (number / BLOCK + 1) * BLOCK; }

 private:
  static constexpr PathBox EVERYWHERE = {-PathBox::FARTHEST, PathBox::FARTHEST, -PathBox::FARTHEST,
                                         PathBox::FARTHEST};

  static std::size_t BlockOf(int number) { return static_cast<std::size_t>(number / BLOCK); }
  void Widen(int number, const TrackPoint& point);

  GrowingArray<PathBox> boxes;
  int end = 0;  ///< number of the next point to take in
};

}  // namespace ferolin
