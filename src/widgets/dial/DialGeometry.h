#pragma once

#include <windows.h>

namespace ferolin {

/// The dial of the speedometer: an arc of 215 degrees from 0 km/h at the left to 220 at the right,
/// over the whole width of its rectangle. Angles are in radians, counter-clockwise from the right;
/// the screen's y axis points down.
class DialGeometry {
 public:
  explicit DialGeometry(const RECT& rect);

  static bool IsOnScale(double kmh);
  /// Speeds beyond the scale have angles beyond its ends.
  static double AngleOf(double kmh);

  /// Coordinates are cut to whole pixels.
  POINT PointAt(double angle, double distance) const;

  RECT rect;
  int centerX;
  int centerY;
  int radius;
  int faceBottom;  ///< row below the ends of the scale, where the picture's face ends
};

/// The dial's rectangle in a frame of that size, for a picture of that size. In landscape and
/// square frames it lies at the left, as high as the frame has room; in portrait ones at the top,
/// as wide as the frame. Lengths are cut to whole pixels.
RECT DialRect(SIZE frame, SIZE picture);

}  // namespace ferolin
