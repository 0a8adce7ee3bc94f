#pragma once

#include <windows.h>

namespace ferolin {

/// The scale of a chart of speeds: from 0 up to 20, 50, 100 or 200 km/h.
class SpeedScale {
 public:
  /// The smallest scale that the speed does not exceed; the largest one for higher speeds.
  explicit SpeedScale(float highestKmh);

  /// Row of that speed in the plot. Speeds beyond the scale lie outside of the plot.
  LONG RowOf(float kmh, const RECT& plot) const;

  int top;   ///< km/h
  int step;  ///< km/h from one grid line to the next
};

}  // namespace ferolin
