// The exported functions. Each returns its default without an engine and passes the call on to it
// otherwise.

#include <ferolin.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "base/CodePage.h"
#include "engine/Engine.h"
#include "events/SpeedEvents.h"
#include "render/InvertFlags.h"
#include "sensors/LocalizedText.h"
#include "sensors/Sensor.h"
#include "settings/IniStore.h"
#include "sms/SmsReporter.h"
#include "widgets/Widget.h"

using ferolin::Engine;
using ferolin::LockGuard;
using ferolin::Narrow;
using ferolin::Reader;
using ferolin::Sensor;
using ferolin::SmsReport;
using ferolin::SpeedEvent;
using ferolin::theEngine;
using ferolin::theInvertFlags;
using ferolin::Widget;

namespace {

void CopyOut(char* buffer, std::string_view text) {
  buffer[text.copy(buffer, text.size())] = '\0';
}

void EmptyOut(char* buffer, int size) {
  if (buffer != nullptr && size > 0) {
    *buffer = '\0';
  }
}

bool Fits(const char* buffer, int size, std::string_view text) {
  return buffer != nullptr && size > 0 && text.size() < static_cast<std::size_t>(size);
}

/// Fit rule: the whole text and its length, or nothing and 0.
int CopyIfFits(char* buffer, int size, std::string_view text) {
  if (!Fits(buffer, size, text)) {
    return 0;
  }
  CopyOut(buffer, text);
  return static_cast<int>(text.size());
}

/// Length rule: the length in any case.
int CopyOrMeasure(char* buffer, int size, std::string_view text) {
  CopyIfFits(buffer, size, text);
  return static_cast<int>(text.size());
}

/// Clear rule: empty first.
void ClearAndCopy(char* buffer, int size, std::string_view text) {
  EmptyOut(buffer, size);
  CopyIfFits(buffer, size, text);
}

/// Text from the host; a null pointer counts as empty.
LPCWSTR OrEmpty(LPCWSTR text) {
  return text != nullptr ? text : TEXT("");
}

/// Calls `use(sensor)` under the data lock; 0 when the index names no sensor or there is no engine.
template <class Use>
int WithSensor(int index, Use use) {
  if (theEngine == nullptr) {
    return 0;
  }
  const LockGuard guard(theEngine->GetDataLock());
  Sensor* sensor = theEngine->GetSensors().Get(index);
  return sensor != nullptr ? use(*sensor) : 0;
}

/// As above for texts; without an engine the buffer is emptied.
template <class Use>
int WithSensor(int index, char* buffer, int size, Use use) {
  if (theEngine == nullptr) {
    EmptyOut(buffer, size);
  }
  return WithSensor(index, use);
}

/// Calls `use(engine)` under the data lock; `fallback` without an engine.
template <class Result, class Use>
Result WithEngine(Result fallback, Use use) {
  if (theEngine == nullptr) {
    return fallback;
  }
  const LockGuard guard(theEngine->GetDataLock());
  return use(*theEngine);
}

template <class Use>
void WithEngine(Use use) {
  if (theEngine != nullptr) {
    const LockGuard guard(theEngine->GetDataLock());
    use(*theEngine);
  }
}

Widget* CurrentWidget() {
  return theEngine != nullptr ? theEngine->GetRedraw().GetCurrentWidget() : nullptr;
}

template <class Value>
int EventValue(int index, Value SpeedEvent::*value) {
  return WithEngine(0, [&](Engine& engine) {
    const SpeedEvent* event = engine.GetSpeedEvents().GetEvent(index);
    return event != nullptr ? static_cast<int>(event->*value) : 0;
  });
}

}  // namespace

// Start, stop and notification. These wait for threads, so they must not hold the data lock.

int WINAPI StartCallBack(HWND hostWindow) {
  return theEngine != nullptr && theEngine->StartCallBack(hostWindow) ? 1 : 0;
}

int WINAPI StopCallBack() {
  if (theEngine == nullptr) {
    return 0;
  }
  theEngine->StopCallBack();
  return 1;
}

UINT WINAPI GetWndMessageID() {
  return theEngine != nullptr ? theEngine->GetMessageId() : 0;
}

// Position source. Setting the port or the source waits for threads as well.

int WINAPI SetComPortName(LPCWSTR name) {
  return theEngine != nullptr && theEngine->SetComPortName(OrEmpty(name)) ? 1 : 0;
}

int WINAPI GetComPortName(char* buffer, int size) {
  if (theEngine == nullptr) {
    EmptyOut(buffer, size);
    return 0;
  }
  return CopyOrMeasure(buffer, size, theEngine->GetReader().GetComPortName());
}

void WINAPI SetComPortSpeed(int baudRate) {
  if (theEngine != nullptr) {
    theEngine->GetReader().SetComPortSpeed(baudRate);
  }
}

int WINAPI GetComPortSpeed() {
  return theEngine != nullptr ? theEngine->GetReader().GetComPortSpeed() : Reader::KEEP_PORT_SPEED;
}

int WINAPI SetUseGPSAPI(DWORD use) {
  return theEngine != nullptr && theEngine->SetUseGpsApi(use) ? 1 : 0;
}

int WINAPI IsUseGPSAPI() {
  return theEngine != nullptr && theEngine->GetReader().GetUseGpsApi() != 0 ? 1 : 0;
}

// Sensors.

int WINAPI GetSensorsCount() {
  return theEngine != nullptr ? theEngine->GetSensors().GetCount() : 0;
}

int WINAPI GetSensorName(int index, char* buffer, int size) {
  return WithSensor(index, buffer, size, [&](const Sensor& sensor) {
    return CopyIfFits(buffer, size, sensor.GetName());
  });
}

/// The value is copied whenever the name fits: hosts have buffers that hold both.
int WINAPI GetSensorValue(int index, char* buffer, int size) {
  return WithSensor(index, buffer, size, [&](const Sensor& sensor) {
    if (!Fits(buffer, size, sensor.GetName())) {
      return 0;
    }
    const std::string_view value = sensor.GetValueText();
    CopyOut(buffer, value);
    return static_cast<int>(value.size());
  });
}

int WINAPI ResetSensorValue(int index) {
  return WithSensor(index, [](Sensor& sensor) {
    sensor.Reset();
    return 1;
  });
}

int WINAPI IsSensorSaveable(int index) {
  return WithSensor(index, [](const Sensor& sensor) { return sensor.IsSaveable(); });
}

int WINAPI GetSensorRegistryString(int index, char* buffer, int size) {
  return WithSensor(index, buffer, size, [&](const Sensor& sensor) {
    if (buffer == nullptr) {
      return 0;
    }
    sensor.GetRegistryString(buffer, size);
    return static_cast<int>(std::strlen(buffer));
  });
}

int WINAPI SetSensorRegistryString(int index, LPCWSTR text) {
  return WithSensor(index, [&](Sensor& sensor) {
    char state[Sensor::TEXT_SIZE];
    ferolin::NarrowInto(state, sizeof state, OrEmpty(text));
    return sensor.SetRegistryString(state);
  });
}

// Views and drawing.

int WINAPI GetWidgetsCount() {
  return theEngine != nullptr ? theEngine->GetWidgets().GetCount() : 0;
}

int WINAPI GetWidgetName(int index, char* buffer, int size) {
  if (theEngine == nullptr) {
    EmptyOut(buffer, size);
    return 0;
  }
  const Widget* widget = theEngine->GetWidgets().Get(index);
  return widget != nullptr ? CopyIfFits(buffer, size, widget->GetName()) : 0;
}

int WINAPI GetCurRenderWidget() {
  return theEngine != nullptr ? theEngine->GetRedraw().GetCurRenderWidget() : FEROLIN_VIEW_NONE;
}

void WINAPI SetCurRenderWidget(int index) {
  if (theEngine != nullptr) {
    theEngine->GetRedraw().SetCurRenderWidget(index);
  }
}

HWND WINAPI GetRenderWindow() {
  return theEngine != nullptr ? theEngine->GetRenderWindow() : nullptr;
}

void WINAPI SetRenderWindow(HWND window) {
  if (theEngine != nullptr) {
    theEngine->GetRedraw().SetRenderWindow(window);
  }
}

int WINAPI GetInvertVert() {
  return theInvertFlags.vert;
}

void WINAPI SetInvertVert(int flag) {
  theInvertFlags.vert = static_cast<std::uint8_t>(flag);
}

int WINAPI GetInvertHorz() {
  return theInvertFlags.horz;
}

void WINAPI SetInvertHorz(int flag) {
  theInvertFlags.horz = static_cast<std::uint8_t>(flag);
}

int WINAPI GetInvertColor() {
  return theInvertFlags.color;
}

void WINAPI SetInvertColor(int flag) {
  theInvertFlags.color = static_cast<std::uint8_t>(flag);
}

int WINAPI GetInvertOrient() {
  return theInvertFlags.orient;
}

void WINAPI SetInvertOrient(int flag) {
  theInvertFlags.orient = static_cast<std::uint8_t>(flag);
}

void WINAPI OnClick(HWND, int, int) {}

void WINAPI OnDoubleClick() {
  WithEngine([](Engine& engine) {
    if (Widget* widget = engine.GetRedraw().GetCurrentWidget()) {
      widget->ToggleBars();
    }
  });
}

// The current view takes the data lock itself: it may have to wait for a redraw.

void WINAPI OnMouseDown(HWND window, int x, int y) {
  if (Widget* widget = CurrentWidget()) {
    widget->OnMouseDown(window, {x, y});
  }
}

void WINAPI OnMouseMove(HWND window, int x, int y) {
  if (Widget* widget = CurrentWidget()) {
    widget->OnMouseMove(window, {x, y});
  }
}

void WINAPI OnMouseUp(HWND window, int x, int y) {
  if (Widget* widget = CurrentWidget()) {
    widget->OnMouseUp(window, {x, y});
  }
}

// Options.

int WINAPI IsAlwaysTurnOn() {
  return theEngine != nullptr && theEngine->GetPowerKeeper().IsAlwaysTurnOn() ? 1 : 0;
}

void WINAPI SetAlwaysTurnOn(DWORD flag) {
  if (theEngine != nullptr) {
    theEngine->GetPowerKeeper().SetAlwaysTurnOn(flag);
  }
}

int WINAPI IsWriteKML() {
  return theEngine != nullptr ? theEngine->GetWriteKml() : 0;
}

void WINAPI SetWriteKML(int flag) {
  if (theEngine != nullptr) {
    theEngine->SetWriteKml(static_cast<std::uint8_t>(flag));
  }
}

void WINAPI GetLogFolder(char* buffer, int size) {
  ClearAndCopy(buffer, size,
               theEngine != nullptr ? Narrow(theEngine->GetLogFolder()) : std::string());
}

void WINAPI SetLogFolder(LPCWSTR path) {
  if (theEngine != nullptr) {
    theEngine->SetLogFolder(OrEmpty(path));
  }
}

int WINAPI IsRussianLocale() {
  return theEngine != nullptr ? ferolin::IsRussianLocale() : 0;
}

// SMS reports.

void WINAPI SendSMS() {
  // Sent without the lock: sending may take seconds.
  WithEngine(SmsReport(), [](Engine& engine) {
    return engine.GetSmsReporter().MakeReport();
  }).Send();
}

int WINAPI IsSMSEnabled() {
  return WithEngine(0, [](Engine& engine) { return engine.GetSmsReporter().IsEnabled() ? 1 : 0; });
}

int WINAPI IsSMSSendIfChanged() {
  return WithEngine(
      0, [](Engine& engine) { return engine.GetSmsReporter().IsSendIfChanged() ? 1 : 0; });
}

int WINAPI GetSMSInterval() {
  return WithEngine(0, [](Engine& engine) { return engine.GetSmsReporter().GetInterval(); });
}

void WINAPI GetSMSText(char* buffer, int size) {
  EmptyOut(buffer, size);
  WithEngine(
      [&](Engine& engine) { ClearAndCopy(buffer, size, engine.GetSmsReporter().GetText()); });
}

void WINAPI GetSMSAddress(char* buffer, int size) {
  EmptyOut(buffer, size);
  WithEngine([&](Engine& engine) {
    ClearAndCopy(buffer, size, Narrow(engine.GetSmsReporter().GetAddress()));
  });
}

void WINAPI SetSMSParams(LPCWSTR address, LPCWSTR text, int interval, int enabled,
                         int sendIfChanged) {
  WithEngine([&](Engine& engine) {
    engine.GetSmsReporter().SetParams(OrEmpty(address), Narrow(OrEmpty(text)), interval,
                                      enabled != 0, sendIfChanged != 0);
  });
}

int WINAPI IsSMSExist() {
  return WithEngine(0, [](Engine& engine) { return engine.GetSmsReporter().CanSend() ? 1 : 0; });
}

// Speed events.

int WINAPI GetSpeedEventsCount() {
  return WithEngine(0, [](Engine& engine) { return engine.GetSpeedEvents().GetCount(); });
}

int WINAPI GetBeepOnZero() {
  return WithEngine(0,
                    [](Engine& engine) { return engine.GetSpeedEvents().IsBeepOnZero() ? 1 : 0; });
}

void WINAPI SetBeepOnZero(int flag) {
  WithEngine([&](Engine& engine) { engine.GetSpeedEvents().SetBeepOnZero(flag != 0); });
}

int WINAPI GetUseEventSound(int index) {
  return EventValue(index, &SpeedEvent::useSound);
}

int WINAPI GetEventSpeedLimit(int index) {
  return EventValue(index, &SpeedEvent::limit);
}

int WINAPI GetEventSpeedInter(int index) {
  return EventValue(index, &SpeedEvent::limitInter);
}

void WINAPI SetSpeedEvent(int index, int limit, int inter, int useSound) {
  WithEngine([&](Engine& engine) {
    engine.GetSpeedEvents().SetEvent(index, {useSound != 0, limit, inter});
  });
}

// Settings file.

int WINAPI GetIniFileValue(char* buffer, int size, LPCWSTR section, LPCWSTR key, LPCWSTR) {
  if (theEngine == nullptr) {
    return 0;
  }
  return CopyIfFits(
      buffer, size,
      theEngine->GetIniStore().GetValue(Narrow(OrEmpty(key)), Narrow(OrEmpty(section))));
}

int WINAPI SetIniFileValue(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR) {
  if (theEngine == nullptr) {
    return 0;
  }
  theEngine->GetIniStore().SetValue(Narrow(OrEmpty(key)), Narrow(OrEmpty(value)),
                                    Narrow(OrEmpty(section)));
  return 1;
}
