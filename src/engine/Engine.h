#pragma once

#include <gpsapi.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <string>

#include "base/Lock.h"
#include "base/SharedWord.h"
#include "base/WideString.h"
#include "engine/PowerKeeper.h"
#include "engine/Reader.h"
#include "engine/Redraw.h"
#include "engine/SensorTable.h"
#include "engine/WidgetTable.h"
#include "events/SpeedEvents.h"
#include "gps/FixRecord.h"
#include "settings/IniStore.h"
#include "sms/SmsReporter.h"
#include "widgets/BarCountdown.h"
#include "widgets/WidgetOwner.h"

namespace ferolin {

/// The engine: one object for the whole process, made when the library is attached and deleted when
/// it is detached. It owns everything else and does what follows from every accepted position.
///
/// Threads: the host's (all exports, attach, detach), the reader's (`OnUpdate` and all that it
/// calls) and one redraw thread at a time. The data lock guards the fix, the track, the sensors,
/// the views with the canvas, SMS reports and speed events. Nobody waits for a thread while holding
/// it. The settings store belongs to the host's thread.
class Engine final : public WidgetOwner, public PositionSink {
 public:
  static constexpr std::size_t TEXT_SIZE = 260;

  Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // ---- Life-cycle, on the host's thread ----

  /// Start-up after construction: finds the library's folder, loads the settings file and registers
  /// the display font. A null module loads nothing.
  void AttachModule(HMODULE module);

  /// Writes the track (if chosen) and the settings, and gives back what the device lent. Called
  /// once, after StopCallBack and right before deletion.
  void Shutdown();

  // ---- Start and stop, on the host's thread ----

  /// Notifies `host` from now on and starts the reader unless it runs; null stops. False when the
  /// reader could not be started.
  bool StartCallBack(HWND host);
  /// Returns when the reader and the last frame have ended.
  void StopCallBack();

  /// Chooses the port or the source; a running reader is started anew on it. False when that
  /// failed.
  bool SetComPortName(LPCWSTR name);
  bool SetUseGpsApi(DWORD use);

  // ---- Update cycle, on the reader's thread ----

  /// When the sentence or position is accepted, everything that depends on the fix is brought up to
  /// date and the host is told.
  void OnUpdate(const char* sentence) override;
  void OnUpdate(const GPS_POSITION* position) override;

  // ---- What views ask for ----

  const FixRecord& GetFix() const override { return fix; }
  const Sensor* GetSensor(int index) const override { return sensors.Get(index); }
  int GetSensorCount() const override { return sensors.GetCount(); }
  BarCountdown& GetBarCountdown() override { return barCountdown; }
  Lock& GetDataLock() const override { return dataLock; }
  WideString GetModuleDir() const override { return moduleDir.data(); }
  bool CanSendSms() const override { return smsReporter.CanSend(); }
  HWND GetRenderWindow() const override { return redraw.GetRenderWindow(); }
  void RequestRedraw() override { redraw.Request(); }
  UINT GetMessageId() const override { return wndMessageId; }
  void PostToHost(UINT message, WPARAM wParam, LPARAM lParam) const override;

  // ---- What the host asks for, on its thread ----

  FixRecord& GetFix() { return fix; }
  SensorTable& GetSensors() { return sensors; }
  WidgetTable& GetWidgets() { return widgets; }
  Reader& GetReader() { return reader; }
  Redraw& GetRedraw() { return redraw; }
  PowerKeeper& GetPowerKeeper() { return powerKeeper; }
  IniStore& GetIniStore() { return iniStore; }
  SmsReporter& GetSmsReporter() { return smsReporter; }
  SpeedEvents& GetSpeedEvents() { return speedEvents; }

  /// Any value but 0 has the track written at shutdown.
  std::uint8_t GetWriteKml() const { return writeKml; }
  void SetWriteKml(std::uint8_t flag) { writeKml = flag; }

  /// An empty path is ignored.
  void SetLogFolder(LPCWSTR path);
  /// The folder set, or "Tracks" in the library's folder, which is then kept.
  WideString GetLogFolder();

 private:
  void LoadAllSettings();
  std::string GetSettingsPath(const char* fileName) const;
  WideString GetFontPath() const;
  bool StartReader();
  void StopReader();
  SmsReport UpdateFromFix();
  void FinishUpdate(const SmsReport& report);

  mutable Lock dataLock;
  HMODULE moduleHandle = nullptr;
  FixRecord fix;
  IniStore iniStore;
  SmsReporter smsReporter{fix};
  SpeedEvents speedEvents;
  SensorTable sensors{fix};
  BarCountdown barCountdown;
  WidgetTable widgets{*this};
  Reader reader{*this};
  Redraw redraw{widgets, dataLock};
  PowerKeeper powerKeeper;
  std::array<WCHAR, TEXT_SIZE> moduleDir = {};
  SharedWord<HWND> hostWindow = nullptr;
  SharedWord<UINT> wndMessageId = 0;
  SharedWord<std::uint8_t> writeKml = 0;
  std::array<WCHAR, TEXT_SIZE> logFolder = {};
};

/// The one engine; null before attach and after detach, or when its memory could not be had.
extern Engine* theEngine;

/// Attaches (DLL_PROCESS_ATTACH) and detaches (DLL_PROCESS_DETACH) the library. Called by the
/// loader on the host's thread; always TRUE.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

}  // namespace ferolin
