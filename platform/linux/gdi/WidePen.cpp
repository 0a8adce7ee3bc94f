#include "WidePen.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "Ellipses.h"

namespace handheld::gdi {

namespace {

/// Rounded to the nearest pixel.
LONG Nearest(double value) {
  return static_cast<LONG>(value + 0.5);
}

std::int64_t CeilDivide(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  return quotient + (dividend % divisor > 0 ? 1 : 0);
}

/// Where the side from `upper` to `lower` crosses row y: the first pixel column on or right of it.
std::int64_t CrossingAt(POINT upper, POINT lower, std::int64_t y) {
  return upper.x + CeilDivide((y - upper.y) * (std::int64_t{lower.x} - upper.x),
                              std::int64_t{lower.y} - upper.y);
}

/// Fills a convex four-sided figure: pixels whose upper left corner lies inside; left and top sides belong to it, right
/// and bottom sides do not.
void FillQuad(const Target& target, const std::array<POINT, 4>& corners, std::uint32_t pixel) {
  const auto [top, bottom] = std::minmax_element(corners.begin(), corners.end(),
                                                 [](POINT a, POINT b) { return a.y < b.y; });
  const LONG first = std::max(top->y, target.clip.top);
  const LONG last = std::min(bottom->y, target.clip.bottom);
  for (LONG y = first; y < last; ++y) {
    std::int64_t left = INT64_MAX;
    std::int64_t right = INT64_MIN;
    for (std::size_t i = 0; i < corners.size(); ++i) {
      POINT upper = corners[i];
      POINT lower = corners[(i + 1) % corners.size()];
      if (upper.y > lower.y)
        std::swap(upper, lower);
      if (y < upper.y || y >= lower.y)
        continue;
      const std::int64_t x = CrossingAt(upper, lower, y);
      left = std::min(left, x);
      right = std::max(right, x);
    }
    left = std::max<std::int64_t>(left, target.clip.left);
    right = std::min<std::int64_t>(right, target.clip.right);
    if (left < right)
      target.surface.Fill({static_cast<LONG>(left), y, static_cast<LONG>(right), y + 1}, pixel);
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
      top + width <= target.clip.top)
    return;
  for (int row = 0; row < width; ++row) {
    const int inset = disc[static_cast<std::size_t>(row)];
    target.Fill({left + inset, top + row, left + width - inset, top + row + 1}, pixel);
  }
}

void WidePen::DrawSegment(const Target& target, POINT from, POINT to, std::uint32_t pixel) const {
  const double dx = static_cast<double>(to.x) - from.x;
  const double dy = static_cast<double>(to.y) - from.y;
  if (dx == 0 && dy == 0)
    return;
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
  // The pen's width laid across the line, as extents in x and y. An odd pixel goes to the side that lies to the right
  // of a line running down, which keeps the line's two sides a whole width apart.
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
    if (i + 1 < points.size() && IsSame(points[i - 1], points[i]))
      continue;
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
