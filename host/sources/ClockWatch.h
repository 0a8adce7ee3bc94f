// Finds jumps of a receiver's clock.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace host {

/// A receiver's clock jumps when it finds the time after its start, when its week number rolls over,
/// or when a date is damaged. A step is a jump when it is longer than a gap of reception explains,
/// or when it goes back further than sentences that arrive out of turn.
class ClockWatch {
 public:
  static constexpr std::chrono::milliseconds LONGEST_GAP = std::chrono::hours(1);
  static constexpr std::chrono::milliseconds LONGEST_STEP_BACK = std::chrono::seconds(5);

  /// Takes the next time stamp, in milliseconds since 1970. True when it is a jump away from the
  /// one before.
  bool Jumps(std::int64_t timeMs);

 private:
  std::optional<std::int64_t> lastMs;
};

}  // namespace host
