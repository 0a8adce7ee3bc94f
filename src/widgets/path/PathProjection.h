#pragma once

#include <windows.h>

#include "track/TrackPoint.h"
#include "widgets/path/PathBox.h"

namespace ferolin {

/// Maps positions to pixels of an area: north is up, and a pixel is as much of latitude as of
/// longitude. Of two positions the one further east or north never lies further left or lower, so
/// a box maps to a rectangle around all of its points.
class PathProjection {
 public:
  /// Nearest and farthest pixel; device contexts calculate with 27 bits.
  static constexpr double FARTHEST = 1 << 26;
  /// Farthest pan in pixels, either way; with drags added it still fits into a LONG.
  static constexpr double FARTHEST_PAN = 1 << 30;
  /// Pixels between the path and the edges of its area; marks at its ends fit in there.
  static constexpr LONG MARGIN = 8;

  PathProjection() = default;
  /// Fits a box that has an area into `area` and magnifies it by `zoom`. The centre of the box lies
  /// `pan` pixels from that of the area.
  PathProjection(const PathBox& box, const RECT& area, float zoom, POINT pan);

  RECT GetArea() const { return {x.low, y.low, x.high, y.high}; }

  POINT Project(float latitude, float longitude) const {
    return {ToPixel(x.PlaceOf(longitude), FARTHEST), ToPixel(y.PlaceOf(latitude), FARTHEST)};
  }
  POINT Project(const TrackPoint& point) const { return Project(point.latitude, point.longitude); }
  /// The same, faster, for a point known to lie nearer than FARTHEST.
  POINT ProjectNear(const TrackPoint& point) const {
    return {static_cast<LONG>(x.PlaceOf(point.longitude)),
            static_cast<LONG>(y.PlaceOf(point.latitude))};
  }
  /// The rectangle of pixels around a box, right and bottom edge included.
  RECT Project(const PathBox& box) const;

  /// The further pan that moves a position onto that pixel, cut off at FARTHEST_PAN.
  POINT PanTo(const TrackPoint& point, POINT pixel) const;

  bool operator==(const PathProjection&) const = default;

 private:
  /// Maps longitudes or latitudes to places in pixels: number x scale + offset + pan. Adding
  /// ROUNDER makes places multiples of 2 to the power of -19, so that a pan moves all of them
  /// without any error of rounding.
  struct Axis {
    static constexpr double ROUNDER = 1LL << 33;

    /// The pixel in the middle, the left or upper one of two.
    static LONG Middle(LONG low, LONG high) { return (low + high) / 2; }

    Axis() = default;
    /// `centre` lies `pan` pixels from the middle of the area.
    Axis(LONG low, LONG high, double scale, double centre, LONG pan)
        : low(low),
          high(high),
          scale(scale),
          offset(Middle(low, high) - centre * scale + ROUNDER),
          pan(pan) {}

    double PlaceOf(double number) const { return number * scale + offset - (ROUNDER - pan); }
    bool operator==(const Axis&) const = default;

    LONG low = 0;  ///< edges of the area
    LONG high = 0;
    double scale = 0;
    double offset = 0;  ///< with ROUNDER added
    double pan = 0;
  };

  /// Cuts the fraction off. A place that is no number lies farthest to the left or up.
  static LONG ToPixel(double place, double farthest) {
    const double bounded = place > -farthest ? place : -farthest;
    return static_cast<LONG>(bounded < farthest ? bounded : farthest);
  }

  Axis x;
  Axis y;  ///< its scale is negative: rows count downwards
};

}  // namespace ferolin
