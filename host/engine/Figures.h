// The trip's read-outs as numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/EngineLibrary.h"

namespace host {

/// Best time over an acceleration or a distance.
struct BestTime {
  /// Speed in km/h, or distance in metres.
  double target = 0;
  /// Nothing before the first one.
  std::optional<double> seconds;

  bool operator==(const BestTime&) const = default;
};

/// Nothing for a missing value.
struct Figures {
  double distanceKm = 0;
  std::int64_t elapsedSeconds = 0;
  std::optional<double> averageKmh;
  std::optional<double> highestKmh;
  /// By their targets.
  std::vector<BestTime> accelerations;
  std::vector<BestTime> fastest;
};

/// Reads the states of the engine's sensors.
Figures ReadFigures(const EngineLibrary& engine);

// Values of states, as the engine writes them.

/// "12.5"; nothing for a missing value.
std::optional<double> ParseState(const std::string& state);

struct StatePair {
  double first = 0;
  double second = 0;
};

/// "15.4;3600"; 0 for a missing value.
StatePair ParseStatePair(std::string_view state);

/// "100;9.5" or, with times in milliseconds, "402;17250".
BestTime ParseBestTime(const std::string& state, double unitsPerSecond);

/// "15.4;3600", kilometres and seconds. Nothing before the first second.
std::optional<double> ParseAverage(const std::string& state);

}  // namespace host
