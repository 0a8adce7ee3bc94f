// The sums of a drive.
#pragma once

#include <cstdint>
#include <optional>

#include "drives/Drive.h"
#include "sources/ClockWatch.h"
#include "sources/Fix.h"
#include "sources/MovingTime.h"

namespace host {

/// Adds up fixes as the trip's read-outs do: the distance is the mean of two speeds over the time
/// between them. A jump of the receiver's clock adds nothing.
class DriveTotals {
 public:
  /// Takes the next fix, which has a time.
  void Add(const Fix& fix);

  /// The end is the time of the last fix. The start is so long before it as the drive took, also
  /// when the receiver's clock was wrong at first.
  void PutInto(Drive& drive) const;

 private:
  ClockWatch clock;
  MovingTime moving;
  std::int64_t endMs = 0;
  std::int64_t durationMs = 0;
  double distanceKm = 0;
  double highestKmh = 0;
  /// False before the first fix.
  bool hasBegun = false;
  /// Speed of the last fix; nothing when it was none.
  std::optional<double> lastKmh;
};

}  // namespace host
