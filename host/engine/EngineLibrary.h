// The engine as a loaded library.
#pragma once

#include <ferolin.h>
#include <windows.h>

#include <string>
#include <vector>

#include "engine/Readout.h"

/// Calls the macro USE with the name of every function of ferolin.h that the host uses.
#define FEROLIN_HOST_FUNCTIONS(USE) \
  USE(StartCallBack)                \
  USE(StopCallBack)                 \
  USE(GetWndMessageID)              \
  USE(SetComPortName)               \
  USE(SetComPortSpeed)              \
  USE(SetUseGPSAPI)                 \
  USE(GetSensorsCount)              \
  USE(GetSensorName)                \
  USE(GetSensorValue)               \
  USE(IsSensorSaveable)             \
  USE(GetSensorRegistryString)      \
  USE(SetSensorRegistryString)      \
  USE(ResetSensorValue)             \
  USE(GetWidgetsCount)              \
  USE(GetWidgetName)                \
  USE(GetCurRenderWidget)           \
  USE(SetCurRenderWidget)           \
  USE(SetRenderWindow)              \
  USE(GetInvertVert)                \
  USE(SetInvertVert)                \
  USE(GetInvertHorz)                \
  USE(SetInvertHorz)                \
  USE(GetInvertColor)               \
  USE(SetInvertColor)               \
  USE(GetInvertOrient)              \
  USE(SetInvertOrient)              \
  USE(OnDoubleClick)                \
  USE(OnMouseDown)                  \
  USE(OnMouseMove)                  \
  USE(OnMouseUp)                    \
  USE(SetWriteKML)                  \
  USE(SetLogFolder)                 \
  USE(SendSMS)                      \
  USE(GetSMSText)                   \
  USE(GetSMSAddress)                \
  USE(SetSMSParams)                 \
  USE(GetSMSInterval)               \
  USE(IsSMSExist)                   \
  USE(GetSpeedEventsCount)          \
  USE(GetEventSpeedLimit)           \
  USE(GetEventSpeedInter)           \
  USE(SetSpeedEvent)                \
  USE(GetUseEventSound)             \
  USE(GetBeepOnZero)                \
  USE(SetBeepOnZero)                \
  USE(GetIniFileValue)              \
  USE(SetIniFileValue)

namespace host {

/// Loads the engine and unloads it again; unloading makes it write its track and its settings. All
/// texts are UTF-8. For the host's thread only.
class EngineLibrary {
 public:
  /// Throws HostError when the library is not found or lacks a function.
  EngineLibrary();
  EngineLibrary(const EngineLibrary&) = delete;
  EngineLibrary& operator=(const EngineLibrary&) = delete;
  ~EngineLibrary();

  /// The functions that the host uses, named and documented as in ferolin.h.
  struct Functions {
// A declared name stands without parentheses. NOLINTNEXTLINE(bugprone-macro-parentheses)
#define DECLARE(name) decltype(&::name) name = nullptr;
    FEROLIN_HOST_FUNCTIONS(DECLARE)
#undef DECLARE
  };

  const Functions& operator()() const {
    return functions;
  }

  int CountSensors() const;
  std::string GetSensorName(int index) const;
  std::string GetSensorValue(int index) const;
  bool IsSensorSaveable(int index) const;
  /// State of a saveable sensor.
  std::string GetSensorState(int index) const;

  /// Names and present values of all sensors.
  Readouts GetReadouts() const;
  /// Names and present states of the saveable sensors.
  Readouts GetStates() const;

 private:
  HMODULE module;
  Functions functions;
  /// Of the sensors, which keep their names.
  std::vector<std::string> names;
};

}  // namespace host
