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
#include "run/TripGain.h"

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

/// Name of a trip in the settings file and the database.
std::string NameOf(Options::Source source, Options::TripName trip) {
  std::string name = "HostRecordingTrip";
  if (IsLive(source)) {
    name = "HostTrip";
  } else if (source == Options::Source::DEMO) {
    name = "HostDemoTrip";
  }
  switch (trip) {
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
    : engine(engine),
      nameOfDay(NameOf(options.source, Options::TripName::DAY)),
      today(GetToday()) {}

std::vector<std::string> Trips::NamesOf(const Options& options) {
  std::vector<std::string> names;
  for (const auto trip : {Options::TripName::A, Options::TripName::B, Options::TripName::DAY}) {
    names.insert(trip == options.trip ? names.begin() : names.end(), NameOf(options.source, trip));
  }
  return names;
}

void Trips::Resume(const Options& options, const std::vector<KeptTrip>& copies,
                   Messages& messages) {
  const std::set<int> resets = FindResets(options.resets);
  for (const std::string& name : NamesOf(options)) {
    trips.push_back(FindKept(name, copies));
  }
  const bool goesOn = !options.newTrip && Restore(trips.front(), resets);
  trips.front() = ReadShown();
  if (!goesOn) {
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

/// The newer one of two copies; without figures when its day is over.
KeptTrip Trips::FindKept(const std::string& name, const std::vector<KeptTrip>& copies) const {
  KeptTrip kept = ReadSettings(name);
  for (const KeptTrip& copy : copies) {
    if (copy.name == name && copy.run >= kept.run) {
      kept = copy;
    }
  }
  if (name == nameOfDay && kept.day != today) {
    kept.states.clear();
    kept.moving = {};
  }
  ++kept.run;
  kept.day = today;
  return kept;
}

KeptTrip Trips::ReadSettings(const std::string& name) const {
  const Settings settings(engine, name);
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
    highestKmh = std::max(highestKmh, fix.hasFix ? fix.speedKmh.value_or(0) : 0);
  }
}

void Trips::Advance() {
  const KeptTrip shown = ReadShown();
  const TripStep step = {trips.front(), shown, std::exchange(highestKmh, 0)};
  std::for_each(trips.begin() + 1, trips.end(), [&](KeptTrip& trip) { AddGain(trip, step); });
  trips.front() = shown;
  if (GetToday() != today) {
    BeginDay();
  }
}

/// The shown trip as it is now.
KeptTrip Trips::ReadShown() const {
  KeptTrip shown = trips.front();
  shown.moving = moving.GetSums();
  shown.states.clear();
  for (int i = 0; i < engine.CountSensors(); ++i) {
    if (engine.IsSensorSaveable(i)) {
      shown.states[i] = engine.GetSensorState(i);
    }
  }
  return shown;
}

void Trips::BeginDay() {
  today = GetToday();
  for (KeptTrip& trip : trips) {
    trip.day = today;
    if (trip.name == nameOfDay) {
      trip.states.clear();
      trip.moving = {};
    }
  }
  if (trips.front().name == nameOfDay) {
    ResetShown();
  }
}

void Trips::ResetShown() {
  for (int i = 0; i < engine.CountSensors(); ++i) {
    if (engine.IsSensorSaveable(i)) {
      engine().ResetSensorValue(i);
    }
  }
  moving.Resume({});
  elapsed = 0;
  trips.front() = ReadShown();
}

/// The section and the key set first stand last in the file.
void Trips::Store() const {
  std::for_each(trips.rbegin(), trips.rend(), [this](const KeptTrip& trip) {
    const Settings settings(engine, trip.name);
    std::for_each(trip.states.rbegin(), trip.states.rend(),
                  [&settings](const auto& each) { settings.Set(KeyOf(each.first), each.second); });
    settings.Set(STOPPED_MS, std::to_string(trip.moving.stoppedMs));
    settings.Set(MOVING_MS, std::to_string(trip.moving.movingMs));
    settings.Set(MOVING_KM, DescribeNumber(trip.moving.movingKm, METRE_DECIMALS));
    settings.Set(DAY, trip.day);
    settings.Set(RUN, std::to_string(trip.run));
  });
}

}  // namespace host
