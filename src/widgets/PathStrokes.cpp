#include "widgets/PathStrokes.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace ferolin {

namespace {

bool AreEqual(POINT a, POINT b) {
  return a.x == b.x && a.y == b.y;
}

RECT Span(POINT a, POINT b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

bool AreNeighbours(const RECT& span) {
  return span.right - span.left <= 1 && span.bottom - span.top <= 1;
}

}  // namespace

void PathStrokes::RememberPixels() {
  const LONG count = (area.right - area.left) * (area.bottom - area.top);
  lit.reset(new (std::nothrow) std::uint8_t[static_cast<std::size_t>(count)]());
}

bool PathStrokes::IsLit(const RECT& rect) const {
  const LONG width = rect.right - rect.left + 1;
  const LONG height = rect.bottom - rect.top + 1;
  if (lit == nullptr || width > FEW_PIXELS || height > FEW_PIXELS || width * height > FEW_PIXELS) {
    return false;
  }
  for (LONG y = std::max(rect.top, area.top); y <= std::min(rect.bottom, area.bottom - 1); ++y) {
    for (LONG x = std::max(rect.left, area.left); x <= std::min(rect.right, area.right - 1); ++x) {
      if (*LitAt(x, y) == 0) {
        return false;
      }
    }
  }
  return true;
}

void PathStrokes::DrawLine(POINT from, POINT to) {
  const RECT span = Span(from, to);
  if (IsOutside(span)) {
    return;
  }
  if (lit != nullptr && IsInside(from)) {
    std::uint8_t& isLit = *LitAt(from.x, from.y);
    if (isLit != 0 && AreNeighbours(span)) {
      return;
    }
    isLit = 1;
  }
  const POINT start = {from.x - area.left, from.y - area.top};
  if (runLength == 0 || runLength == RUN_LENGTH ||
      !AreEqual(run[static_cast<std::size_t>(runLength - 1)], start)) {
    Flush();
    run[0] = start;
    runLength = 1;
  }
  run[static_cast<std::size_t>(runLength++)] = {to.x - area.left, to.y - area.top};
}

void PathStrokes::Flush() {
  if (runLength > 1) {
    Polyline(dc, run.data(), runLength);
  }
  runLength = 0;
}

}  // namespace ferolin
