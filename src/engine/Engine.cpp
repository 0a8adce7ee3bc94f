#include "engine/Engine.h"

#include "base/CodePage.h"
#include "sensors/LocalizedText.h"
#include "track/TrackKmlWriter.h"

namespace ferolin {

namespace {

// The two spellings name one file: the device's file system does not tell letter cases apart.
constexpr const char* SETTINGS_FILE_TO_LOAD = "Tachymo.ini";
constexpr const char* SETTINGS_FILE_TO_SAVE = "TachyMo.ini";

/// Copies `text` into `buffer`, cut to fit and terminated.
template <class Character, std::size_t N>
void CopyText(std::array<Character, N>& buffer, std::basic_string_view<Character> text) {
  buffer[text.copy(buffer.data(), N - 1)] = 0;
}

}  // namespace

Engine::Engine() {
  IsRussianLocale();  // asked here, before other threads read the answer
  wndMessageId = RegisterWindowMessageW(TEXT("UpdateGPS"));
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
  widgets.LoadSettings(iniStore);
}

void Engine::LoadAllSettings() {
  iniStore.Load(GetSettingsPath(SETTINGS_FILE_TO_LOAD));
  const LockGuard guard(dataLock);
  smsReporter.LoadSettings(iniStore);
  speedEvents.LoadSettings(GetModuleDir(), iniStore);
}

void Engine::Shutdown() {
  if (writeKml) {
    WriteTrackKml(fix.GetTrack(), GetLogFolder());
  }
  widgets.SaveSettings(iniStore);
  smsReporter.SaveSettings(iniStore);
  speedEvents.SaveSettings(iniStore);
  iniStore.Save(GetSettingsPath(SETTINGS_FILE_TO_SAVE));
  redraw.SetRenderWindow(nullptr);
  StopReader();
  reader.Release();
  powerKeeper.Release();
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

bool Engine::StartCallBack(HWND host) {
  hostWindow = host;
  if (host == nullptr) {
    StopReader();
    return true;
  }
  return reader.IsRunning() || StartReader();
}

void Engine::StopCallBack() {
  hostWindow = nullptr;
  StopReader();
  redraw.Wait();
}

bool Engine::StartReader() {
  StopReader();
  return reader.Start();
}

/// Without a running reader nothing is stopped or waited for.
void Engine::StopReader() {
  if (reader.IsRunning()) {
    reader.Stop();
    redraw.Wait();
  }
}

bool Engine::SetComPortName(LPCWSTR name) {
  reader.SetComPortName(name);
  return !reader.IsRunning() || StartReader();
}

bool Engine::SetUseGpsApi(DWORD use) {
  reader.SetUseGpsApi(use);
  return !reader.IsRunning() || StartReader();
}

void Engine::OnUpdate(const char* sentence) {
  SmsReport report;
  {
    const LockGuard guard(dataLock);
    if (!fix.ParseSentence(sentence)) {
      return;
    }
    report = UpdateFromFix();
  }
  FinishUpdate(report);
}

void Engine::OnUpdate(const GPS_POSITION* position) {
  SmsReport report;
  {
    const LockGuard guard(dataLock);
    fix.ApplyGpsPosition(position);
    report = UpdateFromFix();
  }
  FinishUpdate(report);
}

/// Sensors, views and the report of the fix, under the data lock.
SmsReport Engine::UpdateFromFix() {
  sensors.Update(fix);
  widgets.Attach();
  return smsReporter.Tick();
}

/// The steps that call other programs, without the data lock: sending may take seconds.
void Engine::FinishUpdate(const SmsReport& report) {
  report.Send();
  {
    const LockGuard guard(dataLock);
    speedEvents.Check(fix);
  }
  PostToHost(wndMessageId, 0, 0);
  powerKeeper.Update();
  RequestRedraw();
}

void Engine::PostToHost(UINT message, WPARAM wParam, LPARAM lParam) const {
  const HWND window = hostWindow;
  if (window != nullptr && IsWindow(window)) {
    PostMessageW(window, message, wParam, lParam);
  }
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

}  // namespace ferolin
