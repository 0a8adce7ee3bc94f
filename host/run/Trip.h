// Trip figures and records, kept from run to run.
#pragma once

#include <set>
#include <string>

#include "base/Messages.h"
#include "commandline/Options.h"
#include "engine/EngineLibrary.h"
#include "engine/Settings.h"

namespace host {

/// Keeps the states of the saveable sensors in the settings file, by their index, because names
/// depend on the language. Receivers, recordings and the demo each have a section of their own.
class Trip {
 public:
  /// The engine outlives it.
  Trip(const EngineLibrary& engine, Options::Source source);

  /// Gives the sensors the states of the last run, except those that the user starts from zero.
  /// Throws UsageError when the user names a sensor that does not exist.
  void Resume(const Options& options, Messages& messages) const;

  /// Keeps the present states.
  void Store() const;

 private:
  std::set<int> FindResets(const std::vector<std::string>& names) const;
  bool Restore(const std::set<int>& resets) const;

  const EngineLibrary& engine;
  Settings settings;
};

}  // namespace host
