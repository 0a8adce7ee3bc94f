#pragma once

#include <windows.h>

#include "track/TrackPoint.h"
#include "widgets/path/PathBox.h"

namespace ferolin {

/// Maps positions to pixels: north is up and one pixel is as much of latitude as of longitude.
///
/// Along each axis the order of positions is kept: of two points the one further east or north
/// never lies further left or lower. So a box maps to a rectangle that holds all of its points.
class PathProjection {
 public:
  /// Nearest and farthest pixels that there are: device contexts calculate with 27 bits.
  static constexpr double FARTHEST = 1 << 26;
  /// As far as pans go, in pixels, either way: with drags added they still fit into a LONG.
  static constexpr double FARTHEST_PAN = 1 << 30;
  /// Between the path and the edges of its area, so that marks at its ends are seen whole.
  static constexpr LONG MARGIN = 8;

  PathProjection() = default;
  /// Fits a box that has an area into the area and magnifies it by `zoom`; its centre lies `pan`
  /// pixels from that of the area.
  PathProjection(const PathBox& box, const RECT& area, float zoom, POINT pan);

  POINT Project(float latitude, float longitude) const {
    return {ProjectLongitude(longitude), ProjectLatitude(latitude)};
  }

  POINT Project(const TrackPoint& point) const { return Project(point.latitude, point.longitude); }

  /// The rectangle of pixels, all edges included.
  RECT Project(const PathBox& box) const {
    const POINT topLeft = Project(box.maxLatitude, box.minLongitude);
    const POINT bottomRight = Project(box.minLatitude, box.maxLongitude);
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
  }

  /// Of a position, faster; it must lie nearer than the farthest pixels.
  POINT ProjectNear(float latitude, float longitude) const {
    return {static_cast<LONG>(x.PlaceOf(longitude)), static_cast<LONG>(y.PlaceOf(latitude))};
  }

  /// Pixels for 1 of latitude or longitude.
  double GetScale() const { return x.scale; }
  /// How much of latitude or of longitude 1 pixel is.
  double GetPixelSize() const { return x.inverse; }

  /// Where the pixels of a column begin in the west, and those of a row in the north.
  double LongitudeOfEdge(LONG column) const { return x.NumberAt(EdgeOf(column)); }
  double LatitudeOfEdge(LONG row) const { return y.NumberAt(EdgeOf(row)); }

  /// Holds all positions that are projected into a rectangle of pixels (its right and bottom edge
  /// excluded), and some around.
  PathBox BoxAround(const RECT& rect) const;

  /// All positions in it are projected into the rectangle. May hold none.
  PathBox BoxInside(const RECT& rect) const;

  /// How far to pan on so that the position lies on that pixel. Falls short of it where that is
  /// more than the farthest pan.
  POINT PanTo(float latitude, float longitude, POINT pixel) const;

  /// Whether the two are the same but for the pan, which is all that the places of the box differ
  /// by, then.
  bool IsPanned(const PathProjection& other) const {
    return x.IsPanned(other.x) && y.IsPanned(other.y) && isNear && other.isNear;
  }
  /// How many pixels further right and down it has places than another that is panned differently.
  POINT PannedFrom(const PathProjection& other) const {
    return {static_cast<LONG>(x.pan - other.x.pan), static_cast<LONG>(y.pan - other.y.pan)};
  }

  bool operator==(const PathProjection&) const = default;

 private:
  /// From numbers (of longitude, of latitude) to places, in pixels: number x scale + offset + pan.
  /// Places are multiples of 2 to the power of -19, which leaves none to be rounded when they are
  /// panned: by adding a large number and taking it away again.
  struct Axis {
    static constexpr double ROUNDER = 1LL << 33;

    double scale = 0;
    double inverse = 0;  ///< 1 / scale
    double offset = ROUNDER;
    double pan = 0;

    double PlaceOf(double number) const { return number * scale + offset - (ROUNDER - pan); }
    double NumberAt(double place) const { return (place - pan - (offset - ROUNDER)) * inverse; }
    bool IsPanned(const Axis& other) const {
      return scale == other.scale && offset == other.offset;
    }
    bool operator==(const Axis&) const = default;
  };

  LONG ProjectLongitude(float longitude) const { return ToPixel(x.PlaceOf(longitude)); }
  LONG ProjectLatitude(float latitude) const { return ToPixel(y.PlaceOf(latitude)); }

  static LONG ToPixel(double place) { return Cut(place, FARTHEST); }
  /// Cuts the fraction off.
  static LONG Cut(double place, double farthest) {
    const double bounded = place > -farthest ? place : -farthest;  // also without a number
    return static_cast<LONG>(bounded < farthest ? bounded : farthest);
  }
  /// Pixel 0 reaches to both sides of 0.
  static double EdgeOf(LONG pixel) { return pixel > 0 ? pixel : pixel - 1; }

  Axis x;
  Axis y;               ///< its scale is negative: rows count downwards
  bool isNear = false;  ///< whether all of the box is nearer than the farthest pixels
};

}  // namespace ferolin
