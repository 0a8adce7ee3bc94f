// Trip figures and records, kept from run to run.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "drives/KeptTrip.h"
#include "engine/EngineLibrary.h"
#include "engine/Settings.h"

namespace host {

/// Keeps the states of the saveable sensors in the settings file, by their index, because names
/// depend on the language. Receivers, recordings and the demo each have a section of their own. A
/// drive that is kept on the disk has a second copy there, which a power cut does not harm.
class Trips {
 public:
  /// The engine outlives it.
  Trips(const EngineLibrary& engine, const Options& options);

  /// Gives the sensors the states of the last run, except those that the user starts from zero:
  /// those of `copy` unless the settings file has newer ones. Throws UsageError when the user names
  /// a sensor that does not exist.
  void Resume(const Options& options, const std::optional<KeptTrip>& copy, Messages& messages);

  /// Name of the trip that goes on with these options.
  static std::string NameOf(const Options& options);

  /// Takes the moments of the updates since the last call; none when they are not known. A trip that
  /// the user has started anew loses its moving time, too.
  void OnUpdate(const std::vector<Fix>& fixes);

  /// Since the start of the trip.
  const MovingTime::Sums& GetMoving() const { return moving.GetSums(); }

  KeptTrip GetStates() const;

  /// Keeps the present states in the settings file.
  void Store() const;

 private:
  std::set<int> FindResets(const std::vector<std::string>& names) const;
  KeptTrip ReadSettings() const;
  bool Restore(const KeptTrip& kept, const std::set<int>& resets);
  std::int64_t GetElapsed() const;

  const EngineLibrary& engine;
  const std::string name;
  /// Of the start of the run.
  const std::string today;
  Settings settings;
  std::int64_t run = 0;
  MovingTime moving;
  /// At the last update, in seconds.
  std::int64_t elapsed = 0;
};

}  // namespace host
