#pragma once

#include <gpsapi.h>
#include <windows.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "base/Lock.h"
#include "base/SharedWord.h"
#include "base/WideString.h"
#include "widgets/WidgetOwner.h"

namespace ferolin {

class FixRecord;
class IniStore;
class LocaleHelper;
class Sensor;
class SmsReport;
class SmsReporter;
class SpeedEvents;
class Widget;

/// The engine: one object for the whole process, made when the library is attached and deleted when
/// it is detached. It owns the fix with its track, the sensors, the views, the settings, SMS
/// reports and speed events, runs the reader thread, does what follows from every accepted
/// position, and has the current view redrawn.
///
/// Threads: the host's (all exports, attach, detach), the reader's (`OnUpdate` and all that it
/// calls) and one redraw thread at a time. `dataLock` guards the fix, the track, the sensors, the
/// views with the canvas, SMS reports and speed events. Nobody waits for a thread while holding it.
/// The single words beside them are SharedWords.
class Engine final : public WidgetOwner {
 public:
  static constexpr std::size_t MAX_WIDGETS = 10;
  static constexpr std::size_t MAX_SENSORS = 50;
  static constexpr std::size_t TEXT_SIZE = 260;
  static constexpr int KEEP_PORT_SPEED = -9999;

  Engine();
  ~Engine();
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // ---- Life-cycle, on the host's thread ----

  /// False when the memory for one of the owned objects could not be had. Such an engine can only
  /// be deleted.
  bool IsComplete() const;

  /// Start-up after construction: finds the library's folder, loads the settings file and registers
  /// the display font. A null module loads nothing.
  void AttachModule(HMODULE module);

  /// Writes the track (if chosen) and the settings, and gives back what the device lent. Called
  /// once, after StopCallBack and right before deletion.
  void Shutdown();

  // ---- Start and stop, on the host's thread ----

  /// Notifies `host` from now on and starts the reader unless it runs; null stops. 1 on success, 0
  /// when no thread could be started.
  int StartCallBack(HWND host);
  int StopCallBack();

  /// Stops the reader if it runs and starts it on the source now chosen. 1 when its thread was
  /// started, else 0.
  int StartReader();

  /// Ends the reader and waits for it; always 1.
  int StopReader();

  bool IsReaderRunning() const;

  // ---- Update cycle, on the reader's thread ----

  /// Takes one NMEA sentence or one position of the GPS API (null: none to be had). When it is
  /// accepted, everything that depends on the fix is brought up to date and the host is told.
  void OnUpdate(const char* sentence);
  void OnUpdate(const GPS_POSITION* position);

  // ---- Drawing, on any thread, without the data lock ----

  /// Has the current view drawn on a thread of its own, after waiting for the redraw before to end.
  /// Nothing happens when the render window is not to be seen or no view is current.
  void RequestRedraw() override;

  /// Posts to the host, unless it has stopped or its window is gone.
  void PostToHost(UINT message, WPARAM wParam, LPARAM lParam) const override;

  const FixRecord& GetFix() const override { return *fix; }
  bool CanSendSms() const override;
  HWND GetRenderWindow() const override { return renderWindow; }
  UINT GetMessageId() const override { return wndMessageId; }
  Lock& GetDataLock() const override { return dataLock; }

  // ---- Settings that the host makes, on the host's thread ----

  /// 1, or 0 when a running reader could not be restarted.
  int SetComPortName(LPCWSTR name);
  int SetUseGpsApi(DWORD use);
  const char* GetComPortName() const { return comPortName.data(); }

  /// An empty path is ignored.
  void SetLogFolder(LPCWSTR path);
  /// The folder set, or "Tracks" in the library's folder, which is then kept.
  WideString GetLogFolder();

  WideString GetModuleDir() const override { return moduleDir.data(); }

  /// Null for an index out of range.
  Sensor* GetSensor(int index) const override;
  int GetSensorCount() const override { return sensorCount; }

  /// Null for an index out of range.
  Widget* GetWidget(int index) const;
  int GetWidgetCount() const { return widgetCount; }
  Widget* GetCurrentWidget() const { return GetWidget(curRenderWidget); }

  SharedWord<DWORD> useGpsApi = 1;

 private:
  SharedWord<std::int32_t> gpsApiHandle = -1;  ///< -1 while the GPS API is not the running source

 public:
  SharedWord<std::int32_t> comPortSpeed = KEEP_PORT_SPEED;

 private:
  HMODULE moduleHandle = nullptr;
  std::array<std::unique_ptr<Widget>, MAX_WIDGETS> widgets;
  std::int32_t widgetCount = 0;
  std::array<std::unique_ptr<Sensor>, MAX_SENSORS> sensors;
  std::int32_t sensorCount = 0;
  SharedWord<HANDLE> powerRequirement = INVALID_HANDLE_VALUE;
  SharedWord<HANDLE> readerThread = INVALID_HANDLE_VALUE;
  HANDLE redrawThread = INVALID_HANDLE_VALUE;  ///< the last one started; guarded by redrawLock

 public:
  std::unique_ptr<FixRecord> fix;

 private:
  SharedWord<HANDLE> comPort = INVALID_HANDLE_VALUE;
  std::array<char, TEXT_SIZE> comPortName = {};
  std::array<WCHAR, TEXT_SIZE> moduleDir = {};

 public:
  SharedWord<DWORD> alwaysTurnOn = 0;

 private:
  SharedWord<HWND> hostWindow = nullptr;

 public:
  SharedWord<HWND> renderWindow = nullptr;
  SharedWord<std::int32_t> curRenderWidget = -1;
  SharedWord<UINT> wndMessageId = 0;
  SharedWord<std::uint8_t> writeKml = 0;

 private:
  std::array<WCHAR, TEXT_SIZE> logFolder = {};

 public:
  std::unique_ptr<LocaleHelper> locale;
  std::unique_ptr<IniStore> iniStore;
  std::unique_ptr<SmsReporter> smsReporter;
  std::unique_ptr<SpeedEvents> speedEvents;

  mutable Lock dataLock;

 private:
  /// Held from before the wait for one redraw until the next is started, so that there are never
  /// two. The redraw thread never takes it.
  Lock redrawLock;

  void BuildSensorTable();
  void BuildWidgetTable();
  void LoadAllSettings();
  std::string GetSettingsPath(const char* fileName) const;
  WideString GetFontPath() const;

  bool OpenComPort();
  void CloseSource();
  void DropReader();
  void ReadSerialPort();
  void PollGpsApi();
  static DWORD WINAPI ReaderThreadProc(LPVOID argument);

  SmsReport UpdateFromFix();
  void FinishUpdate(const SmsReport& report);
  void KeepPower();

  bool CanRedraw() const;
  void WaitForRedraw();
  void Redraw();
  static DWORD WINAPI RedrawThreadProc(LPVOID argument);
};

/// The one engine; null before attach and after detach, or when its memory could not be had.
extern Engine* theEngine;

/// Attaches (DLL_PROCESS_ATTACH) and detaches (DLL_PROCESS_DETACH) the library. Called by the
/// loader on the host's thread; always TRUE.
extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID reserved);

}  // namespace ferolin
