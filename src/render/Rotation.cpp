#include "render/Rotation.h"

#include <algorithm>

namespace ferolin {

namespace {

/// Pixels along an edge of a tile. One of the two bitmaps is always walked across its rows; the
/// cache holds all lines that a tile of this size touches.
constexpr int TILE = 32;

}  // namespace

/// Counted from the bottom, row r and column c go to row (width - 1 - c) and column r.
void RotateClockwise(const std::uint16_t* source, int width, int height, std::uint16_t* target) {
  const int sourceRow = RowLength16(width);
  const int targetRow = RowLength16(height);
  for (int firstColumn = 0; firstColumn < width; firstColumn += TILE) {
    const int lastColumn = std::min(firstColumn + TILE, width);
    for (int firstRow = 0; firstRow < height; firstRow += TILE) {
      const int lastRow = std::min(firstRow + TILE, height);
      for (int column = firstColumn; column < lastColumn; ++column) {
        const std::uint16_t* from = source + firstRow * sourceRow + column;
        std::uint16_t* to = target + (width - 1 - column) * targetRow + firstRow;
        for (int row = firstRow; row < lastRow; ++row, from += sourceRow) {
          *to++ = *from;
        }
      }
    }
  }
}

}  // namespace ferolin
