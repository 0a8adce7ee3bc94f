// Keeps the machine from dimming its screen or falling asleep.
#pragma once

#include <mutex>

#include "core/Descriptor.h"

namespace handheld {

/// Holds logind's idle inhibitor as long as anybody wants it. Best effort: without a system bus or
/// logind nothing happens. No call waits for the bus.
class IdleInhibitor {
 public:
  static IdleInhibitor& Instance();

  void Acquire();
  void Release();

 private:
  /// Asks logind, on a thread of its own.
  void Fetch(int wantedGeneration);

  std::mutex mutex;
  int holders = 0;
  /// Counts changes between wanted and not wanted: an answer to an older wish is thrown away.
  int generation = 0;
  /// The inhibitor lasts as long as this is open.
  Descriptor inhibitor;
};

}  // namespace handheld
