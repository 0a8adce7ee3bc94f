#include "gdi/Lines.h"

#include <algorithm>
#include <cstdlib>

namespace handheld::gdi {

namespace {

constexpr std::uint32_t DASH_LENGTH = 18;
constexpr std::uint32_t DASH_PERIOD = 24;

/// A line along its longer axis. Step k (0 .. length - 1) lies at major position k and, sideways,
/// at the exact place rounded to the nearest pixel. An exact half is rounded toward the start,
/// except in the four octants where Windows rounds it away.
struct Walk {
  std::int64_t length;
  std::int64_t sideways;
  bool isSteep;
  int xSign;
  int ySign;
  bool roundsHalfOn;

  Walk(POINT from, POINT to) {
    const std::int64_t dx = std::int64_t{to.x} - from.x;
    const std::int64_t dy = std::int64_t{to.y} - from.y;
    const std::int64_t width = std::llabs(dx);
    const std::int64_t height = std::llabs(dy);
    isSteep = width <= height;
    length = isSteep ? height : width;
    sideways = isSteep ? width : height;
    xSign = dx > 0 || (dx == 0 && dy <= 0) ? 1 : -1;
    ySign = dy > 0 ? 1 : -1;
    // Clockwise from the positive x axis (y down) the octants 3, 5, 6 and 8.
    roundsHalfOn = (ySign > 0 && xSign < 0 && isSteep) || (ySign < 0 && xSign < 0) ||
                   (ySign < 0 && xSign > 0 && !isSteep);
  }

  std::int64_t SidewaysAt(std::int64_t step) const {
    return (2 * step * sideways + length - (roundsHalfOn ? 0 : 1)) / (2 * length);
  }

  /// First step whose sideways place is at least `place` (above 0).
  std::int64_t FirstStepAt(std::int64_t place) const {
    // 2 * step * sideways + length - h >= 2 * length * place
    const std::int64_t needed = (2 * place - 1) * length + (roundsHalfOn ? 0 : 1);
    return (needed + 2 * sideways - 1) / (2 * sideways);
  }
};

struct Steps {
  std::int64_t begin;
  std::int64_t end;
};

/// Steps whose coordinate start + sign * place lies in [low, high).
Steps PlacesInside(std::int64_t start, int sign, std::int64_t low, std::int64_t high) {
  if (sign > 0) {
    return {low - start, high - start};
  }
  return {start - high + 1, start - low + 1};
}

/// The part of the walk that lies inside the clip.
Steps VisibleSteps(const Walk& walk, POINT from, const RECT& clip) {
  const Steps inX = PlacesInside(from.x, walk.xSign, clip.left, clip.right);
  const Steps inY = PlacesInside(from.y, walk.ySign, clip.top, clip.bottom);
  const Steps& along = walk.isSteep ? inY : inX;
  const Steps& across = walk.isSteep ? inX : inY;
  Steps steps = {std::max<std::int64_t>(along.begin, 0), std::min(along.end, walk.length)};
  if (across.end <= 0) {
    return {0, 0};
  }
  if (walk.sideways == 0) {
    return across.begin > 0 ? Steps{0, 0} : steps;
  }
  if (across.begin > 0) {
    steps.begin = std::max(steps.begin, walk.FirstStepAt(across.begin));
  }
  steps.end = std::min(steps.end, walk.FirstStepAt(across.end));
  return steps;
}

/// Calls plot(x, y, step) for every visible pixel of the line.
template <typename Plot>
void WalkLine(const Target& target, POINT from, POINT to, Plot plot) {
  const Walk walk(from, to);
  if (walk.length == 0) {
    return;
  }
  const Steps steps = VisibleSteps(walk, from, target.clip);
  if (steps.begin >= steps.end) {
    return;
  }
  std::int64_t place = walk.SidewaysAt(steps.begin);
  // Remainder of the division in SidewaysAt, kept up to date by addition.
  std::int64_t rest = 2 * steps.begin * walk.sideways + walk.length - (walk.roundsHalfOn ? 0 : 1) -
                      place * 2 * walk.length;
  for (std::int64_t step = steps.begin; step < steps.end; ++step) {
    const std::int64_t x = from.x + walk.xSign * (walk.isSteep ? place : step);
    const std::int64_t y = from.y + walk.ySign * (walk.isSteep ? step : place);
    plot(static_cast<int>(x), static_cast<int>(y), step);
    rest += 2 * walk.sideways;
    if (rest >= 2 * walk.length) {
      rest -= 2 * walk.length;
      ++place;
    }
  }
}

/// True when the pixels are the same or touch each other.
bool AreNeighbours(POINT a, POINT b) {
  return std::abs(a.x - b.x) <= 1 && std::abs(a.y - b.y) <= 1;
}

template <typename Pixel>
void DrawThrough(const Target& target, std::span<const POINT> points, Pixel pixel) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    const POINT from = points[i - 1];
    const POINT to = points[i];
    if (AreNeighbours(from, to)) {
      // Without its end the line is just its start.
      if ((from.x != to.x || from.y != to.y) && target.Contains(from.x, from.y)) {
        target.raster.GetRow<Pixel>(from.y)[from.x] = pixel;
      }
    } else if (from.y == to.y) {
      const bool isRightward = from.x < to.x;
      target.Fill(
          {isRightward ? from.x : to.x + 1, from.y, isRightward ? to.x : from.x + 1, from.y + 1},
          pixel);
    } else {
      WalkLine(target, from, to,
               [&](int x, int y, std::int64_t) { target.raster.GetRow<Pixel>(y)[x] = pixel; });
    }
  }
}

}  // namespace

void DrawThinLines(const Target& target, std::span<const POINT> points, std::uint32_t pixel) {
  if (target.raster.format == PixelFormat::RGB555) {
    DrawThrough(target, points, static_cast<std::uint16_t>(pixel));
  } else {
    DrawThrough(target, points, pixel);
  }
}

void DrawDashedLine(const Target& target, POINT from, POINT to, std::uint32_t pixel,
                    const std::uint32_t* gap, DashPosition& dashes) {
  WalkLine(target, from, to, [&](int x, int y, std::int64_t step) {
    const bool isDash = (dashes.offset + step) % DASH_PERIOD < DASH_LENGTH;
    if (isDash) {
      target.raster.Set(x, y, pixel);
    } else if (gap != nullptr) {
      target.raster.Set(x, y, *gap);
    }
  });
  dashes.GoOn(from, to);
}

void DashPosition::GoOn(POINT from, POINT to) {
  const std::int64_t length =
      std::max(std::llabs(std::int64_t{to.x} - from.x), std::llabs(std::int64_t{to.y} - from.y));
  offset = static_cast<std::uint32_t>((offset + length) % DASH_PERIOD);
}

}  // namespace handheld::gdi
