#include "run/Trips.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <ctime>
#include <utility>
#include <vector>

#include "base/HostError.h"
#include "base/NumberText.h"
#include "base/Suggestion.h"
#include "base/Units.h"
#include "engine/Figures.h"
#include "handheld.h"

namespace host {

namespace {

constexpr const char* RUN = "Run";
constexpr const char* DAY = "Day";
constexpr int METRE_DECIMALS = 3;
constexpr const char* MOVING_KM = "MovingKm";
constexpr const char* MOVING_MS = "MovingMs";
constexpr const char* STOPPED_MS = "StoppedMs";

/// 0 when the text is no number.
template <class Number>
Number Parse(const std::string& text) {
  Number number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

std::string KeyOf(int sensor) {
  return "Sensor" + std::to_string(sensor);
}

/// In the user's time zone.
std::string GetToday() {
  const std::time_t now = std::time(nullptr);
  std::tm local = {};
  localtime_r(&now, &local);
  std::array<char, 16> text;
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
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

Trips::Trips(const EngineLibrary& engine, const Options& options)
    : engine(engine), name(NameOf(options)), today(GetToday()), settings(engine, name) {}

std::string Trips::NameOf(const Options& options) {
  std::string name = "HostRecordingTrip";
  if (IsLive(options.source)) {
    name = "HostTrip";
  } else if (options.source == Options::Source::DEMO) {
    name = "HostDemoTrip";
  }
  switch (options.trip) {
    case Options::TripName::A:
      break;
    case Options::TripName::B:
      name += "B";
      break;
    case Options::TripName::DAY:
      name += "Day";
      break;
  }
  return name;
}

void Trips::Resume(const Options& options, const std::optional<KeptTrip>& copy, Messages& messages) {
  const std::set<int> resets = FindResets(options.resets);
  KeptTrip kept = ReadSettings();
  if (copy && copy->run >= kept.run) {
    kept = *copy;
  }
  run = kept.run + 1;
  const bool isOver = options.trip == Options::TripName::DAY && kept.day != today;
  if (options.newTrip || isOver || !Restore(kept, resets)) {
    return;
  }
  std::string distance = engine.GetSensorValue(FEROLIN_SENSOR_DISTANCE);
  if (!distance.empty() && options.units != Units::KM) {
    distance = DescribeDistance(ReadFigures(engine).distanceKm, options.units);
  }
  messages.Say("continuing the trip of the last run" + (distance.empty() ? "" : ", " + distance) +
               " (--new-trip starts a new one)");
}

/// Indices of the sensors with these names, in upper or lower case.
std::set<int> Trips::FindResets(const std::vector<std::string>& names) const {
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

KeptTrip Trips::ReadSettings() const {
  KeptTrip kept;
  kept.name = name;
  kept.run = Parse<std::int64_t>(settings.Get(RUN));
  kept.day = settings.Get(DAY);
  kept.moving = {Parse<double>(settings.Get(MOVING_KM)),
                 Parse<std::int64_t>(settings.Get(MOVING_MS)),
                 Parse<std::int64_t>(settings.Get(STOPPED_MS))};
  for (int i = 0; i < engine.CountSensors(); ++i) {
    if (engine.IsSensorSaveable(i)) {
      kept.states[i] = settings.Get(KeyOf(i));
    }
  }
  return kept;
}

/// True when a state was restored.
bool Trips::Restore(const KeptTrip& kept, const std::set<int>& resets) {
  bool isRestored = false;
  for (const auto& [sensor, state] : kept.states) {
    if (state.empty() || resets.contains(sensor) || !engine.IsSensorSaveable(sensor)) {
      continue;
    }
    const bool isTaken =
        engine().SetSensorRegistryString(sensor, handheld::WideFromUtf8(state).c_str()) != 0;
    isRestored |= isTaken;
  }
  if (!resets.contains(FEROLIN_SENSOR_ELAPSED)) {
    moving.Resume(kept.moving);
  }
  return isRestored;
}

std::int64_t Trips::GetElapsed() const {
  return Parse<std::int64_t>(engine.GetSensorState(FEROLIN_SENSOR_ELAPSED));
}

void Trips::OnUpdate(const std::vector<Fix>& fixes) {
  const std::int64_t elapsedBefore = std::exchange(elapsed, GetElapsed());
  if (elapsed < elapsedBefore) {
    moving.Resume({});
  }
  if (fixes.empty()) {
    moving.Add(Fix());
  }
  for (const Fix& fix : fixes) {
    moving.Add(fix);
  }
}

KeptTrip Trips::GetStates() const {
  KeptTrip states;
  states.name = name;
  states.run = run;
  states.moving = moving.GetSums();
  states.day = today;
  for (int i = 0; i < engine.CountSensors(); ++i) {
    if (engine.IsSensorSaveable(i)) {
      states.states[i] = engine.GetSensorState(i);
    }
  }
  return states;
}

/// The first key set stands last in the file.
void Trips::Store() const {
  const KeptTrip states = GetStates();
  std::for_each(states.states.rbegin(), states.states.rend(),
                [this](const auto& each) { settings.Set(KeyOf(each.first), each.second); });
  settings.Set(STOPPED_MS, std::to_string(states.moving.stoppedMs));
  settings.Set(MOVING_MS, std::to_string(states.moving.movingMs));
  settings.Set(MOVING_KM, DescribeNumber(states.moving.movingKm, METRE_DECIMALS));
  settings.Set(DAY, states.day);
  settings.Set(RUN, std::to_string(run));
}

}  // namespace host
