// What is kept of a trip.
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "sources/MovingTime.h"

namespace host {

struct KeptTrip {
  /// Whose trip it is: each kind of source has its own.
  std::string name;
  /// Counts the runs of this trip, so that the newer one of two copies is known.
  std::int64_t run = 0;
  /// Texts of saveable sensors, by their index; without line ends.
  std::map<int, std::string> states;
  MovingTime::Sums moving = {};
  /// Day of the latest run, "2026-11-22" in the user's time zone.
  std::string day = {};

  bool operator==(const KeptTrip&) const = default;
};

}  // namespace host
