#pragma once

#include <windows.h>

namespace ferolin {

/// The scale of a chart of speeds: from 0 up to 20, 50, 100 or 200 km/h.
class SpeedScale {
 public:
  /// The smallest one that the speed does not exceed; the largest for all others.
  explicit SpeedScale(float highestKmh);

  /// Row of that speed in a plot. Speeds beyond the scale lie outside.
  LONG RowOf(float kmh, const RECT& plot) const;

  int top;   ///< km/h
  int step;  ///< km/h from one grid line to the next; lines end at the top
};

}  // namespace ferolin
