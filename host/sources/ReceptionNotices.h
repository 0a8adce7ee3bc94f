// Tells the user when a receiver falls silent and when it is back.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "sources/Reception.h"

namespace host {

class ReceptionNotices {
 public:
  /// `sourceName` is that of the receiver, such as "/dev/ttyUSB0".
  explicit ReceptionNotices(std::string sourceName) : sourceName(std::move(sourceName)) {}

  /// What has begun or ended since the last call. A silence without a connection is not told
  /// again.
  std::vector<std::string> TakeNews(const Reception& now);

 private:
  void AddSearch(std::vector<std::string>& news, const Reception& now);

  const std::string sourceName;
  Reception last;
  /// What the present search has told.
  std::set<std::string> searched;
};

}  // namespace host
