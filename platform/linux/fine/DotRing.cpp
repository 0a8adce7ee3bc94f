#include "fine/DotRing.h"

#include <algorithm>

namespace handheld::fine {

namespace {

/// Smaller ones look round as dots, too.
constexpr int SMALLEST_RADIUS = 3;
/// In pixels from the exact circle. Rounding adds up to 1.7 where a program goes on from pixel to
/// pixel.
constexpr double LARGEST_DEVIATION = 2;

bool IsSame(POINT a, POINT b) {
  return a.x == b.x && a.y == b.y;
}

}  // namespace

DotRing::Meaning DotRing::Take(POINT dot, std::uint32_t rgb) {
  if (rgb == color && radius > 0 && LiesOnRing(dot)) {
    return Meaning::PART_OF_RING;
  }
  radius = 0;
  if (rgb != color) {
    latest.fill({0, 0});
    color = rgb;
  }
  std::rotate(latest.begin(), latest.begin() + 1, latest.end());
  latest.back() = dot;
  const LONG height = latest[0].y - latest[1].y;
  if (latest[0].x != latest[1].x || height % 2 != 0 || height < 2 * SMALLEST_RADIUS ||
      !IsSame(latest[0], latest[2]) || !IsSame(latest[1], latest[3])) {
    return Meaning::DOT;
  }
  radius = static_cast<int>(height / 2);
  centre = {dot.x, dot.y + radius};
  return Meaning::RING;
}

bool DotRing::LiesOnRing(POINT dot) const {
  const double x = static_cast<double>(dot.x) - centre.x;
  const double y = static_cast<double>(dot.y) - centre.y;
  const double outer = radius + LARGEST_DEVIATION;
  const double inner = std::max(radius - LARGEST_DEVIATION, 0.0);
  const double square = x * x + y * y;
  return square < outer * outer && square > inner * inner;
}

}  // namespace handheld::fine
