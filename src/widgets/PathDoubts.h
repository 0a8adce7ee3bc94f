#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace ferolin {

/// Pixels of an area of which it is not known whether the path lights them; a few among many. Tells
/// fast of a rectangle that there is none of them in it.
class PathDoubts {
 public:
  explicit PathDoubts(const RECT& theArea);

  /// The pixel is one of the area's.
  void Add(POINT pixel);

  /// Whether there is such a pixel in a rectangle (all edges included). May be true when there is
  /// none, above all of a large rectangle, and is when there was no memory for the pixels.
  bool MayTouch(const RECT& rect) const;

 private:
  using Word = std::uint64_t;
  static constexpr LONG WORD_BITS = 64;

  std::size_t WordOf(LONG x, LONG y) const {
    return static_cast<std::size_t>(y * wordsPerRow + x / WORD_BITS);
  }
  bool HasTile(LONG left, LONG top, LONG right, LONG bottom) const;
  bool HasPixel(LONG left, LONG top, LONG right, LONG bottom) const;

  RECT area;
  LONG wordsPerRow;
  std::unique_ptr<Word[]> pixels;          ///< a bit for each
  int tileShift = 0;                       ///< width and height of a tile, as a power of 2
  std::array<Word, WORD_BITS> tiles = {};  ///< a bit for each that has such pixels
};

}  // namespace ferolin
