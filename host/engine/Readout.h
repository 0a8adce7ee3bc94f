// What the engine shows of one update.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace host {

/// Name and value of a sensor, in UTF-8. The value is empty when there is none.
struct Readout {
  std::string name;
  std::string value;
};

/// All sensors in the engine's order.
using Readouts = std::vector<Readout>;

struct Update {
  /// 1 for the first one.
  std::uint64_t number = 0;
  /// Share of a recording that was played, 0 to 1.
  std::optional<double> progress;
  Readouts readouts;
};

// Places of sensors in the engine's order, which never changes.
constexpr std::size_t GPS_STATUS = 0;
constexpr std::size_t CURRENT_TIME = 2;
constexpr std::size_t DISTANCE = 6;
constexpr std::size_t ELAPSED = 7;
constexpr std::size_t SPEED = 9;
constexpr std::size_t LATITUDE = 17;

}  // namespace host
