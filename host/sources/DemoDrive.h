// A simulated drive.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "sources/DemoState.h"

namespace host {

/// A car drives through a town, over a hill, through a tunnel, along a motorway and back into town;
/// its receiver reports once a second. One lap takes about 20 minutes and begins and ends at rest.
/// The same start gives the same drive.
class DemoDrive {
 public:
  explicit DemoDrive(std::chrono::sys_seconds start) : start(start) {}

  const DemoState& GetState() const { return state; }

  /// Goes on by one second. After a lap the next one begins where the car stands.
  void Advance();

  /// The receiver's sentences of the present moment.
  std::string GetSentences() const;

  /// Seconds of a lap.
  static int GetLapSeconds();

 private:
  std::chrono::sys_seconds start;
  DemoState state;
  std::size_t leg = 0;
  int secondOfLeg = 0;
};

}  // namespace host
