#pragma once

#include <windows.h>

namespace ferolin {

/// The sky as seen from below with north up and east to the right: the zenith in the centre, the
/// horizon a circle around it.
class SkyPlot {
 public:
  static constexpr int DOT_RADIUS = 5;

  /// As large as fits into the area, with a margin for the compass letters.
  explicit SkyPlot(const RECT& plotArea);

  /// Where a satellite stands; degrees above the horizon, and from north through east.
  POINT PointAt(int elevation, int azimuth) const;

  /// Top left corner of the number of a satellite that stands at `dot`: beside it, on the side that
  /// looks away from the centre, or above or below it where the area ends or a letter stands.
  POINT LabelCorner(POINT dot, SIZE text) const;

  /// How far a text may reach from the left or right edge of the area towards its middle without
  /// touching the horizon or the letter at its top, down to `depth` pixels from the area's upper
  /// (or up to `depth` pixels from its lower) edge.
  int RoomBeside(int depth) const;

  RECT area;
  int centerX;
  int centerY;
  int radius;

 private:
  bool CoversLetter(POINT corner, SIZE text) const;
};

}  // namespace ferolin
