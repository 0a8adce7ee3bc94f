#include "run/Trip.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "base/HostError.h"
#include "base/Suggestion.h"
#include "handheld.h"

namespace host {

namespace {

std::string SectionOf(Options::Source source) {
  if (IsLive(source)) {
    return "HostTrip";
  }
  return source == Options::Source::DEMO ? "HostDemoTrip" : "HostRecordingTrip";
}

std::string KeyOf(int sensor) {
  return "Sensor" + std::to_string(sensor);
}

[[noreturn]] void RefuseReset(const std::string& name, const Readouts& sensors) {
  std::vector<std::string> names;
  std::string list;
  for (const Readout& each : sensors) {
    names.push_back(each.name);
    list += (list.empty() ? "" : ", ") + each.name;
  }
  throw UsageError("--reset: there is no \"" + name + "\"" + DidYouMean(name, names) +
                   " (read-outs: " + list + ")");
}

}  // namespace

Trip::Trip(const EngineLibrary& engine, Options::Source source)
    : engine(engine), settings(engine, SectionOf(source)) {}

void Trip::Resume(const Options& options, Messages& messages) const {
  const std::set<int> resets = FindResets(options.resets);
  if (options.newTrip || !Restore(resets)) {
    return;
  }
  const std::string distance = engine.GetSensorValue(FEROLIN_SENSOR_DISTANCE);
  messages.Say("continuing the trip of the last run" + (distance.empty() ? "" : ", " + distance) +
               " (--new-trip starts a new one)");
}

/// Indices of the sensors with these names, in upper or lower case.
std::set<int> Trip::FindResets(const std::vector<std::string>& names) const {
  const Readouts sensors = engine.GetReadouts();
  std::set<int> found;
  for (const std::string& name : names) {
    const auto sensor = std::find_if(sensors.begin(), sensors.end(), [&name](const Readout& each) {
      return strcasecmp(each.name.c_str(), name.c_str()) == 0;
    });
    if (sensor == sensors.end()) {
      RefuseReset(name, sensors);
    }
    found.insert(static_cast<int>(sensor - sensors.begin()));
  }
  return found;
}

/// True when a state was restored.
bool Trip::Restore(const std::set<int>& resets) const {
  bool isRestored = false;
  for (int i = 0; i < engine.CountSensors(); ++i) {
    if (!engine.IsSensorSaveable(i) || resets.contains(i)) {
      continue;
    }
    const std::string state = settings.Get(KeyOf(i));
    const bool isTaken = !state.empty() && engine().SetSensorRegistryString(
                                               i, handheld::WideFromUtf8(state).c_str()) != 0;
    isRestored |= isTaken;
  }
  return isRestored;
}

void Trip::Store() const {
  for (int i = engine.CountSensors() - 1; i >= 0; --i) {
    if (engine.IsSensorSaveable(i)) {
      settings.Set(KeyOf(i), engine.GetSensorState(i));
    }
  }
}

}  // namespace host
