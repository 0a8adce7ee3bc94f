// How long one moves and how long one stands.
#pragma once

#include <cstdint>
#include <optional>

#include "sources/ClockWatch.h"
#include "sources/Fix.h"

namespace host {

/// Divides the time between positions into moving and standing. Time without a fix, and a jump of
/// the receiver's clock, count as neither.
class MovingTime {
 public:
  /// Slower is standing: receivers that stand report a little speed. The engine's own limit.
  static constexpr double STANDSTILL_KMH = 1;

  struct Sums {
    double movingKm = 0;
    std::int64_t movingMs = 0;
    std::int64_t stoppedMs = 0;

    bool operator==(const Sums&) const = default;

    /// Nothing before one has moved.
    std::optional<double> GetAverageKmh() const;
  };

  /// Goes on from these sums; the time before the next fix does not count.
  void Resume(const Sums& kept);

  /// Takes the next fix.
  void Add(const Fix& fix);

  const Sums& GetSums() const { return sums; }

 private:
  Sums sums;
  ClockWatch clock;
  /// Of the fix before; nothing when the time since then does not count.
  std::optional<std::int64_t> lastMs;
  double lastKmh = 0;
};

}  // namespace host
