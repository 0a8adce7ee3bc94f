#pragma once

#include <windows.h>

#include "track/TrackPoint.h"
#include "widgets/PathBox.h"

namespace ferolin {

/// Maps positions to pixels: north is up and one pixel is as much of latitude as of longitude.
///
/// Along each axis the order of positions is kept: of two points the one further east or north
/// never lies further left or lower. So a box maps to a rectangle that holds all of its points.
class PathProjection {
 public:
  /// Nearest and farthest pixels that there are: device contexts calculate with 27 bits.
  static constexpr double FARTHEST = 1 << 26;
  /// Between the path and the edges of its area, so that marks at its ends are seen whole.
  static constexpr LONG MARGIN = 8;

  PathProjection() = default;
  /// Fits a box that has an area into the area and magnifies it by `zoom`; its centre lies `pan`
  /// pixels from that of the area.
  PathProjection(const PathBox& box, const RECT& area, float zoom, POINT pan);

  POINT Project(float latitude, float longitude) const {
    return {ToPixel(longitude * xScale + xOffset), ToPixel(latitude * yScale + yOffset)};
  }

  POINT Project(const TrackPoint& point) const { return Project(point.latitude, point.longitude); }

  /// The rectangle of pixels, all edges included.
  RECT Project(const PathBox& box) const {
    const POINT topLeft = Project(box.maxLatitude, box.minLongitude);
    const POINT bottomRight = Project(box.minLatitude, box.maxLongitude);
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
  }

  /// How far to pan on so that the position lies on that pixel.
  POINT PanTo(float latitude, float longitude, POINT pixel) const;

  bool operator==(const PathProjection&) const = default;

 private:
  /// Cuts the fraction off.
  static LONG ToPixel(double place) {
    if (!(place > -FARTHEST)) {
      return static_cast<LONG>(-FARTHEST);
    }
    return static_cast<LONG>(place < FARTHEST ? place : FARTHEST);
  }

  double xScale = 0;  ///< pixels for 1 of longitude
  double yScale = 0;  ///< the same for latitude, negative: rows count downwards
  double xOffset = 0;
  double yOffset = 0;
};

}  // namespace ferolin
