#pragma once

#include <span>

#include "base/GrowingArray.h"
#include "track/TrackPoint.h"

namespace ferolin {

/// Columns of a chart: the lowest and the highest speed of the track points that share each. Speeds
/// are in km/h; missing ones and those below zero count as 0.
class SpeedColumns {
 public:
  struct Column {
    int x;  ///< from the chart's left side
    float minimum;
    float maximum;
  };

  void Clear();
  /// Appends a column. False without memory.
  bool Add(int x, std::span<const TrackPoint> points);

  std::span<const Column> Get() const { return columns.Get(); }
  /// Highest speed of all columns; 0 without columns.
  float GetMaximum() const { return maximum; }

 private:
  GrowingArray<Column> columns;
  float maximum = 0;
};

}  // namespace ferolin
