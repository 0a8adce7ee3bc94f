#pragma once

#include <windows.h>

namespace ferolin {

/// The dial of the speedometer: a half circle and a little more, from 0 km/h at the left to 220 at
/// the right, over the whole width of its rectangle. Angles are in radians, counter-clockwise from
/// the right; the screen's y axis points down.
class DialGeometry {
 public:
  explicit DialGeometry(const RECT& dialRect);

  static bool IsOnScale(double kmh);
  /// Also beyond the scale.
  static double AngleOf(double kmh);

  /// Coordinates are cut to whole pixels.
  POINT PointAt(double angle, double distance) const;

  RECT rect;
  int centerX;
  int centerY;
  int radius;
};

/// Where the dial lies in a frame of that size, with a picture of that size. Frames at least as
/// wide as high have it at the left, as high as there is room; others have it at the top, as wide
/// as the frame. Lengths are cut to whole pixels.
RECT DialRect(SIZE frame, SIZE picture);

}  // namespace ferolin
