#include "gdi/Ellipses.h"

#include <algorithm>

namespace handheld::gdi {

namespace {

/// Zingl's walk along the ellipse inscribed in a box, from its widest place upwards. Even extents
/// put the centre between two pixels, so all terms are scaled up to whole numbers.
class EllipseWalk {
 public:
  EllipseWalk(int width, int height) {
    const std::int64_t a = width - 1;
    const std::int64_t b = height - 1;
    xCurve = 8 * b * b;
    yCurve = 8 * a * a;
    xSlope = 4 * b * b * (1 - a);
    ySlope = 4 * a * a * (1 + b % 2);
    error = xSlope + ySlope + a * a * (b % 2);
  }

  struct Move {
    bool inward;
    bool upward;
  };

  /// Step from the present point of the curve to the next.
  Move Next() {
    const std::int64_t doubled = 2 * error;
    const Move move = {doubled >= xSlope, doubled <= ySlope};
    if (move.inward) {
      error += xSlope += xCurve;
    }
    if (move.upward) {
      error += ySlope += yCurve;
    }
    return move;
  }

 private:
  std::int64_t xCurve;
  std::int64_t yCurve;
  std::int64_t xSlope;
  std::int64_t ySlope;
  std::int64_t error;
};

/// Points of the lower right quarter from the right end to the bottom, counted from the box's top
/// left corner.
std::vector<POINT> QuarterOf(int width, int height) {
  const int mostPoints = (width + height) / 2 + 2;
  std::vector<POINT> points;
  points.reserve(static_cast<std::size_t>(mostPoints));
  EllipseWalk walk(width, height);
  POINT point = {width - 1, height / 2};
  while (point.x >= width / 2) {
    points.push_back(point);
    const EllipseWalk::Move move = walk.Next();
    if (move.inward) {
      --point.x;
    }
    if (move.upward) {
      ++point.y;
    }
  }
  return points;
}

/// Appends the mirror image of all points in reverse order. With `sharesMiddle` the last point is
/// its own image.
template <typename Mirror>
void AppendMirrored(std::vector<POINT>& points, bool sharesMiddle, Mirror mirror) {
  const std::size_t count = points.size() - (sharesMiddle ? 1 : 0);
  for (std::size_t i = count; i-- > 0;) {
    points.push_back(mirror(points[i]));
  }
}

}  // namespace

std::vector<int> EllipseInsets(int width, int height) {
  std::vector<int> insets(static_cast<std::size_t>(height), 0);
  EllipseWalk walk(width, height);
  int inset = 0;
  int row = height / 2;
  while (inset <= width / 2) {
    const EllipseWalk::Move move = walk.Next();
    if (move.inward) {
      ++inset;
    }
    if (move.upward && ++row < height) {
      insets[static_cast<std::size_t>(row)] = inset;
    }
  }
  // The curve of a very narrow ellipse closes before its end; the remaining rows are empty.
  for (++row; row < height; ++row) {
    insets[static_cast<std::size_t>(row)] = (width + 1) / 2;
  }
  // The walk covers the lower half.
  for (int i = 0; i < height / 2; ++i) {
    insets[static_cast<std::size_t>(i)] = insets[static_cast<std::size_t>(height - 1 - i)];
  }
  return insets;
}

std::vector<POINT> OutlineOf(const RoundedRect& shape) {
  const RECT& rect = shape.rect;
  std::vector<POINT> points = QuarterOf(shape.cornerWidth, shape.cornerHeight);
  for (POINT& point : points) {
    point.x += rect.right - shape.cornerWidth;
    point.y = rect.top + shape.cornerHeight - 1 - point.y;
  }
  const bool meetsSideways = shape.cornerWidth == rect.right - rect.left;
  AppendMirrored(points, meetsSideways && shape.cornerWidth % 2 != 0, [&](POINT point) {
    return POINT{rect.left + rect.right - 1 - point.x, point.y};
  });
  const bool meetsUpright = shape.cornerHeight == rect.bottom - rect.top;
  AppendMirrored(points, meetsUpright && shape.cornerHeight % 2 != 0, [&](POINT point) {
    return POINT{point.x, rect.top + rect.bottom - 1 - point.y};
  });
  return points;
}

void FillRounded(const Target& target, const RoundedRect& shape, std::uint32_t pixel) {
  const RECT& rect = shape.rect;
  const int half = shape.cornerHeight / 2;
  const std::vector<int> insets = EllipseInsets(shape.cornerWidth, shape.cornerHeight);
  for (int i = 0; i < half; ++i) {
    const int inset = insets[static_cast<std::size_t>(i)];
    target.Fill({rect.left + inset, rect.top + i, rect.right - inset, rect.top + i + 1}, pixel);
    target.Fill({rect.left + inset, rect.bottom - 1 - i, rect.right - inset, rect.bottom - i},
                pixel);
  }
  target.Fill({rect.left, rect.top + half, rect.right, rect.bottom - half}, pixel);
}

}  // namespace handheld::gdi
