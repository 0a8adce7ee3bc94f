#include "widgets/PathDoubts.h"

#include <algorithm>
#include <new>

namespace ferolin {

namespace {

constexpr LONG FEW_PIXELS = 32;  // wide or high: larger rectangles are looked up by tiles alone

/// Bits `first` to `last` of a word.
std::uint64_t Bits(LONG first, LONG last) {
  return ~std::uint64_t{0} >> (63 - (last - first)) << first;
}

}  // namespace

PathDoubts::PathDoubts(const RECT& theArea)
    : area(theArea), wordsPerRow((area.right - area.left + WORD_BITS - 1) / WORD_BITS) {
  const LONG height = area.bottom - area.top;
  pixels.reset(new (std::nothrow) Word[WordOf(0, height)]());
  while ((std::max(area.right - area.left, height) - 1) >> tileShift >= WORD_BITS) {
    ++tileShift;
  }
}

void PathDoubts::Add(POINT pixel) {
  const LONG x = pixel.x - area.left;
  const LONG y = pixel.y - area.top;
  tiles[static_cast<std::size_t>(y >> tileShift)] |= Word{1} << (x >> tileShift);
  if (pixels != nullptr) {
    pixels[WordOf(x, y)] |= Word{1} << x % WORD_BITS;
  }
}

bool PathDoubts::MayTouch(const RECT& rect) const {
  const LONG left = std::max(rect.left, area.left) - area.left;
  const LONG right = std::min(rect.right, area.right - 1) - area.left;
  const LONG top = std::max(rect.top, area.top) - area.top;
  const LONG bottom = std::min(rect.bottom, area.bottom - 1) - area.top;
  if (left > right || top > bottom || !HasTile(left, top, right, bottom)) {
    return false;
  }
  return pixels == nullptr || right - left >= FEW_PIXELS || bottom - top >= FEW_PIXELS ||
         HasPixel(left, top, right, bottom);
}

bool PathDoubts::HasTile(LONG left, LONG top, LONG right, LONG bottom) const {
  const Word columns = Bits(left >> tileShift, right >> tileShift);
  for (LONG row = top >> tileShift; row <= bottom >> tileShift; ++row) {
    if ((tiles[static_cast<std::size_t>(row)] & columns) != 0) {
      return true;
    }
  }
  return false;
}

bool PathDoubts::HasPixel(LONG left, LONG top, LONG right, LONG bottom) const {
  for (LONG y = top; y <= bottom; ++y) {
    for (LONG x = left; x <= right; x += WORD_BITS - x % WORD_BITS) {
      const LONG first = x % WORD_BITS;
      const LONG last = std::min(WORD_BITS - 1, first + right - x);
      if ((pixels[WordOf(x, y)] & Bits(first, last)) != 0) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace ferolin
