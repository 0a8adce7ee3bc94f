// The read-outs as table and lines show them.
#pragma once

#include "base/Units.h"
#include "engine/EngineLibrary.h"
#include "engine/Figures.h"
#include "engine/Readout.h"

namespace host {

/// In the units that the user wants. For the host's thread.
class ShownReadouts {
 public:
  enum class Angles { DEGREES_MINUTES_SECONDS, DECIMAL_DEGREES };

  // Indices of the host's own read-outs, behind those of the engine.
  static constexpr int MOVING_AVERAGE = FEROLIN_SENSOR_COUNT;
  static constexpr int STOPPED = FEROLIN_SENSOR_COUNT + 1;

  /// The engine outlives it.
  ShownReadouts(const EngineLibrary& engine, Units units, Angles angles);

  /// The engine's read-outs, then those of the host. A value whose number is not known stays as the
  /// engine shows it.
  Readouts Make(const Update& update) const;

 private:
  const EngineLibrary& engine;
  const Units units;
  const Angles angles;
  const bool isRussian;
};

/// Replaces the texts of values with a unit. `readouts` are the engine's.
void ConvertUnits(Readouts& readouts, const std::optional<Fix>& fix, const Figures& figures,
                  Units units);

/// Replaces latitude and longitude by decimal degrees.
void ConvertAngles(Readouts& readouts, const std::optional<Fix>& fix);

/// "7 s", "1:02" or "1:02:05".
std::string DescribeStopped(std::int64_t stoppedMs, bool isRussian);

}  // namespace host
