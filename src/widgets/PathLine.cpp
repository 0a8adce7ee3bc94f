#include "widgets/PathLine.h"

#include <algorithm>
#include <bit>

#include "widgets/CellPixels.h"

namespace ferolin {

namespace {

constexpr double LARGEST_CELL = 4.0;  // pixels

/// Shorter lines, in pixels, lead to the same pixel or to a neighbour.
constexpr double LONG_STEP = 0.999;

LONG Least(LONG pixel, double place) {
  return place < pixel ? static_cast<LONG>(place) : pixel;
}

}  // namespace

void PathLine::Draw() {
  if (CellsHelp()) {
    DrawWithCells();
  } else {
    DrawAllBlocks();
  }
  DrawEnd();
}

void PathLine::DrawRest() {
  DrawAllBlocks();
  DrawEnd();
}

void PathLine::DrawFrom(int number) {
  int from = number - 1;
  while (from > points.GetFirst() && !HasPosition(points[from])) {
    --from;
  }
  DrawPoints(std::max(from, points.GetFirst()), points.GetEnd());
  DrawEnd();
}

POINT PathLine::ReachFrom(POINT pixel) {
  constexpr int FINE_ENOUGH = 2;  // finer blocks would tell little more
  const RECT& area = strokes.GetArea();
  if (!index.IsUsable()) {
    return {area.right, area.bottom};
  }
  POINT reach = {area.left - 1, area.top - 1};
  DrawBlocks([&](int level, const PathIndex::Block& block) {
    const RECT rect = projection.Project(block.box);
    const bool isCrossed = rect.left < pixel.x || rect.top < pixel.y;
    if (level > FINE_ENOUGH || !isCrossed) {
      return isCrossed;
    }
    const double longest = block.step * projection.GetScale() + 1;
    if (rect.left < pixel.x) {
      reach.x = std::max(reach.x, Least(rect.right, pixel.x + longest));
    }
    if (rect.top < pixel.y) {
      reach.y = std::max(reach.y, Least(rect.bottom, pixel.y + longest));
    }
    return false;
  });
  return reach;
}

bool PathLine::CellsHelp() const {
  return index.IsUsable() && cells.Hold(points.GetEnd()) &&
         cells.GetStepLength() * PathCells::STEPS * projection.GetScale() <= LARGEST_CELL;
}

/// Whether a line of the block may lead further than to a neighbour.
bool PathLine::HasLongStep(const PathIndex::Block& block) const {
  return block.step * projection.GetScale() >= LONG_STEP;
}

/// Lights what the cells tell for sure, draws the lines that lead further than to a neighbour, and
/// asks the other points about pixels of which the cells do not know.
void PathLine::DrawWithCells() {
  GrowingArray<Doubt> doubts;
  for (std::size_t number = 0; number < cells.GetCells().size(); ++number) {
    if (!DrawCell(number, doubts)) {
      DrawAllBlocks();
      return;
    }
  }
  DrawBlocks([&](int, const PathIndex::Block& block) {
    return HasLongStep(block) && strokes.CanLight(projection.Project(block.box));
  });
  for (const Doubt& doubt : doubts.Get()) {
    if (!strokes.IsLit(doubt.pixel) && HasPointFor(doubt)) {
      strokes.Light(doubt.pixel);
    }
  }
}

/// Lights the pixels in which there are points of the cell for sure, and notes those in which there
/// may be some. False without memory for that.
bool PathLine::DrawCell(std::size_t number, GrowingArray<Doubt>& doubts) {
  const PathBox& box = cells.GetBoxes()[number];
  if (!view.Overlaps(box)) {
    return true;
  }
  const RECT rect = projection.Project(box);
  // There are points at each edge of the box.
  if (rect.right - rect.left + rect.bottom - rect.top <= 1) {
    strokes.Light({rect.left, rect.top});
    strokes.Light({rect.right, rect.bottom});
    return true;
  }
  if (!strokes.CanLight(rect)) {
    return true;
  }
  const CellPixels pixels(cells.GetCells()[number], cells.GetStepLength(), projection, rect);
  for (CellPixels::Pixels rest = pixels.GetPossible(); rest != 0; rest &= rest - 1) {
    const int bit = std::countr_zero(rest);
    const POINT pixel = {rect.left + bit % CellPixels::MOST_PIXELS,
                         rect.bottom - bit / CellPixels::MOST_PIXELS};
    if ((pixels.GetSure() >> bit & 1) != 0) {
      strokes.Light(pixel);
    } else if (strokes.IsInside(pixel) && !strokes.IsLit(pixel) &&
               !doubts.Add({pixel, pixels.RegionIn(CellPixels::Pixels{1} << bit)})) {
      return false;
    }
  }
  return true;
}

bool PathLine::HasPointFor(const Doubt& doubt) const {
  constexpr int TOP = PathIndex::LEVELS - 1;
  return HasPointInBlocks(doubt, TOP, 0, PathIndex::BlockOf(TOP, points.GetEnd() - 1));
}

bool PathLine::HasPointInBlocks(const Doubt& doubt, int level, int first, int last) const {
  for (int number = first; number <= last; ++number) {
    const PathIndex::Block& block = index.GetBlock(level, number);
    if (!doubt.region.Overlaps(block.box) || (level == 0 && HasLongStep(block))) {
      continue;
    }
    const int from = PathIndex::FirstOf(level, number);
    const int to = std::min(PathIndex::FirstOf(level, number + 1), points.GetEnd());
    if (level == 0 ? HasPointAmong(doubt, from, to)
                   : HasPointInBlocks(doubt, level - 1, PathIndex::BlockOf(level - 1, from),
                                      PathIndex::BlockOf(level - 1, to - 1))) {
      return true;
    }
  }
  return false;
}

bool PathLine::HasPointAmong(const Doubt& doubt, int from, int to) const {
  for (int number = from; number < to; ++number) {
    const TrackPoint& point = points[number];
    if (doubt.region.Contains(point.latitude, point.longitude)) {
      const POINT pixel = projection.Project(point);
      if (pixel.x == doubt.pixel.x && pixel.y == doubt.pixel.y) {
        return true;
      }
    }
  }
  return false;
}

void PathLine::DrawAllBlocks() {
  if (!index.IsUsable()) {
    DrawPoints(points.GetFirst(), points.GetEnd());
    return;
  }
  DrawBlocks([this](int, const PathIndex::Block& block) {
    return strokes.CanLight(projection.Project(block.box));
  });
}

/// Only blocks that can be seen, or lie just outside of the view, are asked for.
template <class Wanted>
void PathLine::DrawBlocks(const Wanted& isWanted) {
  constexpr int TOP = PathIndex::LEVELS - 1;
  if (points.GetCount() > 0) {
    DrawBlocks(isWanted, TOP, PathIndex::BlockOf(TOP, points.GetFirst()),
               PathIndex::BlockOf(TOP, points.GetEnd() - 1));
  }
}

/// A block that has lost its oldest points still has its old box, which holds the rest all the
/// same.
template <class Wanted>
void PathLine::DrawBlocks(const Wanted& isWanted, int level, int first, int last) {
  for (int number = first; number <= last; ++number) {
    const PathIndex::Block& block = index.GetBlock(level, number);
    if (!view.Overlaps(block.box) || !isWanted(level, block)) {
      continue;
    }
    const int from = std::max(PathIndex::FirstOf(level, number), points.GetFirst());
    const int to = std::min(PathIndex::FirstOf(level, number + 1), points.GetEnd());
    if (level == 0) {
      DrawPoints(from, to);
    } else {
      DrawBlocks(isWanted, level - 1, PathIndex::BlockOf(level - 1, from),
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

/// Lines leave out their last pixel.
void PathLine::DrawEnd() {
  for (int number = points.GetEnd() - 1; number >= points.GetFirst(); --number) {
    if (HasPosition(points[number])) {
      strokes.Light(projection.Project(points[number]));
      return;
    }
  }
}

}  // namespace ferolin
