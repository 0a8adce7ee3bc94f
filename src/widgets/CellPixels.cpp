#include "widgets/CellPixels.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <span>

namespace ferolin {

namespace {

/// How far apart, in pixels, a position and the edge of its pixel may seem by the rounding of
/// numbers, and more than that.
constexpr double PIXEL_SLACK = 1e-5;
constexpr double STEP_SLACK = 1e-3;
constexpr double STEPS = PathCells::STEPS;

}  // namespace

CellPixels::CellPixels(const PathCells::Cell& cell, double stepLength,
                       const PathProjection& projection, const RECT& rect) {
  const double slack = STEP_SLACK + PIXEL_SLACK / (projection.GetScale() * stepLength);
  const double west = static_cast<double>(cell.column) * PathCells::STEPS;
  const double south = static_cast<double>(cell.row) * PathCells::STEPS;
  Side eastward(Side::EASTWARD);
  for (LONG x = rect.left + 1; x <= rect.right; ++x) {
    eastward.AddEdge(projection.LongitudeOfEdge(x) / stepLength - west, slack);
  }
  Side northward(Side::NORTHWARD);
  for (LONG y = rect.bottom; y > rect.top; --y) {
    northward.AddEdge(projection.LatitudeOfEdge(y) / stepLength - south, slack);
  }
  const Sight columns(cell.columns, eastward, northward);
  const Sight rows(cell.rows, northward, eastward);
  possible = columns.GetPossible() & rows.GetPossible();
  sure = columns.GetSure(possible) | rows.GetSure(possible);
}

CellPixels::Sight::Sight(const std::array<PathCells::Extent, PathCells::STRIPS>& strips,
                         const Side& across, const Side& theAlong)
    : along(theAlong) {
  across.ForStrips([this, &strips](int from, int to, Pixels pixels) {
    PathCells::Extent joined;
    for (int strip = from; strip < to; ++strip) {
      const PathCells::Extent& extent = strips[static_cast<std::size_t>(strip)];
      joined.low = std::min(joined.low, extent.low);
      joined.high = std::max(joined.high, extent.high);
    }
    if (!joined.IsEmpty()) {
      bands[count++] = {joined, pixels};
    }
  });
}

/// All between the ends of the strips.
CellPixels::Pixels CellPixels::Sight::GetPossible() const {
  Pixels pixels = 0;
  for (const Band& band : std::span(bands).first(count)) {
    pixels |= band.pixels & along.PixelsOf(band.extent.low, band.extent.high);
  }
  return pixels;
}

/// The ends of the strips, as far as but one pixel is possible there.
CellPixels::Pixels CellPixels::Sight::GetSure(Pixels possible) const {
  Pixels pixels = 0;
  for (const Band& band : std::span(bands).first(count)) {
    for (const int end : {band.extent.low, band.extent.high}) {
      const Pixels ends = band.pixels & along.PixelsOf(end, end) & possible;
      pixels |= std::has_single_bit(ends) ? ends : 0;
    }
  }
  return pixels;
}

void CellPixels::Side::AddEdge(double step, double slack) {
  edges[static_cast<std::size_t>(count++)] = {
      static_cast<int>(std::clamp(std::floor(step - slack), 0.0, STEPS)),
      static_cast<int>(std::clamp(std::ceil(step + slack), 0.0, STEPS))};
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
    const int cut = edge.before / PathCells::STRIP_STEPS;
    const int whole = (edge.after + PathCells::STRIP_STEPS - 1) / PathCells::STRIP_STEPS;
    take(strip, cut, Span(pixel, pixel));
    take(cut, whole, Span(pixel, pixel + 1));
    strip = whole;
  }
  take(strip, PathCells::STRIPS, Span(count, count));
}

CellPixels::Pixels CellPixels::Side::Span(int low, int high) const {
  if (direction == EASTWARD) {
    constexpr Pixels COLUMN = 0x0101010101010101;
    return ((2U << high) - (1U << low)) * COLUMN;
  }
  return ~Pixels{0} >> (MOST_PIXELS - 1 - (high - low)) * MOST_PIXELS << low * MOST_PIXELS;
}

}  // namespace ferolin
