// The engine as a loaded library.
#pragma once

#include <ferolin.h>
#include <windows.h>

#include <string>
#include <vector>

#include "engine/LoadedEngine.h"
#include "engine/Readout.h"

namespace host {

/// Loads the engine and unloads it again; unloading makes it write its track and its settings. All
/// texts are UTF-8. For the host's thread; while that one rests, for one in its place.
class EngineLibrary {
 public:
  /// Throws HostError when the library is not found or lacks a function.
  EngineLibrary();
  EngineLibrary(const EngineLibrary&) = delete;
  EngineLibrary& operator=(const EngineLibrary&) = delete;

  /// Named and documented as in ferolin.h.
  using Functions = app::EngineFunctions;

  const Functions& operator()() const { return loaded; }

  /// As the application knows it.
  const app::LoadedEngine& GetLoaded() const { return loaded; }

  int CountSensors() const;
  std::string GetSensorName(int index) const;
  std::string GetSensorValue(int index) const;
  bool IsSensorSaveable(int index) const;
  /// State of a saveable sensor.
  std::string GetSensorState(int index) const;

  /// Names and present values of all sensors.
  Readouts GetReadouts() const;
  /// Brings the values of what GetReadouts has returned up to date.
  void RefreshValues(Readouts& readouts) const;
  /// Names and present states of the saveable sensors.
  Readouts GetStates() const;

 private:
  app::LoadedEngine loaded;
  /// Of the sensors, which keep their names.
  std::vector<std::string> names;
};

}  // namespace host
