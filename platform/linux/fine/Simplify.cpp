#include "fine/Simplify.h"

#include <cmath>

namespace handheld::fine {

namespace {

/// Steps of a slanted line lie up to half a pixel beside it.
constexpr double TOLERANCE = 0.6;

struct Direction {
  double x;
  double y;
};

double Cross(const Direction& a, const Direction& b) {
  return a.x * b.y - a.y * b.x;
}

/// Directions from a point in which a straight line passes all points seen since near enough.
class Cone {
 public:
  explicit Cone(POINT apex) : apex(apex) {}

  /// False when the line to `point` passes one seen before too far away, or turns back.
  bool Take(POINT point) {
    const Direction to = {static_cast<double>(point.x) - apex.x,
                          static_cast<double>(point.y) - apex.y};
    const double distance = std::hypot(to.x, to.y);
    if (distance < farthest - TOLERANCE) {
      return false;
    }
    if (distance <= TOLERANCE) {
      return true;
    }
    const Direction side = {-to.y * TOLERANCE / distance, to.x * TOLERANCE / distance};
    const Direction low = {to.x - side.x, to.y - side.y};
    const Direction high = {to.x + side.x, to.y + side.y};
    if (farthest == 0) {
      lowest = low;
      highest = high;
    } else if (Cross(lowest, to) < 0 || Cross(to, highest) < 0) {
      return false;
    }
    lowest = Cross(lowest, low) > 0 ? low : lowest;
    highest = Cross(high, highest) > 0 ? high : highest;
    farthest = std::max(farthest, distance);
    return true;
  }

 private:
  POINT apex;
  double farthest = 0;
  Direction lowest = {0, 0};
  Direction highest = {0, 0};
};

}  // namespace

std::vector<POINT> Simplify(std::span<const POINT> points) {
  std::vector<POINT> kept = {points.front()};
  Cone cone(points.front());
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (!cone.Take(points[i])) {
      kept.push_back(points[i - 1]);
      cone = Cone(points[i - 1]);
      cone.Take(points[i]);
    }
  }
  kept.push_back(points.back());
  return kept;
}

}  // namespace handheld::fine
