#include "widgets/PathLine.h"

#include <algorithm>

namespace ferolin {

void PathLine::Draw() {
  if (!index.IsUsable()) {
    DrawPoints(points.GetFirst(), points.GetEnd());
  } else if (points.GetCount() > 0) {
    constexpr int TOP = PathIndex::LEVELS - 1;
    DrawBlocks(TOP, PathIndex::BlockOf(TOP, points.GetFirst()),
               PathIndex::BlockOf(TOP, points.GetEnd() - 1));
  }
}

void PathLine::DrawFrom(int number) {
  int from = number - 1;
  while (from > points.GetFirst() && !HasPosition(points[from])) {
    --from;
  }
  DrawPoints(std::max(from, points.GetFirst()), points.GetEnd());
}

/// A block that has lost its oldest points still has its old box, which holds the rest all the
/// same.
void PathLine::DrawBlocks(int level, int first, int last) {
  for (int block = first; block <= last; ++block) {
    const PathBox& box = index.GetBox(level, block);
    if (box.IsEmpty() || !strokes.CanLight(projection.Project(box))) {
      continue;
    }
    const int from = std::max(PathIndex::FirstOf(level, block), points.GetFirst());
    const int to = std::min(PathIndex::FirstOf(level, block + 1), points.GetEnd());
    if (level == 0) {
      DrawPoints(from, to);
    } else {
      DrawBlocks(level - 1, PathIndex::BlockOf(level - 1, from),
                 PathIndex::BlockOf(level - 1, to - 1));
    }
  }
}

/// The lines that begin at points from `from` up to, but not including, `to`.
void PathLine::DrawPoints(int from, int to) {
  bool hasStart = false;
  POINT start = {};
  for (int number = from; number < points.GetEnd(); ++number) {
    const TrackPoint& point = points[number];
    if (!HasPosition(point)) {
      continue;
    }
    if (number >= to && !hasStart) {
      return;
    }
    const POINT end = projection.Project(point);
    if (hasStart) {
      strokes.Draw(start, end);
    }
    if (number >= to) {
      return;
    }
    start = end;
    hasStart = true;
  }
}

}  // namespace ferolin
