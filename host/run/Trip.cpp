#include "run/Trip.h"

#include "handheld.h"

namespace host {

namespace {

std::string Key(int sensor) {
  return "Sensor" + std::to_string(sensor);
}

}  // namespace

Trip::Trip(const EngineLibrary& engineToUse, const std::string& section)
    : engine(engineToUse), settings(engineToUse, section) {}

bool Trip::Restore(const std::set<int>& afresh) const {
  bool restored = false;
  for (int i = 0; i < engine.CountSensors(); ++i) {
    if (!engine.IsSensorSaveable(i) || afresh.contains(i)) {
      continue;
    }
    const std::string state = settings.Get(Key(i));
    const bool taken = !state.empty() && engine().SetSensorRegistryString(
                                             i, handheld::WideFromUtf8(state).c_str()) != 0;
    restored |= taken;
  }
  return restored;
}

void Trip::Store() const {
  for (int i = engine.CountSensors() - 1; i >= 0; --i) {
    if (engine.IsSensorSaveable(i)) {
      settings.Set(Key(i), engine.GetSensorState(i));
    }
  }
}

}  // namespace host
