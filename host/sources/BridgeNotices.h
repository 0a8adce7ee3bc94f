// Tells what was done to the receiver's sentences.
#pragma once

#include <string>
#include <vector>

#include "sources/Feeder.h"

namespace host {

/// Says once of each kind of change that it is being made, and at the end how often it was.
class BridgeNotices {
 public:
  /// Changes that were not there at the last call.
  std::vector<std::string> TakeNews(const Feeder::Report& report);

  /// The sums, one line for each kind that occurred.
  static std::vector<std::string> SumUp(const Feeder::Report& report);

 private:
  Feeder::Report last;
};

}  // namespace host
