// The functions of the engine that programs call.
#pragma once

#include <ferolin.h>
#include <windows.h>

/// Calls the macro USE with the name of every function of ferolin.h that programs call.
#define FEROLIN_FUNCTIONS(USE) \
  USE(StartCallBack)           \
  USE(StopCallBack)            \
  USE(GetWndMessageID)         \
  USE(SetComPortName)          \
  USE(GetComPortName)          \
  USE(SetComPortSpeed)         \
  USE(GetComPortSpeed)         \
  USE(SetUseGPSAPI)            \
  USE(IsUseGPSAPI)             \
  USE(GetSensorsCount)         \
  USE(GetSensorName)           \
  USE(GetSensorValue)          \
  USE(ResetSensorValue)        \
  USE(IsSensorSaveable)        \
  USE(GetSensorRegistryString) \
  USE(SetSensorRegistryString) \
  USE(GetWidgetsCount)         \
  USE(GetWidgetName)           \
  USE(GetCurRenderWidget)      \
  USE(SetCurRenderWidget)      \
  USE(SetRenderWindow)         \
  USE(GetInvertVert)           \
  USE(SetInvertVert)           \
  USE(GetInvertHorz)           \
  USE(SetInvertHorz)           \
  USE(GetInvertColor)          \
  USE(SetInvertColor)          \
  USE(GetInvertOrient)         \
  USE(SetInvertOrient)         \
  USE(OnDoubleClick)           \
  USE(OnMouseDown)             \
  USE(OnMouseMove)             \
  USE(OnMouseUp)               \
  USE(IsAlwaysTurnOn)          \
  USE(SetAlwaysTurnOn)         \
  USE(IsWriteKML)              \
  USE(SetWriteKML)             \
  USE(SetLogFolder)            \
  USE(IsRussianLocale)         \
  USE(SendSMS)                 \
  USE(IsSMSEnabled)            \
  USE(IsSMSSendIfChanged)      \
  USE(GetSMSInterval)          \
  USE(GetSMSText)              \
  USE(GetSMSAddress)           \
  USE(SetSMSParams)            \
  USE(IsSMSExist)              \
  USE(GetSpeedEventsCount)     \
  USE(GetBeepOnZero)           \
  USE(SetBeepOnZero)           \
  USE(GetUseEventSound)        \
  USE(GetEventSpeedLimit)      \
  USE(GetEventSpeedInter)      \
  USE(SetSpeedEvent)           \
  USE(GetIniFileValue)         \
  USE(SetIniFileValue)

namespace app {

/// The functions, named and documented as in ferolin.h.
struct EngineFunctions {
// A declared name stands without parentheses. NOLINTNEXTLINE(bugprone-macro-parentheses)
#define DECLARE(name) decltype(&::name) name = nullptr;
  FEROLIN_FUNCTIONS(DECLARE)
#undef DECLARE

  /// Takes the functions from the engine's library. Returns the name of one that is missing there;
  /// null when there are all.
  LPCWSTR Bind(HMODULE module);
};

}  // namespace app
