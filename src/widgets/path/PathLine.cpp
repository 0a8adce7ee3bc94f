#include "widgets/path/PathLine.h"

#include <algorithm>

namespace ferolin {

/// A line leaves out its last pixel, so another one leads on from the newest point.
void PathLine::Draw(const PathPoints& points, int number, const PathIndex& index) {
  const int newest = points.GetEnd() - 1;
  while (number < newest) {
    const RECT rect = projection.Project(index.GetBox(number));
    const int last = std::min(PathIndex::EndOfBlock(number), newest);
    if (!AreOnOneSide({rect.left, rect.top}, {rect.right, rect.bottom})) {
      DrawThrough(points[number], points[last], IsInside(rect));
    }
    number = last;
  }
  run[0] = projection.Project(points[newest]);
  run[1] = {run[0].x + 1, run[0].y};
  DrawRun(&run[2]);
}

bool PathLine::IsInside(const RECT& rect) const {
  return rect.left >= area.left && rect.right < area.right && rect.top >= area.top &&
         rect.bottom < area.bottom;
}

/// True when nothing in the rectangle that two pixels span can lie in the area.
bool PathLine::AreOnOneSide(POINT a, POINT b) const {
  return (a.x < area.left && b.x < area.left) || (a.x >= area.right && b.x >= area.right) ||
         (a.y < area.top && b.y < area.top) || (a.y >= area.bottom && b.y >= area.bottom);
}

/// A point in the pixel of the one before is overwritten by the next one. There is no branch for
/// that: processors would guess every other one wrong.
void PathLine::DrawThrough(const TrackPoint& first, const TrackPoint& last, bool areInside) {
  POINT before = projection.Project(first);
  POINT* end = run.data();
  *end++ = before;
  for (const TrackPoint* next = &first + 1; next <= &last; ++next) {
    const POINT point = areInside ? projection.ProjectNear(*next) : projection.Project(*next);
    if (!areInside && AreOnOneSide(before, point)) {
      DrawRun(end);
      end = run.data();
      *end++ = point;
    } else {
      *end = point;
      end += (point.x != before.x) | (point.y != before.y);
    }
    before = point;
  }
  DrawRun(end);
}

void PathLine::DrawRun(const POINT* end) {
  const auto length = static_cast<int>(end - run.data());
  if (length > 1) {
    Polyline(dc, run.data(), length);
  }
}

}  // namespace ferolin
