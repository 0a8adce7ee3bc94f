#pragma once

#include <span>

#include "base/GrowingArray.h"
#include "track/TrackPoint.h"

namespace ferolin {

/// What the columns of a chart show: the lowest and the highest speed of the track points that each
/// stands for. Speeds in km/h; those that are missing or below zero count as 0.
class SpeedColumns {
 public:
  struct Column {
    int x;  ///< from the chart's left side
    float minimum;
    float maximum;
  };

  void Clear();
  /// The next column. False when the memory does not reach.
  bool Add(int x, std::span<const TrackPoint> points);

  std::span<const Column> Get() const { return columns.Get(); }
  /// Of all columns; 0 without any.
  float GetMaximum() const { return maximum; }

 private:
  GrowingArray<Column> columns;
  float maximum = 0;
};

}  // namespace ferolin
