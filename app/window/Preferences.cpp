#include "window/Preferences.h"

#include <span>
#include <string>

#include "base/CodePage.h"
#include "base/Format.h"
#include "base/Number.h"
#include "pages/Session.h"
#include "window/EngineViews.h"

namespace app {

namespace {

constexpr LPCWSTR PORT = TEXT("Port");

struct Preference {
  LPCWSTR key;
  int (*get)(const Session& session, const EngineViews& views);
  void (*set)(Session& session, EngineViews& views, int value);
};

constexpr Preference PREFERENCES[] = {
    {TEXT("KeepScreenOn"),
     [](const Session& session, const EngineViews&) { return session.engine.IsAlwaysTurnOn(); },
     [](Session& session, EngineViews&, int value) {
       session.engine.SetAlwaysTurnOn(static_cast<DWORD>(value));
     }},
    {TEXT("LightTheme"),
     [](const Session& session, const EngineViews&) { return session.isLightTheme ? 1 : 0; },
     [](Session& session, EngineViews&, int value) { session.isLightTheme = value != 0; }},
};

/// Those that the surroundings keep where there are any.
constexpr Preference OWN_PREFERENCES[] = {
    {TEXT("BaudRate"),
     [](const Session& session, const EngineViews&) { return session.engine.GetComPortSpeed(); },
     [](Session& session, EngineViews&, int value) { session.engine.SetComPortSpeed(value); }},
    {TEXT("UseGpsApi"),
     [](const Session& session, const EngineViews&) { return session.engine.IsUseGPSAPI(); },
     [](Session& session, EngineViews&, int value) {
       session.engine.SetUseGPSAPI(static_cast<DWORD>(value));
     }},
    {TEXT("View"), [](const Session&, const EngineViews& views) { return views.GetView(); },
     [](Session&, EngineViews& views, int value) { views.SetView(value); }},
    {TEXT("Mirror"),
     [](const Session& session, const EngineViews&) { return session.engine.GetInvertHorz(); },
     [](Session& session, EngineViews&, int value) { session.engine.SetInvertHorz(value); }},
    {TEXT("UpsideDown"),
     [](const Session& session, const EngineViews&) { return session.engine.GetInvertVert(); },
     [](Session& session, EngineViews&, int value) { session.engine.SetInvertVert(value); }},
    {TEXT("Turn"),
     [](const Session& session, const EngineViews&) { return session.engine.GetInvertOrient(); },
     [](Session& session, EngineViews&, int value) { session.engine.SetInvertOrient(value); }},
    {TEXT("InvertColors"),
     [](const Session& session, const EngineViews&) { return session.engine.GetInvertColor(); },
     [](Session& session, EngineViews&, int value) { session.engine.SetInvertColor(value); }},
    {TEXT("WriteTrack"),
     [](const Session& session, const EngineViews&) { return session.engine.IsWriteKML(); },
     [](Session& session, EngineViews&, int value) { session.engine.SetWriteKML(value); }},
};

WideString StateKey(int sensor) {
  return ferolin::Widen(ferolin::Format("Sensor%i", sensor));
}

void Apply(std::span<const Preference> preferences, Session& session, EngineViews& views) {
  for (const Preference& each : preferences) {
    const std::string value = ferolin::Narrow(session.engine.ReadSetting(each.key));
    if (!value.empty()) {
      each.set(session, views, ferolin::ParseInt(value.c_str()));
    }
  }
}

void ApplyPort(const LoadedEngine& engine) {
  const WideString port = engine.ReadSetting(PORT);
  if (!port.empty()) {
    engine.SetComPortName(port.c_str());
  }
}

void ApplyStates(const LoadedEngine& engine) {
  for (int sensor = 0; sensor < engine.GetSensorsCount(); ++sensor) {
    const WideString state = engine.ReadSetting(StateKey(sensor).c_str());
    if (!state.empty()) {
      engine.SetSensorRegistryString(sensor, state.c_str());
    }
  }
}

void Keep(std::span<const Preference> preferences, const Session& session,
          const EngineViews& views) {
  for (const Preference& each : preferences) {
    session.engine.KeepSetting(each.key,
                               ferolin::Widen(ferolin::Format("%i", each.get(session, views))));
  }
}

void KeepStates(const LoadedEngine& engine) {
  for (int sensor = 0; sensor < engine.GetSensorsCount(); ++sensor) {
    if (engine.IsSensorSaveable(sensor) != 0) {
      engine.KeepSetting(StateKey(sensor).c_str(), engine.GetStateOfSensor(sensor));
    }
  }
}

}  // namespace

void ApplyPreferences(Session& session, EngineViews& views) {
  Apply(PREFERENCES, session, views);
  if (session.receiver.CanBeChosen()) {
    Apply(OWN_PREFERENCES, session, views);
    ApplyPort(session.engine);
    ApplyStates(session.engine);
  }
}

void KeepPreferences(const Session& session, const EngineViews& views) {
  Keep(PREFERENCES, session, views);
  if (session.receiver.CanBeChosen()) {
    Keep(OWN_PREFERENCES, session, views);
    session.engine.KeepSetting(PORT, session.engine.GetPortName());
    KeepStates(session.engine);
  }
}

}  // namespace app
