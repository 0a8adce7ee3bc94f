#include "gdi/WidePen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "gdi/Ellipses.h"

namespace handheld::gdi {

namespace {

/// Rounded to the nearest pixel.
LONG Nearest(double value) {
  return static_cast<LONG>(std::lround(value));
}

/// A side of a figure, walked down row by row without a division: first pixel column on or right of
/// it.
class Edge {
 public:
  /// `y` is the first row; the side from `upper` to `lower` crosses it.
  Edge(POINT upper, POINT lower, std::int64_t y) : height(std::int64_t{lower.y} - upper.y) {
    const std::int64_t run = std::int64_t{upper.x} - lower.x;
    // Distances to the left are rounded down, so columns are rounded up.
    const std::int64_t distance = (y - upper.y) * run;
    const std::int64_t steps = FloorDivide(distance, height);
    x = upper.x - steps;
    rest = distance - steps * height;
    step = FloorDivide(run, height);
    stepRest = run - step * height;
  }

  std::int64_t GetX() const { return x; }

  /// Number of rows from here on with the same column; 1 where counting would not pay.
  std::int64_t CountRowsAlike() const {
    constexpr std::int64_t MANY = 8;
    if (step != 0 || stepRest * MANY > height) {
      return 1;
    }
    return stepRest == 0 ? height : (height - rest + stepRest - 1) / stepRest;
  }

  /// `rows` is 1, or at most CountRowsAlike().
  void GoDown(std::int64_t rows) {
    x -= step * rows;
    rest += stepRest * rows;
    if (rest >= height) {
      rest -= height;
      --x;
    }
  }

 private:
  static std::int64_t FloorDivide(std::int64_t dividend, std::int64_t divisor) {
    return dividend / divisor - (dividend % divisor < 0 ? 1 : 0);
  }

  std::int64_t height;
  std::int64_t x;
  std::int64_t rest;
  std::int64_t step;
  std::int64_t stepRest;
};

/// Fills the rows from `first` up to `last` between two sides. A chart's lines have few pixels in a
/// row but many rows, so rows that are alike are filled together.
void FillBetween(const Target& target, Edge one, Edge other, LONG first, LONG last,
                 std::uint32_t pixel) {
  for (std::int64_t y = first; y < last;) {
    const std::int64_t left =
        std::max<std::int64_t>(std::min(one.GetX(), other.GetX()), target.clip.left);
    const std::int64_t right =
        std::min<std::int64_t>(std::max(one.GetX(), other.GetX()), target.clip.right);
    const std::int64_t rows = std::min({one.CountRowsAlike(), other.CountRowsAlike(), last - y});
    if (left < right) {
      target.raster.Fill({static_cast<LONG>(left), static_cast<LONG>(y), static_cast<LONG>(right),
                          static_cast<LONG>(y + rows)},
                         pixel);
    }
    one.GoDown(rows);
    other.GoDown(rows);
    y += rows;
  }
}

/// Fills a convex four-sided figure: pixels whose upper left corner lies inside; left and top sides
/// belong to it, right and bottom sides do not.
void FillQuad(const Target& target, const std::array<POINT, 4>& corners, std::uint32_t pixel) {
  std::array<LONG, 4> levels;
  std::ranges::transform(corners, levels.begin(), &POINT::y);
  std::ranges::sort(levels);
  // Between two neighbouring levels the figure has the same two sides all the way.
  for (std::size_t level = 1; level < levels.size(); ++level) {
    const LONG first = std::max(levels[level - 1], target.clip.top);
    const LONG last = std::min(levels[level], target.clip.bottom);
    if (first >= last) {
      continue;
    }
    std::array<std::optional<Edge>, 2> sides;
    std::size_t found = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const auto [upper, lower] = std::minmax(corners[i], corners[(i + 1) % corners.size()],
                                              [](POINT a, POINT b) { return a.y < b.y; });
      if (upper.y <= first && first < lower.y && found < sides.size()) {
        sides[found++].emplace(upper, lower, first);
      }
    }
    if (found == sides.size()) {
      FillBetween(target, *sides[0], *sides[1], first, last, pixel);
    }
  }
}

bool IsSame(POINT a, POINT b) {
  return a.x == b.x && a.y == b.y;
}

}  // namespace

WidePen::WidePen(int penWidth) : width(penWidth), disc(EllipseInsets(penWidth, penWidth)) {}

void WidePen::DrawDisc(const Target& target, POINT center, std::uint32_t pixel) const {
  const LONG left = center.x - width / 2;
  const LONG top = center.y - width / 2;
  if (left >= target.clip.right || left + width <= target.clip.left || top >= target.clip.bottom ||
      top + width <= target.clip.top) {
    return;
  }
  for (int row = 0; row < width; ++row) {
    const int inset = disc[static_cast<std::size_t>(row)];
    target.Fill({left + inset, top + row, left + width - inset, top + row + 1}, pixel);
  }
}

void WidePen::DrawSegment(const Target& target, POINT from, POINT to, std::uint32_t pixel) const {
  const double dx = static_cast<double>(to.x) - from.x;
  const double dy = static_cast<double>(to.y) - from.y;
  if (dx == 0 && dy == 0) {
    return;
  }
  if (dy == 0) {
    const LONG top = from.y - width / 2;
    target.Fill({std::min(from.x, to.x), top, std::max(from.x, to.x), top + width}, pixel);
    return;
  }
  if (dx == 0) {
    const LONG left = from.x - width / 2;
    target.Fill({left, std::min(from.y, to.y), left + width, std::max(from.y, to.y)}, pixel);
    return;
  }
  // The pen's width laid across the line, as extents in x and y. An odd pixel goes to the side that
  // lies to the right of a line running down, which keeps the line's two sides a whole width apart.
  const double length = std::hypot(dx, dy);
  const double across = width * std::abs(dy) / length;
  const double along = width * std::abs(dx) / length;
  POINT small = {Nearest(across / 2), Nearest(along / 2)};
  POINT large = {Nearest((across + 1) / 2), Nearest((along + 1) / 2)};
  if (dx < 0) {
    small.y = -small.y;
    large.y = -large.y;
  }
  if (dy < 0) {
    std::swap(small, large);
    small.x = -small.x;
    large.x = -large.x;
  }
  FillQuad(target,
           {POINT{from.x - small.x, from.y + small.y}, POINT{from.x + large.x, from.y - large.y},
            POINT{to.x + large.x, to.y - large.y}, POINT{to.x - small.x, to.y + small.y}},
           pixel);
}

void WidePen::Draw(const Target& target, std::span<const POINT> points, std::uint32_t pixel) const {
  DrawDisc(target, points.front(), pixel);
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (i + 1 < points.size() && IsSame(points[i - 1], points[i])) {
      continue;
    }
    DrawSegment(target, points[i - 1], points[i], pixel);
    DrawDisc(target, points[i], pixel);
  }
}

void WidePen::DrawClosed(const Target& target, std::span<const POINT> points,
                         std::uint32_t pixel) const {
  Draw(target, points, pixel);
  DrawSegment(target, points.back(), points.front(), pixel);
}

}  // namespace handheld::gdi
