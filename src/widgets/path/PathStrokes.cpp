#include "widgets/path/PathStrokes.h"

namespace ferolin {

namespace {

bool AreEqual(POINT a, POINT b) {
  return a.x == b.x && a.y == b.y;
}

RECT Span(POINT a, POINT b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

}  // namespace

bool PathStrokes::AreAllLit(const RECT& rect) const {
  for (LONG y = std::max(rect.top, area.top); y <= std::min(rect.bottom, area.bottom - 1); ++y) {
    for (LONG x = std::max(rect.left, area.left); x <= std::min(rect.right, area.right - 1); ++x) {
      if (!IsLit(POINT{x, y})) {
        return false;
      }
    }
  }
  return true;
}

void PathStrokes::DrawFar(POINT from, POINT to) {
  const RECT span = Span(from, to);
  if (!CanShow(span) || IsKept(span)) {
    return;
  }
  if (LinePatterns::Cover(to.x - from.x, to.y - from.y)) {
    DrawShortLine(from, to);
  } else {
    DrawLine(from, to);
  }
}

void PathStrokes::DrawShortLine(POINT from, POINT to) {
  for (const LinePatterns::Pixel pixel : patterns.PixelsTo(to.x - from.x, to.y - from.y)) {
    Light({from.x + pixel.right, from.y + pixel.down});
  }
}

void PathStrokes::DrawShortLineInside(POINT from, POINT to) {
  for (const LinePatterns::Pixel pixel : patterns.PixelsTo(to.x - from.x, to.y - from.y)) {
    pixels.Light({from.x + pixel.right, from.y + pixel.down});
  }
}

void PathStrokes::DrawLine(POINT from, POINT to) {
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
    Polyline(picture.GetDC(), run.data(), runLength);
  }
  runLength = 0;
}

}  // namespace ferolin
