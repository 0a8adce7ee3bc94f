#include "engine/Engine.h"

#include <pm.h>

#include <algorithm>
#include <new>

#include "base/CodePage.h"
#include "events/SpeedEvents.h"
#include "gps/FixRecord.h"
#include "sensors/LocalizedText.h"
#include "sensors/Sensor.h"
#include "settings/IniStore.h"
#include "sms/SmsReporter.h"
#include "track/TrackKmlWriter.h"
#include "widgets/Widget.h"

namespace ferolin {

namespace {

// The two spellings name one file: the device's file system does not tell letter cases apart.
constexpr const char* SETTINGS_FILE_TO_LOAD = "Tachymo.ini";
constexpr const char* SETTINGS_FILE_TO_SAVE = "TachyMo.ini";

/// Cut to the buffer and terminated, like everything that the host hands over.
template <class Character, std::size_t N>
void CopyText(std::array<Character, N>& buffer, std::basic_string_view<Character> text) {
  buffer[text.copy(buffer.data(), N - 1)] = 0;
}

}  // namespace

Engine::Engine()
    : fix(new (std::nothrow) FixRecord),
      locale(new (std::nothrow) LocaleHelper),
      iniStore(new (std::nothrow) IniStore),
      smsReporter(fix ? new (std::nothrow) SmsReporter(*fix) : nullptr),
      speedEvents(new (std::nothrow) SpeedEvents) {
  if (!IsComplete()) {
    return;
  }
  BuildSensorTable();
  BuildWidgetTable();
  wndMessageId = RegisterWindowMessageW(TEXT("UpdateGPS"));
}

Engine::~Engine() = default;

bool Engine::IsComplete() const {
  return fix && locale && iniStore && smsReporter && speedEvents;
}

void Engine::AttachModule(HMODULE module) {
  moduleHandle = module;
  if (moduleHandle == nullptr) {
    return;
  }
  constexpr DWORD PATH_SIZE = 256;
  WCHAR path[PATH_SIZE] = {};
  GetModuleFileNameW(moduleHandle, path, PATH_SIZE);
  path[PATH_SIZE - 1] = 0;
  const WideStringView whole = path;
  CopyText(moduleDir, whole.substr(0, whole.rfind('\\')));
  LoadAllSettings();
  AddFontResourceW(GetFontPath().c_str());
  for (int index = 0; index < widgetCount; ++index) {
    GetWidget(index)->LoadSettings(*iniStore);
  }
}

void Engine::LoadAllSettings() {
  iniStore->Load(GetSettingsPath(SETTINGS_FILE_TO_LOAD));
  const LockGuard guard(dataLock);
  smsReporter->LoadSettings(*iniStore);
  speedEvents->LoadSettings(GetModuleDir(), *iniStore);
}

void Engine::Shutdown() {
  if (writeKml) {
    WriteTrackKml(fix->track, GetLogFolder());
  }
  for (int index = 0; index < widgetCount; ++index) {
    GetWidget(index)->SaveSettings(*iniStore);
  }
  smsReporter->SaveSettings(*iniStore);
  speedEvents->SaveSettings(*iniStore);
  iniStore->Save(GetSettingsPath(SETTINGS_FILE_TO_SAVE));
  renderWindow = nullptr;
  StopReader();
  DropReader();
  if (powerRequirement != INVALID_HANDLE_VALUE &&
      ReleasePowerRequirement(powerRequirement) == ERROR_SUCCESS) {
    powerRequirement = INVALID_HANDLE_VALUE;
  }
  RemoveFontResourceW(GetFontPath().c_str());
  hostWindow = nullptr;
  wndMessageId = 0;
}

std::string Engine::GetSettingsPath(const char* fileName) const {
  return Narrow(moduleDir.data()) + '\\' + fileName;
}

WideString Engine::GetFontPath() const {
  return GetModuleDir() + TEXT("\\lcd-u.ttf");
}

int Engine::SetComPortName(LPCWSTR name) {
  NarrowInto(comPortName.data(), comPortName.size(), name);
  return IsReaderRunning() ? StartReader() : 1;
}

int Engine::SetUseGpsApi(DWORD use) {
  useGpsApi = use;
  return IsReaderRunning() ? StartReader() : 1;
}

void Engine::SetLogFolder(LPCWSTR path) {
  if (*path != 0) {
    CopyText(logFolder, WideStringView(path));
  }
}

WideString Engine::GetLogFolder() {
  if (logFolder[0] == 0) {
    CopyText<WCHAR>(logFolder, GetModuleDir() + TEXT("\\Tracks"));
  }
  return logFolder.data();
}

Sensor* Engine::GetSensor(int index) const {
  return index >= 0 && index < sensorCount ? sensors[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

Widget* Engine::GetWidget(int index) const {
  return index >= 0 && index < widgetCount ? widgets[static_cast<std::size_t>(index)].get()
                                           : nullptr;
}

bool Engine::CanSendSms() const {
  return smsReporter->CanSend();
}

void Engine::PostToHost(UINT message, WPARAM wParam, LPARAM lParam) const {
  const HWND window = hostWindow;
  if (window != nullptr && IsWindow(window)) {
    PostMessageW(window, message, wParam, lParam);
  }
}

}  // namespace ferolin
