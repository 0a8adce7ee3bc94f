#include "widgets/path/PathCells.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace ferolin {

namespace {

constexpr float FARTHEST = 20'000;  // no position has more degrees x 100 + minutes
constexpr float MOST_CELLS_ACROSS = 2048;
constexpr std::int32_t MASK = PathCells::STEPS - 1;

constexpr std::int32_t CellOf(std::int32_t step) {
  return step >> 8;
}
static_assert(CellOf(PathCells::STEPS - 1) == 0 && CellOf(PathCells::STEPS) == 1);

/// Scatters the cells of a road, which are neighbours, over the slots.
std::uint32_t HashOf(std::int32_t column, std::int32_t row) {
  const std::uint32_t hash = static_cast<std::uint32_t>(column) * 0x9E3779B1U +
                             static_cast<std::uint32_t>(row) * 0x85EBCA77U;
  return hash ^ hash >> 15;
}

/// The handheld rounds doubles only.
std::int32_t StepAt(double place) {
  return static_cast<std::int32_t>(std::floor(place));
}

/// Strips of a cell of half the size go into a larger one's; the steps are what they were in the
/// finer grid.
void Merge(const PathCells::Strips& from, std::int32_t across, std::int32_t along,
           PathCells::Strips& into) {
  for (int strip = 0; strip < PathCells::STRIPS; ++strip) {
    const PathCells::Extent extent = from.Join(strip, strip + 1);
    if (!extent.IsEmpty()) {
      into.Add(across >> 1, (along + extent.low) >> 1);
      into.Add(across >> 1, (along + extent.high) >> 1);
    }
    across += PathCells::STRIP_STEPS;
  }
}

}  // namespace

PathCells::Strips::Strips() {
  lows.fill(STEPS - 1);
  highs.fill(0);
}

void PathCells::Strips::Add(std::int32_t across, std::int32_t along) {
  const auto strip = static_cast<std::size_t>((across & MASK) / STRIP_STEPS);
  const auto step = static_cast<std::uint8_t>(along & MASK);
  lows[strip] = std::min(lows[strip], step);
  highs[strip] = std::max(highs[strip], step);
}

PathCells::Extent PathCells::Strips::Join(int from, int to) const {
  Extent extent;
  for (auto strip = static_cast<std::size_t>(from); strip < static_cast<std::size_t>(to); ++strip) {
    extent.low = std::min(extent.low, lows[strip]);
    extent.high = std::max(extent.high, highs[strip]);
  }
  return extent;
}

void PathCells::Update(const PathPoints& points) {
  if (end > points.GetEnd()) {
    Drop();
    state = State::EMPTY;
    end = 0;
  }
  if (points.GetFirst() > 0) {
    Drop();
  }
  if (state == State::EMPTY && points.GetCount() >= FEWEST_POINTS) {
    Start(points);
  }
  const int limit = std::min(points.GetEnd(), end + POINTS_AT_ONCE);
  for (; state == State::USABLE && end < limit; ++end) {
    if (HasPosition(points[end]) && !Add(points[end])) {
      Drop();
    }
  }
}

void PathCells::Start(const PathPoints& points) {
  static_assert(FARTHEST * FINEST < static_cast<float>(std::numeric_limits<std::int32_t>::max()),
                "the steps of all positions have a number");
  PathBox box;
  for (int number = points.GetFirst(); number < points.GetEnd(); ++number) {
    if (HasPosition(points[number])) {
      box.Widen(points[number].latitude, points[number].longitude);
    }
  }
  const float extent =
      std::max(box.maxLatitude - box.minLatitude, box.maxLongitude - box.minLongitude);
  stepsPerUnit = FINEST;
  while (extent * stepsPerUnit > MOST_CELLS_ACROSS * STEPS) {
    stepsPerUnit /= 2;
  }
  slots.reset(new (std::nothrow) std::uint16_t[SLOTS]());
  state = slots != nullptr ? State::USABLE : State::UNUSABLE;
}

void PathCells::Drop() {
  cells.Release();
  boxes.Release();
  slots.reset();
  state = State::UNUSABLE;
}

bool PathCells::Add(const TrackPoint& point) {
  if (!(std::fabs(point.latitude) < FARTHEST && std::fabs(point.longitude) < FARTHEST)) {
    return false;
  }
  if (cells.Get().size() == MOST_CELLS && !Coarsen()) {
    return false;
  }
  const std::int32_t x = StepAt(point.longitude * stepsPerUnit);
  const std::int32_t y = StepAt(point.latitude * stepsPerUnit);
  const std::size_t number = Find(CellOf(x), CellOf(y));
  if (number == NONE) {
    return false;
  }
  Cell& cell = cells.Get()[number];
  cell.columns.Add(x, y);
  cell.rows.Add(y, x);
  boxes.Get()[number].Widen(point.latitude, point.longitude);
  return true;
}

/// Number of the cell at this place, a new one if need be. NONE without memory for that.
std::size_t PathCells::Find(std::int32_t column, std::int32_t row) {
  std::uint32_t slot = HashOf(column, row) % SLOTS;
  while (slots[slot] != 0) {
    const std::size_t number = slots[slot] - 1U;
    const Cell& cell = cells.Get()[number];
    if (cell.column == column && cell.row == row) {
      return number;
    }
    slot = (slot + 1) % SLOTS;
  }
  if (!cells.Add({column, row, {}, {}}) || !boxes.Add({})) {
    return NONE;
  }
  slots[slot] = static_cast<std::uint16_t>(cells.Get().size());
  return cells.Get().size() - 1;
}

/// Makes the cells twice as large until there is room for as many again.
bool PathCells::Coarsen() {
  while (cells.Get().size() > MOST_CELLS / 2) {
    const std::span<const Cell> old = cells.Get();
    const std::span<const PathBox> oldBoxes = boxes.Get();
    stepsPerUnit /= 2;
    std::fill_n(slots.get(), SLOTS, 0);
    cells.Clear();
    boxes.Clear();
    // The new cells are written over old ones that were read before.
    for (std::size_t read = 0; read < old.size(); ++read) {
      const Cell fine = old[read];
      const PathBox fineBox = oldBoxes[read];
      const std::size_t number = Find(fine.column >> 1, fine.row >> 1);
      if (number == NONE) {
        return false;
      }
      Cell& cell = cells.Get()[number];
      Merge(fine.columns, fine.column * STEPS, fine.row * STEPS, cell.columns);
      Merge(fine.rows, fine.row * STEPS, fine.column * STEPS, cell.rows);
      PathBox& box = boxes.Get()[number];
      box.Widen(fineBox.minLatitude, fineBox.minLongitude);
      box.Widen(fineBox.maxLatitude, fineBox.maxLongitude);
    }
  }
  return true;
}

}  // namespace ferolin
