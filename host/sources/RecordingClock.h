// The device's clock while a recording is played as fast as possible.
#pragma once

#include "sources/EpochSplitter.h"

namespace host {

/// Sets the device's clock to the time of each epoch. The engine uses that clock when it cannot use
/// a sentence's own time; with a clock as fast as the device such a drive would take years. Epochs
/// without a date do not change the clock.
class RecordingClock {
 public:
  static void Follow(const Epoch& epoch);
};

}  // namespace host
