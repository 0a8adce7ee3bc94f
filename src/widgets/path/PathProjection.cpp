#include "widgets/path/PathProjection.h"

#include <algorithm>
#include <cmath>

namespace ferolin {

namespace {

double Middle(float low, float high) {
  return (static_cast<double>(low) + high) / 2;
}

/// In areas too small for margins the path gets half of the room.
double FitScale(LONG pixels, float low, float high) {
  const LONG room = std::max(pixels - 2 * PathProjection::MARGIN, pixels / 2);
  return room / (static_cast<double>(high) - low);
}

constexpr double FLOAT_ERROR = 1e-6;

float Below(double number) {
  return static_cast<float>(number - std::fabs(number) * FLOAT_ERROR);
}

float Above(double number) {
  return static_cast<float>(number + std::fabs(number) * FLOAT_ERROR);
}

}  // namespace

PathProjection::PathProjection(const PathBox& box, const RECT& area, float zoom, POINT pan) {
  const double fit = std::min(FitScale(area.right - area.left, box.minLongitude, box.maxLongitude),
                              FitScale(area.bottom - area.top, box.minLatitude, box.maxLatitude));
  x.scale = fit * zoom;
  y.scale = -x.scale;
  x.inverse = 1 / x.scale;
  y.inverse = -x.inverse;
  x.offset = (area.left + area.right) / 2 - Middle(box.minLongitude, box.maxLongitude) * x.scale +
             Axis::ROUNDER;
  y.offset = (area.top + area.bottom) / 2 - Middle(box.minLatitude, box.maxLatitude) * y.scale +
             Axis::ROUNDER;
  x.pan = pan.x;
  y.pan = pan.y;
  const RECT pixels = Project(box);
  isNear = pixels.left > -FARTHEST && pixels.right < FARTHEST && pixels.top > -FARTHEST &&
           pixels.bottom < FARTHEST;
}

/// A pixel more, and a little of the number itself, make up for places and numbers that are
/// rounded.
PathBox PathProjection::BoxAround(const RECT& rect) const {
  PathBox box;
  box.minLongitude = Below(LongitudeOfEdge(rect.left - 1));
  box.maxLongitude = Above(LongitudeOfEdge(rect.right + 1));
  box.minLatitude = Below(LatitudeOfEdge(rect.bottom + 1));
  box.maxLatitude = Above(LatitudeOfEdge(rect.top - 1));
  return box;
}

/// A pixel less, for the same reason.
PathBox PathProjection::BoxInside(const RECT& rect) const {
  PathBox box;
  box.minLongitude = Above(LongitudeOfEdge(rect.left + 1));
  box.maxLongitude = Below(LongitudeOfEdge(rect.right - 1));
  box.minLatitude = Above(LatitudeOfEdge(rect.bottom - 1));
  box.maxLatitude = Below(LatitudeOfEdge(rect.top + 1));
  return box;
}

/// Rounded down rather than cut, so that the position does not end up one pixel off on the way over
/// the frame's upper or left edge.
POINT PathProjection::PanTo(float latitude, float longitude, POINT pixel) const {
  return {pixel.x - Cut(std::floor(x.PlaceOf(longitude)), FARTHEST_PAN),
          pixel.y - Cut(std::floor(y.PlaceOf(latitude)), FARTHEST_PAN)};
}

}  // namespace ferolin
