// Trip figures and records, kept from run to run.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "drives/KeptTrip.h"
#include "engine/EngineLibrary.h"
#include "engine/Settings.h"

namespace host {

/// Trips A, B and that of the day, which run together. The engine measures the shown one; the
/// others gain what that one gains. Keeps the states of the saveable sensors in the settings file,
/// by their index, because names depend on the language. Receivers, recordings and the demo each
/// have sections of their own. A drive that is kept on the disk has a second copy there, which a
/// power cut does not harm.
class Trips {
 public:
  /// The engine outlives it.
  Trips(const EngineLibrary& engine, const Options& options);

  /// Gives the sensors the shown trip's states of the last run, except those that the user starts
  /// from zero: those of `copies` unless the settings file has newer ones. Throws UsageError when
  /// the user names a sensor that does not exist.
  void Resume(const Options& options, const std::vector<KeptTrip>& copies, Messages& messages);

  /// Names of the three trips that run with these options, the shown one first.
  static std::vector<std::string> NamesOf(const Options& options);

  /// Takes the moments of the updates since the last call; none when they are not known. A trip that
  /// the user has started anew loses its moving time, too.
  void OnUpdate(const std::vector<Fix>& fixes);

  /// Of the shown trip.
  const MovingTime::Sums& GetMoving() const { return moving.GetSums(); }

  /// Brings all trips up to date. On a new day, that of the day begins anew.
  void Advance();

  /// As of the last Advance, the shown one first.
  const std::vector<KeptTrip>& Get() const { return trips; }

  /// Keeps them in the settings file.
  void Store() const;

 private:
  std::set<int> FindResets(const std::vector<std::string>& names) const;
  KeptTrip FindKept(const std::string& name, const std::vector<KeptTrip>& copies) const;
  KeptTrip ReadSettings(const std::string& name) const;
  bool Restore(const KeptTrip& kept, const std::set<int>& resets);
  KeptTrip ReadShown() const;
  void ResetShown();
  void BeginDay();
  std::int64_t GetElapsed() const;

  const EngineLibrary& engine;
  const std::string nameOfDay;
  /// "2026-11-22" in the user's time zone.
  std::string today;
  std::vector<KeptTrip> trips;
  MovingTime moving;
  /// Since the last Advance.
  double highestKmh = 0;
  /// At the last update, in seconds.
  std::int64_t elapsed = 0;
};

}  // namespace host
