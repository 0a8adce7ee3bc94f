#include "widgets/path/PathProjection.h"

#include <algorithm>
#include <cmath>

namespace ferolin {

namespace {

/// Areas too small for margins leave half of their room to the path.
double FitScale(LONG pixels, double extent) {
  return std::max(pixels - 2 * PathProjection::MARGIN, pixels / 2) / extent;
}

}  // namespace

PathProjection::PathProjection(const PathBox& box, const RECT& area, float zoom, POINT pan) {
  const double west = box.minLongitude;
  const double south = box.minLatitude;
  const double fit = std::min(FitScale(area.right - area.left, box.maxLongitude - west),
                              FitScale(area.bottom - area.top, box.maxLatitude - south));
  x = Axis(area.left, area.right, fit * zoom, (west + box.maxLongitude) / 2, pan.x);
  y = Axis(area.top, area.bottom, -fit * zoom, (south + box.maxLatitude) / 2, pan.y);
}

RECT PathProjection::Project(const PathBox& box) const {
  const POINT topLeft = Project(box.maxLatitude, box.minLongitude);
  const POINT bottomRight = Project(box.minLatitude, box.maxLongitude);
  return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

/// Places are rounded down: cut toward zero, those left of or above the frame would end up a pixel
/// off.
POINT PathProjection::PanTo(const TrackPoint& point, POINT pixel) const {
  return {pixel.x - ToPixel(std::floor(x.PlaceOf(point.longitude)), FARTHEST_PAN),
          pixel.y - ToPixel(std::floor(y.PlaceOf(point.latitude)), FARTHEST_PAN)};
}

}  // namespace ferolin
