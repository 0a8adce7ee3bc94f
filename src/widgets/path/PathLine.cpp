#include "widgets/path/PathLine.h"

#include <algorithm>
#include <bit>

#include "widgets/path/CellPixels.h"

namespace ferolin {

namespace {

// In pixels.
constexpr double LARGEST_CELL = 4;
constexpr double LARGEST_MEAN_STEP = 0.5;

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

void PathLine::DrawRest(const RECT& kept) {
  strokes.Keep(kept);
  const PathBox done = projection.BoxInside(kept);
  DrawBlocks([this, &done](int level, const PathIndex::Block& block) {
    if (done.Contains(block.box) || !strokes.CanLight(projection.Project(block.box))) {
      return Part::NONE;
    }
    return level > 0 ? Part::SOME : Part::ALL;
  });
  DrawEnd();
}

void PathLine::DrawFrom(int number) {
  DrawLines(index.GetPositions(std::max(number - 1, index.GetFirst()), index.GetEnd()));
  DrawEnd();
}

POINT PathLine::ReachFrom(POINT pixel) {
  constexpr int FINE_ENOUGH = 2;  // finer blocks would tell little more
  const RECT& area = strokes.GetArea();
  POINT reach = {area.left - 2, area.top - 2};  // nowhere near what is seen
  DrawBlocks([&](int level, const PathIndex::Block& block) {
    const RECT rect = projection.Project(block.box);
    const bool isCrossed = rect.left < pixel.x || rect.top < pixel.y;
    if (isCrossed && level > FINE_ENOUGH) {
      return Part::SOME;
    }
    const double longest = block.step * projection.GetScale() + 1;
    if (rect.left < pixel.x) {
      reach.x = std::max(reach.x, Least(rect.right, pixel.x + longest));
    }
    if (rect.top < pixel.y) {
      reach.y = std::max(reach.y, Least(rect.bottom, pixel.y + longest));
    }
    return Part::NONE;
  });
  return reach;
}

/// Small cells do, as long as most lines are short: the others are drawn all the same.
bool PathLine::CellsHelp() const {
  return cells.Hold(index.GetEnd()) &&
         cells.GetStepLength() * PathCells::STEPS * projection.GetScale() <= LARGEST_CELL &&
         index.GetMeanStep() * projection.GetScale() <= LARGEST_MEAN_STEP;
}

/// Whether the points of a block lie about a pixel apart or more, so that among smaller blocks
/// there is hardly one to pass over.
bool PathLine::LeadsOn(int level, const PathIndex::Block& block) const {
  const PathBox& box = block.box;
  return (static_cast<double>(box.maxLatitude) - box.minLatitude + box.maxLongitude -
          box.minLongitude) *
             projection.GetScale() >=
         PathIndex::FirstOf(level, 1);
}

/// Draws the lines that lead further than to a neighbour, lights what the cells tell for sure, and
/// asks the other points about pixels of which the cells do not know.
void PathLine::DrawWithCells() {
  DrawBlocks([this](int level, const PathIndex::Block& block) {
    if (!HasLongStep(block)) {
      return Part::NONE;
    }
    return level > 0 ? Part::SOME : Part::ALL;
  });
  GrowingArray<Doubt> doubts;
  for (std::size_t number = 0; number < cells.GetCells().size(); ++number) {
    if (!DrawCell(number, doubts)) {
      DrawAllBlocks();
      return;
    }
  }
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
  return HasPointInBlocks(doubt, TOP, PathIndex::BlockOf(TOP, index.GetFirst()),
                          PathIndex::BlockOf(TOP, index.GetEnd() - 1));
}

bool PathLine::HasPointInBlocks(const Doubt& doubt, int level, int first, int last) const {
  for (int number = first; number <= last; ++number) {
    const PathIndex::Block& block = index.GetBlock(level, number);
    if (!doubt.region.Overlaps(block.box) || (level == 0 && HasLongStep(block))) {
      continue;
    }
    const int from = std::max(PathIndex::FirstOf(level, number), index.GetFirst());
    const int to = std::min(PathIndex::FirstOf(level, number + 1), index.GetEnd());
    if (level == 0 ? HasPointAmong(doubt, from, to)
                   : HasPointInBlocks(doubt, level - 1, PathIndex::BlockOf(level - 1, from),
                                      PathIndex::BlockOf(level - 1, to - 1))) {
      return true;
    }
  }
  return false;
}

bool PathLine::HasPointAmong(const Doubt& doubt, int from, int to) const {
  for (const auto [latitude, longitude] : index.GetPositions(from, to)) {
    if (doubt.region.Contains(latitude, longitude)) {
      const POINT pixel = projection.Project(latitude, longitude);
      if (pixel.x == doubt.pixel.x && pixel.y == doubt.pixel.y) {
        return true;
      }
    }
  }
  return false;
}

void PathLine::DrawAllBlocks() {
  DrawBlocks([this](int level, const PathIndex::Block& block) {
    if (!strokes.CanLight(projection.Project(block.box))) {
      return Part::NONE;
    }
    return level == 0 || LeadsOn(level, block) ? Part::ALL : Part::SOME;
  });
}

/// Only blocks that can be seen, or lie just outside of the view, are to be chosen from. `choose`
/// is told the level and the block. Of larger blocks that are not all seen only some is drawn.
template <class Choose>
void PathLine::DrawBlocks(const Choose& choose) {
  constexpr int TOP = PathIndex::LEVELS - 1;
  DrawBlocks(choose, TOP, PathIndex::BlockOf(TOP, index.GetFirst()),
             PathIndex::BlockOf(TOP, index.GetEnd() - 1), false);
}

/// A block that has lost its oldest points still has its old box, which holds the rest all the
/// same.
template <class Choose>
void PathLine::DrawBlocks(const Choose& choose, int level, int first, int last, bool areInside) {
  for (int number = first; number <= last; ++number) {
    const PathIndex::Block& block = index.GetBlock(level, number);
    if (!areInside && !view.Overlaps(block.box)) {
      continue;
    }
    const Part part = choose(level, block);
    if (part == Part::NONE) {
      continue;
    }
    const bool isInside = areInside || inside.Contains(block.box);
    const int from = std::max(PathIndex::FirstOf(level, number), index.GetFirst());
    const int to = std::min(PathIndex::FirstOf(level, number + 1), index.GetEnd());
    if (part == Part::SOME || (level > 0 && !isInside)) {
      DrawBlocks(choose, level - 1, PathIndex::BlockOf(level - 1, from),
                 PathIndex::BlockOf(level - 1, to - 1), isInside);
      continue;
    }
    const auto through = index.GetPositions(from, std::min(to + 1, index.GetEnd()));
    if (isInside && block.step <= shortStep) {
      DrawShortLinesInside(through);
    } else {
      DrawLines(through);
    }
  }
}

void PathLine::DrawLines(std::span<const PathIndex::Position> through) {
  POINT start = projection.Project(through.front().latitude, through.front().longitude);
  for (const auto [latitude, longitude] : through.subspan(1)) {
    const POINT end = projection.Project(latitude, longitude);
    strokes.Draw(start, end);
    start = end;
  }
}

/// The same, faster, for lines that the patterns cover and that stay inside the strokes' area.
void PathLine::DrawShortLinesInside(std::span<const PathIndex::Position> through) {
  POINT start = projection.ProjectNear(through.front().latitude, through.front().longitude);
  for (const auto [latitude, longitude] : through.subspan(1)) {
    const POINT end = projection.ProjectNear(latitude, longitude);
    strokes.DrawInside(start, end);
    start = end;
  }
}

/// Lines leave out their last pixel.
void PathLine::DrawEnd() {
  const PathIndex::Position last = index.GetPositions(index.GetEnd() - 1, index.GetEnd()).front();
  strokes.Light(projection.Project(last.latitude, last.longitude));
}

}  // namespace ferolin
