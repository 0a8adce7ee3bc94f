#pragma once

#include <ferolin.h>
#include <windows.h>

#include <string>

namespace e2e {

// Every exported function, by name.
// clang-format off
#define FEROLIN_EXPORTS(X) \
  X(StartCallBack) X(StopCallBack) X(GetWndMessageID) X(SetComPortName) X(GetComPortName) \
  X(SetComPortSpeed) X(GetComPortSpeed) X(SetUseGPSAPI) X(IsUseGPSAPI) X(GetSensorsCount) \
  X(GetSensorName) X(GetSensorValue) X(ResetSensorValue) X(IsSensorSaveable) \
  X(GetSensorRegistryString) X(SetSensorRegistryString) X(GetWidgetsCount) X(GetWidgetName) \
  X(GetCurRenderWidget) X(SetCurRenderWidget) X(GetRenderWindow) X(SetRenderWindow) \
  X(GetInvertVert) X(SetInvertVert) X(GetInvertHorz) X(SetInvertHorz) X(GetInvertColor) \
  X(SetInvertColor) X(GetInvertOrient) X(SetInvertOrient) X(OnClick) X(OnDoubleClick) \
  X(OnMouseDown) X(OnMouseMove) X(OnMouseUp) X(IsAlwaysTurnOn) X(SetAlwaysTurnOn) X(IsWriteKML) \
  X(SetWriteKML) X(GetLogFolder) X(SetLogFolder) X(IsRussianLocale) X(SendSMS) X(IsSMSEnabled) \
  X(IsSMSSendIfChanged) X(GetSMSInterval) X(GetSMSText) X(GetSMSAddress) X(SetSMSParams) \
  X(IsSMSExist) X(GetSpeedEventsCount) X(GetBeepOnZero) X(SetBeepOnZero) X(GetUseEventSound) \
  X(GetEventSpeedLimit) X(GetEventSpeedInter) X(SetSpeedEvent) X(GetIniFileValue) \
  X(SetIniFileValue)
// clang-format on

/// The engine, loaded as a host loads it: attached by the constructor, detached by the destructor
/// or Unload.
class EngineLibrary {
 public:
  EngineLibrary();
  ~EngineLibrary() { Unload(); }
  EngineLibrary(const EngineLibrary&) = delete;
  EngineLibrary& operator=(const EngineLibrary&) = delete;

  void Unload();

  // Shorthands. Texts come as the library gives them: 8-bit, in the device's code page.

  std::string SensorName(int index) const;
  std::string SensorValue(int index) const;
  std::string RegistryString(int index) const;
  std::string PortName() const;
  std::string LogFolder() const;
  std::string SmsText() const;
  std::string SmsAddress() const;
  std::string IniValue(LPCWSTR section, LPCWSTR key) const;
  std::string WidgetName(int index) const;

#define FEROLIN_MEMBER(name) decltype(&::name) name = nullptr;
  FEROLIN_EXPORTS(FEROLIN_MEMBER)
#undef FEROLIN_MEMBER

 private:
  HMODULE module;
};

}  // namespace e2e
