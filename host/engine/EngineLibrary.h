// The engine as a loaded library.
#pragma once

#include <ferolin.h>

#include <string>

#include "engine/Readout.h"

namespace host {

/// Loads the engine and unloads it again; unloading makes it write its track and its settings.
/// Texts are UTF-8 here. For the host's thread only.
class EngineLibrary {
 public:
  /// Throws HostError when the library is not found or lacks a function.
  EngineLibrary();
  EngineLibrary(const EngineLibrary&) = delete;
  EngineLibrary& operator=(const EngineLibrary&) = delete;
  ~EngineLibrary();

  /// The functions that the host uses, named as ferolin.h documents them.
  struct Functions {
    decltype(&::StartCallBack) StartCallBack = nullptr;
    decltype(&::StopCallBack) StopCallBack = nullptr;
    decltype(&::GetWndMessageID) GetWndMessageID = nullptr;
    decltype(&::SetComPortName) SetComPortName = nullptr;
    decltype(&::SetComPortSpeed) SetComPortSpeed = nullptr;
    decltype(&::SetUseGPSAPI) SetUseGPSAPI = nullptr;
    decltype(&::GetSensorsCount) GetSensorsCount = nullptr;
    decltype(&::GetSensorName) GetSensorName = nullptr;
    decltype(&::GetSensorValue) GetSensorValue = nullptr;
    decltype(&::IsSensorSaveable) IsSensorSaveable = nullptr;
    decltype(&::GetSensorRegistryString) GetSensorRegistryString = nullptr;
    decltype(&::SetSensorRegistryString) SetSensorRegistryString = nullptr;
    decltype(&::ResetSensorValue) ResetSensorValue = nullptr;
    decltype(&::GetWidgetsCount) GetWidgetsCount = nullptr;
    decltype(&::GetWidgetName) GetWidgetName = nullptr;
    decltype(&::GetCurRenderWidget) GetCurRenderWidget = nullptr;
    decltype(&::SetCurRenderWidget) SetCurRenderWidget = nullptr;
    decltype(&::SetRenderWindow) SetRenderWindow = nullptr;
    decltype(&::GetInvertVert) GetInvertVert = nullptr;
    decltype(&::SetInvertVert) SetInvertVert = nullptr;
    decltype(&::GetInvertHorz) GetInvertHorz = nullptr;
    decltype(&::SetInvertHorz) SetInvertHorz = nullptr;
    decltype(&::GetInvertColor) GetInvertColor = nullptr;
    decltype(&::SetInvertColor) SetInvertColor = nullptr;
    decltype(&::GetInvertOrient) GetInvertOrient = nullptr;
    decltype(&::SetInvertOrient) SetInvertOrient = nullptr;
    decltype(&::OnDoubleClick) OnDoubleClick = nullptr;
    decltype(&::OnMouseDown) OnMouseDown = nullptr;
    decltype(&::OnMouseMove) OnMouseMove = nullptr;
    decltype(&::OnMouseUp) OnMouseUp = nullptr;
    decltype(&::SetWriteKML) SetWriteKML = nullptr;
    decltype(&::SetLogFolder) SetLogFolder = nullptr;
    decltype(&::SendSMS) SendSMS = nullptr;
    decltype(&::GetSMSText) GetSMSText = nullptr;
    decltype(&::GetSMSAddress) GetSMSAddress = nullptr;
    decltype(&::SetSMSParams) SetSMSParams = nullptr;
    decltype(&::IsSMSExist) IsSMSExist = nullptr;
    decltype(&::GetSpeedEventsCount) GetSpeedEventsCount = nullptr;
    decltype(&::GetEventSpeedLimit) GetEventSpeedLimit = nullptr;
    decltype(&::GetEventSpeedInter) GetEventSpeedInter = nullptr;
    decltype(&::SetSpeedEvent) SetSpeedEvent = nullptr;
    decltype(&::SetBeepOnZero) SetBeepOnZero = nullptr;
    decltype(&::GetIniFileValue) GetIniFileValue = nullptr;
    decltype(&::SetIniFileValue) SetIniFileValue = nullptr;
  };

  const Functions& operator()() const { return functions; }

  int CountSensors() const;
  std::string GetSensorName(int index) const;
  std::string GetSensorValue(int index) const;
  bool IsSensorSaveable(int index) const;
  /// State of a saveable sensor.
  std::string GetSensorState(int index) const;

  /// All sensors as they are now.
  Readouts GetReadouts() const;
  /// Names and states of the saveable ones.
  Readouts GetStates() const;

 private:
  HMODULE module;
  Functions functions;
};

}  // namespace host
