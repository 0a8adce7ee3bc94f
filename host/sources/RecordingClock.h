// The device's clock while a recording is played as fast as possible.
#pragma once

#include "sources/EpochSplitter.h"

namespace host {

/// Sets the device's clock to the time of each epoch. The engine goes by that clock when a
/// sentence's own time is of no use to it; a clock that raced on with the device would make years
/// of such a drive. Epochs without a date leave the clock as it is.
class RecordingClock {
 public:
  static void Follow(const Epoch& epoch);
};

}  // namespace host
