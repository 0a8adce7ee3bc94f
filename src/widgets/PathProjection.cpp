#include "widgets/PathProjection.h"

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

}  // namespace

PathProjection::PathProjection(const PathBox& box, const RECT& area, float zoom, POINT pan) {
  const double fit = std::min(FitScale(area.right - area.left, box.minLongitude, box.maxLongitude),
                              FitScale(area.bottom - area.top, box.minLatitude, box.maxLatitude));
  xScale = fit * zoom;
  yScale = -xScale;
  xOffset =
      (area.left + area.right) / 2 + pan.x - Middle(box.minLongitude, box.maxLongitude) * xScale;
  yOffset =
      (area.top + area.bottom) / 2 + pan.y - Middle(box.minLatitude, box.maxLatitude) * yScale;
}

/// Rounded down rather than cut, so that the position does not end up one pixel off on the way over
/// the frame's upper or left edge.
POINT PathProjection::PanTo(float latitude, float longitude, POINT pixel) const {
  return {pixel.x - ToPixel(std::floor(longitude * xScale + xOffset)),
          pixel.y - ToPixel(std::floor(latitude * yScale + yOffset))};
}

}  // namespace ferolin
