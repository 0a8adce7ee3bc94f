// A drive that was kept.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "sources/MovingTime.h"

namespace host {

inline constexpr double MS_PER_HOUR = 3600000;

struct Drive {
  /// From 1 on; numbers of deleted drives are not used again.
  std::int64_t number = 0;
  /// Where its positions came from, such as "/dev/ttyUSB0".
  std::string source;
  /// False while it is driven, and after an end without warning.
  bool isEnded = false;
  /// UTC in milliseconds since 1970.
  std::int64_t startMs = 0;
  std::int64_t endMs = 0;
  double distanceKm = 0;
  double highestKmh = 0;
  /// Nothing for a drive of an older version.
  std::optional<MovingTime::Sums> moving = {};
};

}  // namespace host
