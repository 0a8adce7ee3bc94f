// What the trips that are not shown gain in a drive.
#pragma once

#include "drives/KeptTrip.h"

namespace host {

/// What the shown trip was at two moments, and the highest speed between them.
struct TripStep {
  const KeptTrip& before;
  const KeptTrip& after;
  /// In km/h; 0 when the receiver's speeds are not known.
  double highestKmh = 0;
};

/// Adds distance and times of the step to another trip, and lifts its highest speed. A sum that is
/// smaller after the step was reset meanwhile and counts from zero. Acceleration and fastest times
/// are the engine's to measure: only those that are new records of the shown trip are seen here.
void AddGain(KeptTrip& trip, const TripStep& step);

}  // namespace host
