#include "widgets/path/CellPixels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <span>

namespace ferolin {

namespace {

/// How far apart, in pixels, a position and the edge of its pixel may seem by the rounding of
/// numbers, and more than that.
constexpr double PIXEL_SLACK = 1e-5;
constexpr double STEP_SLACK = 1e-3;
constexpr double STEPS = PathCells::STEPS;

/// How many steps positions in a column or row of cells lie apart, at multiples of that: floats
/// become coarser away from 0. Up to those of a strip; 0: less than one.
int GrainOf(std::int32_t cellNumber) {
  constexpr int FLOAT_BITS = std::numeric_limits<float>::digits;
  const std::int32_t nearest = std::min(std::abs(cellNumber), std::abs(cellNumber + 1));
  const int bits = std::bit_width(static_cast<std::uint32_t>(nearest) * PathCells::STEPS);
  return bits < FLOAT_BITS ? 0 : std::min(1 << (bits - FLOAT_BITS), PathCells::STRIP_STEPS);
}

/// The step of a cell that a place lies in; the nearest one if it lies in none.
int StepAt(double place) {
  return static_cast<int>(std::clamp(place, 0.0, STEPS));
}

/// The first step of a cell that begins there or further on.
int StepFrom(double place) {
  const int step = StepAt(place);
  return step < place && step < PathCells::STEPS ? step + 1 : step;
}

}  // namespace

CellPixels::CellPixels(const PathCells::Cell& theCell, double theStepLength,
                       const PathProjection& projection, const RECT& rect)
    : cell(theCell),
      stepLength(theStepLength),
      eastward(Side::EASTWARD, cell.column),
      northward(Side::NORTHWARD, cell.row) {
  const double stepsPerUnit = 1 / stepLength;
  const double slack = STEP_SLACK + PIXEL_SLACK * projection.GetPixelSize() * stepsPerUnit;
  const double west = static_cast<double>(cell.column) * PathCells::STEPS;
  const double south = static_cast<double>(cell.row) * PathCells::STEPS;
  for (LONG x = rect.left + 1; x <= rect.right; ++x) {
    eastward.AddEdge(projection.LongitudeOfEdge(x) * stepsPerUnit - west, slack);
  }
  for (LONG y = rect.bottom; y > rect.top; --y) {
    northward.AddEdge(projection.LatitudeOfEdge(y) * stepsPerUnit - south, slack);
  }
  // Most often the rows tell all.
  rows.Take(cell.rows, northward);
  possible = rows.GetPossible();
  sure = rows.GetSure(possible);
  if (sure != possible) {
    columns.Take(cell.columns, eastward);
    possible &= columns.GetPossible();
    sure = columns.GetSure(possible) | rows.GetSure(possible);
  }
}

/// Numbers that are rounded to floats do not pass any that is one, as those of all positions are.
PathBox CellPixels::RegionIn(Pixels pixel) const {
  const auto edge = [this](std::int32_t cellNumber, int strip) {
    return static_cast<float>(
        (static_cast<double>(cellNumber) * PathCells::STEPS + strip * PathCells::STRIP_STEPS) *
        stepLength);
  };
  const StripRange across = columns.StripsTo(pixel);
  const StripRange up = rows.StripsTo(pixel);
  PathBox box;
  box.minLongitude = edge(cell.column, across.from);
  box.maxLongitude = edge(cell.column, across.to);
  box.minLatitude = edge(cell.row, up.from);
  box.maxLatitude = edge(cell.row, up.to);
  return box;
}

void CellPixels::Sight::Take(const PathCells::Strips& strips, const Side& across) {
  across.ForStrips([this, &strips](StripRange range, Pixels pixels) {
    const PathCells::Extent extent = strips.Join(range.from, range.to);
    if (!extent.IsEmpty()) {
      bands[count++] = {range, extent.low, extent.high, pixels};
    }
  });
}

/// All between the ends of the strips.
CellPixels::Pixels CellPixels::Sight::GetPossible() const {
  Pixels pixels = 0;
  for (const Band& band : std::span(bands).first(count)) {
    pixels |= Reach(band);
  }
  return pixels;
}

/// The ends of the strips, as far as but one pixel is possible there.
CellPixels::Pixels CellPixels::Sight::GetSure(Pixels possible) const {
  Pixels pixels = 0;
  for (const Band& band : std::span(bands).first(count)) {
    for (const int end : {band.low, band.high}) {
      const Pixels ends = band.pixels & along.PixelsOf(end, end) & possible;
      pixels |= (ends & (ends - 1)) == 0 ? ends : 0;
    }
  }
  return pixels;
}

CellPixels::StripRange CellPixels::Sight::StripsTo(Pixels pixel) const {
  StripRange strips = {PathCells::STRIPS, 0};
  for (const Band& band : std::span(bands).first(count)) {
    if ((Reach(band) & pixel) != 0) {
      strips.from = std::min(strips.from, band.strips.from);
      strips.to = std::max(strips.to, band.strips.to);
    }
  }
  return strips;
}

CellPixels::Side::Side(Direction theDirection, std::int32_t cellNumber)
    : direction(theDirection), grain(GrainOf(cellNumber)) {}

/// Positions with a grain lie where their step begins, others anywhere in it.
void CellPixels::Side::AddEdge(double step, double slack) {
  edges[static_cast<std::size_t>(count++)] = {
      grain > 0 ? StepFrom(step - slack) : StepAt(step - slack), StepFrom(step + slack)};
}

CellPixels::Pixels CellPixels::Side::PixelsOf(int first, int last) const {
  int low = 0;
  int high = 0;
  for (int edge = 0; edge < count; ++edge) {
    low += first >= edges[static_cast<std::size_t>(edge)].after ? 1 : 0;
    high += last >= edges[static_cast<std::size_t>(edge)].before ? 1 : 0;
  }
  return Span(low, high);
}

/// Edges are more than a strip apart.
template <class Take>
void CellPixels::Side::ForStrips(Take take) const {
  int strip = 0;
  for (int pixel = 0; pixel < count; ++pixel) {
    const Edge& edge = edges[static_cast<std::size_t>(pixel)];
    // At the last steps of a strip, short of the grain, there is nothing.
    const int cut = (edge.before + std::max(grain - 1, 0)) / PathCells::STRIP_STEPS;
    const int whole = (edge.after + PathCells::STRIP_STEPS - 1) / PathCells::STRIP_STEPS;
    take({strip, cut}, Span(pixel, pixel));
    take({cut, whole}, Span(pixel, pixel + 1));
    strip = whole;
  }
  take({strip, PathCells::STRIPS}, Span(count, count));
}

CellPixels::Pixels CellPixels::Side::Span(int low, int high) const {
  if (direction == EASTWARD) {
    constexpr Pixels COLUMN = 0x0101010101010101;
    return ((2U << high) - (1U << low)) * COLUMN;
  }
  return ~Pixels{0} >> (MOST_PIXELS - 1 - (high - low)) * MOST_PIXELS << low * MOST_PIXELS;
}

}  // namespace ferolin
