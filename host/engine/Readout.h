// What the engine shows at one update.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sources/Fix.h"
#include "sources/MovingTime.h"

namespace host {

/// Name and value of a sensor, in UTF-8; an empty value is a missing one.
struct Readout {
  std::string name;
  std::string value;
};

/// All sensors, by their index.
using Readouts = std::vector<Readout>;

struct Update {
  /// 1 for the first one.
  std::uint64_t number = 0;
  /// Share of the recording played so far, 0 to 1; nothing when its length is unknown.
  std::optional<double> progress;
  Readouts readouts;
  /// What is wrong with the reception, such as "no data for 12 s"; empty when nothing is.
  std::string notice;
  /// What the receiver said about the moment of the update; nothing before the first one. Empty
  /// while the reception is troubled.
  std::optional<Fix> fix = {};
  /// Of the whole trip.
  MovingTime::Sums moving = {};
  /// Time that the rest of the recording takes, such as "0:12 left"; empty when that is not told.
  std::string timeLeft = {};
  /// Receiver that a search has found; empty when there was none.
  std::string foundReceiver = {};
};

}  // namespace host
