// Tells the user how sentences are changed.
#pragma once

#include <string>
#include <vector>

#include "sources/PositionFeed.h"

namespace host {

/// Announces each kind of change once, and tells at the end how often it was made.
class BridgeNotices {
 public:
  /// Kinds of change that are new since the last call.
  std::vector<std::string> TakeNews(const PositionFeed::Report& report);

  /// Number of changes, a line for each kind that occurred.
  static std::vector<std::string> SumUp(const PositionFeed::Report& report);

 private:
  PositionFeed::Report last;
};

}  // namespace host
