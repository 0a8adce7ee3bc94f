#include "fine/Shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "fine/Simplify.h"

namespace handheld::fine {

namespace {

constexpr double DASH_LENGTH = 18;
constexpr double DASH_PERIOD = 24;

/// cairo calculates with 24 bits before the point.
constexpr LONG FARTHEST = 1 << 16;

/// Pens of even width are centred on the corner of a pixel, odd ones on its middle.
double CentreOf(int penWidth) {
  return penWidth % 2 == 0 ? 0 : 0.5;
}

/// Part of a line, from 0 (its start) to 1 (its end).
struct Stretch {
  double begin;
  double end;
};

/// Narrows the stretch to where start + t * length lies in low .. high.
void Narrow(Stretch& stretch, double start, double length, double low, double high) {
  if (length == 0) {
    if (start < low || start > high) {
      stretch.end = -1;
    }
    return;
  }
  const double first = (low - start) / length;
  const double second = (high - start) / length;
  stretch.begin = std::max(stretch.begin, std::min(first, second));
  stretch.end = std::min(stretch.end, std::max(first, second));
}

/// Part of the line that can be seen. Points may lie very far away.
Stretch VisibleStretch(const RECT& clip, POINT from, POINT to, int penWidth) {
  Stretch stretch = {0, 1};
  const double margin = penWidth + 1;
  const double dx = static_cast<double>(to.x) - from.x;
  const double dy = static_cast<double>(to.y) - from.y;
  Narrow(stretch, from.x, dx, clip.left - margin, clip.right + margin);
  Narrow(stretch, from.y, dy, clip.top - margin, clip.bottom + margin);
  return stretch;
}

/// Draws lines with cairo, with round ends and corners.
class Stroke {
 public:
  Stroke(Twin& twin, const PenLook& pen) : twin(twin), pen(pen), context(twin.BeginShape(pen.rgb)) {
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(context, pen.width * twin.GetScale());
  }

  void Add(POINT from, POINT to) {
    const Stretch seen = VisibleStretch(twin.GetClip(), from, to, pen.width);
    if (seen.begin > seen.end) {
      isOpen = false;
      return;
    }
    if (!isOpen) {
      const Place start = At(from, to, seen.begin);
      cairo_move_to(context, start.x, start.y);
    }
    const Place end = At(from, to, seen.end);
    cairo_line_to(context, end.x, end.y);
    isOpen = seen.end == 1;
  }

  void Draw() const { cairo_stroke(context); }

 private:
  struct Place {
    double x;
    double y;
  };

  Place At(POINT from, POINT to, double t) const {
    const double centre = CentreOf(pen.width);
    return {(from.x + t * (static_cast<double>(to.x) - from.x) + centre) * twin.GetScale(),
            (from.y + t * (static_cast<double>(to.y) - from.y) + centre) * twin.GetScale()};
  }

  Twin& twin;
  const PenLook pen;
  cairo_t* context;
  bool isOpen = false;
};

bool IsStraight(POINT from, POINT to) {
  return from.x == to.x || from.y == to.y;
}

/// Pixels of a level or an upright line, without the last one.
RECT PixelRow(POINT from, POINT to) {
  const LONG xStep = (to.x > from.x) - (to.x < from.x);
  const LONG yStep = (to.y > from.y) - (to.y < from.y);
  return {std::min(from.x, to.x - xStep), std::min(from.y, to.y - yStep),
          std::max(from.x, to.x - xStep) + 1, std::max(from.y, to.y - yStep) + 1};
}

void DrawThinSide(Twin& twin, POINT from, POINT to, std::uint32_t rgb) {
  if (std::abs(to.x - from.x) + std::abs(to.y - from.y) == 1) {
    twin.DrawDot(from, rgb);
  } else if (from.x != to.x || from.y != to.y) {
    twin.Fill(PixelRow(from, to), rgb);
  }
}

bool HasStraightSides(std::span<const POINT> points) {
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!IsStraight(points[i], points[(i + 1) % points.size()])) {
      return false;
    }
  }
  return true;
}

void DrawDash(Twin& twin, POINT from, POINT to, double begin, double end, std::uint32_t rgb) {
  const double length = std::max(std::abs(static_cast<double>(to.x) - from.x),
                                 std::abs(static_cast<double>(to.y) - from.y));
  const auto at = [&](double step) {
    return POINT{from.x + static_cast<LONG>(std::lround((to.x - from.x) * step / length)),
                 from.y + static_cast<LONG>(std::lround((to.y - from.y) * step / length))};
  };
  DrawLines(twin, std::array{at(begin), at(end)}, false, {1, rgb});
}

/// Draws the next part of a path: a quarter of an ellipse around (x, y).
void AddCorner(cairo_t* context, double x, double y, double radiusX, double radiusY,
               double quarter) {
  constexpr double RIGHT_ANGLE = std::numbers::pi / 2;
  cairo_save(context);
  cairo_translate(context, x, y);
  cairo_scale(context, std::max(radiusX, 0.001), std::max(radiusY, 0.001));
  cairo_arc(context, 0, 0, 1, quarter * RIGHT_ANGLE, (quarter + 1) * RIGHT_ANGLE);
  cairo_restore(context);
}

/// An outline runs through the box's outermost pixels.
void AddRounded(cairo_t* context, const RoundedLook& shape, double scale) {
  const double inset = shape.pen ? 1 : 0;
  const double centre = shape.pen ? CentreOf(shape.pen->width) : 0;
  const double left = (shape.rect.left + centre) * scale;
  const double top = (shape.rect.top + centre) * scale;
  const double right = (shape.rect.right - inset + centre) * scale;
  const double bottom = (shape.rect.bottom - inset + centre) * scale;
  const double radiusX = (shape.cornerWidth - inset) * scale / 2;
  const double radiusY = (shape.cornerHeight - inset) * scale / 2;
  AddCorner(context, right - radiusX, bottom - radiusY, radiusX, radiusY, 0);
  AddCorner(context, left + radiusX, bottom - radiusY, radiusX, radiusY, 1);
  AddCorner(context, left + radiusX, top + radiusY, radiusX, radiusY, 2);
  AddCorner(context, right - radiusX, top + radiusY, radiusX, radiusY, 3);
  cairo_close_path(context);
}

bool IsNear(const RECT& rect) {
  return rect.left > -FARTHEST && rect.top > -FARTHEST && rect.right < FARTHEST &&
         rect.bottom < FARTHEST;
}

}  // namespace

void DrawLines(Twin& twin, std::span<const POINT> points, bool isClosed, const PenLook& pen) {
  const bool isSide = points.size() == 2 && IsStraight(points[0], points[1]);
  if (pen.width == 1 && (isClosed ? HasStraightSides(points) : isSide)) {
    for (std::size_t i = 1; i < points.size(); ++i) {
      DrawThinSide(twin, points[i - 1], points[i], pen.rgb);
    }
    if (isClosed) {
      DrawThinSide(twin, points.back(), points.front(), pen.rgb);
    }
    return;
  }
  Stroke stroke(twin, pen);
  const std::vector<POINT> kept = Simplify(points);
  for (std::size_t i = 1; i < kept.size(); ++i) {
    stroke.Add(kept[i - 1], kept[i]);
  }
  if (isClosed) {
    stroke.Add(kept.back(), kept.front());
  }
  stroke.Draw();
}

void DrawDashes(Twin& twin, POINT from, POINT to, std::uint32_t offset, std::uint32_t rgb,
                std::optional<std::uint32_t> gap) {
  const double length = std::max(std::abs(static_cast<double>(to.x) - from.x),
                                 std::abs(static_cast<double>(to.y) - from.y));
  const Stretch seen = VisibleStretch(twin.GetClip(), from, to, 1);
  const double phase = offset;
  double begin = std::floor((seen.begin * length + phase) / DASH_PERIOD) * DASH_PERIOD - phase;
  for (; begin < seen.end * length; begin += DASH_PERIOD) {
    const double gapBegin = begin + DASH_LENGTH;
    if (gapBegin > 0) {
      DrawDash(twin, from, to, std::max(begin, 0.0), std::min(gapBegin, length), rgb);
    }
    if (gap && gapBegin < length) {
      DrawDash(twin, from, to, std::max(gapBegin, 0.0), std::min(begin + DASH_PERIOD, length),
               *gap);
    }
  }
}

void DrawRounded(Twin& twin, const RoundedLook& shape) {
  if (!IsNear(shape.rect)) {
    return;
  }
  if (shape.fill) {
    cairo_t* context = twin.BeginShape(*shape.fill);
    AddRounded(context, shape, twin.GetScale());
    cairo_fill(context);
  }
  if (shape.pen) {
    cairo_t* context = twin.BeginShape(shape.pen->rgb);
    AddRounded(context, shape, twin.GetScale());
    cairo_set_line_width(context, shape.pen->width * twin.GetScale());
    cairo_stroke(context);
  }
}

}  // namespace handheld::fine
