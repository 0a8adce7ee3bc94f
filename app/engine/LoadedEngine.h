// The engine as a loaded library.
#pragma once

#include <ferolin.h>

#include "base/WideString.h"

/// Calls the macro USE with the name of every function of ferolin.h that the application uses.
#define FEROLIN_APP_FUNCTIONS(USE) \
  USE(StartCallBack)               \
  USE(StopCallBack)                \
  USE(GetWndMessageID)             \
  USE(SetComPortName)              \
  USE(GetComPortName)              \
  USE(SetComPortSpeed)             \
  USE(GetComPortSpeed)             \
  USE(SetUseGPSAPI)                \
  USE(IsUseGPSAPI)                 \
  USE(GetSensorsCount)             \
  USE(GetSensorName)               \
  USE(GetSensorValue)              \
  USE(ResetSensorValue)            \
  USE(IsSensorSaveable)            \
  USE(GetSensorRegistryString)     \
  USE(SetSensorRegistryString)     \
  USE(GetWidgetsCount)             \
  USE(GetCurRenderWidget)          \
  USE(SetCurRenderWidget)          \
  USE(SetRenderWindow)             \
  USE(GetInvertVert)               \
  USE(SetInvertVert)               \
  USE(GetInvertHorz)               \
  USE(SetInvertHorz)               \
  USE(GetInvertColor)              \
  USE(SetInvertColor)              \
  USE(GetInvertOrient)             \
  USE(SetInvertOrient)             \
  USE(OnDoubleClick)               \
  USE(OnMouseDown)                 \
  USE(OnMouseMove)                 \
  USE(OnMouseUp)                   \
  USE(IsAlwaysTurnOn)              \
  USE(SetAlwaysTurnOn)             \
  USE(IsWriteKML)                  \
  USE(SetWriteKML)                 \
  USE(IsRussianLocale)             \
  USE(SendSMS)                     \
  USE(IsSMSEnabled)                \
  USE(IsSMSSendIfChanged)          \
  USE(GetSMSInterval)              \
  USE(GetSMSText)                  \
  USE(GetSMSAddress)               \
  USE(SetSMSParams)                \
  USE(IsSMSExist)                  \
  USE(GetSpeedEventsCount)         \
  USE(GetBeepOnZero)               \
  USE(SetBeepOnZero)               \
  USE(GetUseEventSound)            \
  USE(GetEventSpeedLimit)          \
  USE(GetEventSpeedInter)          \
  USE(SetSpeedEvent)               \
  USE(GetIniFileValue)             \
  USE(SetIniFileValue)

namespace app {

using ferolin::WideString;

/// Loads the engine and unloads it again; unloading makes it write its track and its settings. Its
/// functions are members named and documented as in ferolin.h. For one thread only.
class LoadedEngine {
 public:
  LoadedEngine();
  LoadedEngine(const LoadedEngine&) = delete;
  LoadedEngine& operator=(const LoadedEngine&) = delete;
  ~LoadedEngine();

  /// False when the library or one of its functions is missing. Nothing may be called then.
  bool IsLoaded() const { return isLoaded; }

  // Texts as wide text; empty when there is none.

  WideString GetNameOfSensor(int index) const;
  WideString GetValueOfSensor(int index) const;
  /// State of a saveable sensor.
  WideString GetStateOfSensor(int index) const;
  WideString GetPortName() const;
  WideString GetSmsText() const;
  WideString GetSmsRecipients() const;

  /// Value of an entry of the application's own section of the settings file.
  WideString ReadSetting(LPCWSTR key) const;
  /// Reaches the file when the engine is unloaded.
  void KeepSetting(LPCWSTR key, const WideString& value) const;

// A declared name stands without parentheses. NOLINTNEXTLINE(bugprone-macro-parentheses)
#define DECLARE(name) decltype(&::name) name = nullptr;
  FEROLIN_APP_FUNCTIONS(DECLARE)
#undef DECLARE

 private:
  HMODULE module;
  bool isLoaded;
};

}  // namespace app
