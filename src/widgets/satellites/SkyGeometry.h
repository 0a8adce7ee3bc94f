#pragma once

#include <windows.h>

namespace ferolin {

/// Geometry of the sky, with north up and east to the right: the zenith in the centre, the horizon
/// a circle around it.
class SkyGeometry {
 public:
  static constexpr int DOT_RADIUS = 5;

  /// As large as the area allows, with a margin for the compass letters.
  explicit SkyGeometry(const RECT& area);

  /// Place of a satellite: `elevation` in degrees above the horizon, `azimuth` in degrees from
  /// north through east.
  POINT PointAt(int elevation, int azimuth) const;

  /// Top left corner of a satellite's number, for a satellite at `dot`: beside the dot, on the side
  /// away from the centre; above or below it where the area ends or a letter stands.
  POINT LabelCorner(POINT dot, SIZE text) const;

  /// Whether a text there touches the letter E or W.
  bool CoversLetter(POINT corner, SIZE text) const;

  /// Width of the room in each of the area's four corners that horizon and letters leave free, for
  /// texts that reach `depth` pixels from the upper or lower edge.
  int RoomBeside(int depth) const;

  RECT area;
  int centerX;
  int centerY;
  int radius;
};

}  // namespace ferolin
