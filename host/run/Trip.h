// Trip figures and records from run to run.
#pragma once

#include <set>
#include <string>

#include "engine/EngineLibrary.h"
#include "engine/Settings.h"

namespace host {

/// Keeps the states of the saveable sensors in a section of the settings file, by their places in
/// the engine's order, as names depend on the language.
class Trip {
 public:
  /// Trips of receivers, recordings and the demo have sections of their own, so that none falsifies
  /// another.
  Trip(const EngineLibrary& engineToUse, const std::string& section);

  /// Gives the sensors the states of the last run, but for those in `afresh` (places in the
  /// engine's order). True when there were any.
  bool Restore(const std::set<int>& afresh) const;

  /// Stores the states of now.
  void Store() const;

 private:
  const EngineLibrary& engine;
  Settings settings;
};

}  // namespace host
