#include "DeviceCalls.h"

#include <handheld.h>
#include <mmsystem.h>
#include <pm.h>

#include <mutex>
#include <span>
#include <string_view>

#include "base/Format.h"
#include "engine/Engine.h"
#include "render/Canvas.h"

namespace ferolin {

namespace calls {

std::atomic<int> failingPortReads = 0;
std::atomic<bool> isSetCommStateFailing = false;
WideString modulePath;

namespace {

std::mutex stepsMutex;
std::vector<std::string> steps;
std::atomic<HANDLE> port = INVALID_HANDLE_VALUE;
bool hasSmsLibrary = false;
LPTHREAD_START_ROUTINE readerProcedure = nullptr;

void Note(const std::string& step) {
  const std::lock_guard lock(stepsMutex);
  steps.push_back(step);
}

void NoteSensorWithText(const char* text) {
  for (int index = 0; theEngine != nullptr && index < theEngine->GetSensorCount(); ++index) {
    if (theEngine->GetSensor(index)->GetValueText() == text) {
      Note("sensor " + std::to_string(index));
    }
  }
}

void NoteView(const Widget* widget) {
  for (int index = 0; theEngine != nullptr && index < theEngine->GetWidgets().GetCount(); ++index) {
    if (theEngine->GetWidgets().Get(index) == widget) {
      Note("view " + std::to_string(index));
    }
  }
}

void NoteFile(std::u16string_view path) {
  if (path.ends_with(u".kml")) {
    Note("track");
  } else if (path.find(u"TachyMo.ini") != std::u16string_view::npos) {
    Note("settings");
  }
}

void WINAPI SendSms(LPCWSTR, LPCSTR) {
  Note("SMS");
}

DWORD WINAPI RunReader(LPVOID reader) {
  const DWORD result = readerProcedure(reader);
  Note("reader ended");
  return result;
}

}  // namespace

void Reset() {
  ForgetSteps();
  failingPortReads = 0;
  isSetCommStateFailing = false;
  modulePath.clear();
  hasSmsLibrary = false;
}

void ForgetSteps() {
  const std::lock_guard lock(stepsMutex);
  steps.clear();
}

std::vector<std::string> Steps() {
  const std::lock_guard lock(stepsMutex);
  return steps;
}

void InstallSmsLibrary() {
  hasSmsLibrary = true;
}

}  // namespace calls

using namespace calls;

// The linker sends the program's calls through here; the names are its. Those of C++ functions are
// the names that the compiler gives them.
#define WRAPPED_FORMAT_ARGUMENTS                                           \
  "_ZN7ferolin15FormatArgumentsEPcmSt17basic_string_viewIcSt11char_traits" \
  "IcEESt4spanIKNS_14FormatArgumentELm18446744073709551615EE"
#define WRAPPED_ATTACH "_ZN7ferolin6Widget6AttachEv"

std::size_t RealFormatArguments(
    char* out, std::size_t size, std::string_view format,
    std::span<const FormatArgument> arguments) asm("__real_" WRAPPED_FORMAT_ARGUMENTS);
std::size_t WrapFormatArguments(
    char* out, std::size_t size, std::string_view format,
    std::span<const FormatArgument> arguments) asm("__wrap_" WRAPPED_FORMAT_ARGUMENTS);
void RealAttach(Widget* self) asm("__real_" WRAPPED_ATTACH);
void WrapAttach(Widget* self) asm("__wrap_" WRAPPED_ATTACH);

std::size_t WrapFormatArguments(char* out, std::size_t size, std::string_view format,
                                std::span<const FormatArgument> arguments) {
  NoteSensorWithText(out);
  return RealFormatArguments(out, size, format, arguments);
}

void WrapAttach(Widget* self) {
  NoteView(self);
  RealAttach(self);
}

extern "C" {

HANDLE WINAPI __real_CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                 SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                                 HANDLE templateFile);
HANDLE WINAPI __real_CreateThread(SECURITY_ATTRIBUTES* security, DWORD stackSize,
                                  LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                                  LPDWORD threadId);
BOOL WINAPI __real_DeleteDC(HDC dc);
DWORD WINAPI __real_GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size);
FARPROC WINAPI __real_GetProcAddressW(HMODULE module, LPCWSTR name);
HMODULE WINAPI __real_LoadLibraryW(LPCWSTR fileName);
BOOL WINAPI __real_PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI __real_ReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                            OVERLAPPED* overlapped);
BOOL WINAPI __real_SetCommState(HANDLE port, DCB* settings);
HANDLE WINAPI __real_SetPowerRequirement(LPVOID device, CEDEVICE_POWER_STATE state, ULONG flags,
                                         LPVOID systemState, ULONG stateFlags);
BOOL WINAPI __real_SetThreadPriority(HANDLE thread, int priority);
void WINAPI __real_SystemIdleTimerReset();

HANDLE WINAPI __wrap_CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                 SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                                 HANDLE templateFile) {
  const std::u16string_view path = fileName;
  if ((access & GENERIC_WRITE) != 0) {
    NoteFile(path);
  }
  const HANDLE file = __real_CreateFileW(fileName, access, shareMode, security, disposition,
                                         attributes, templateFile);
  if (path.ends_with(u':')) {
    port = file;
  }
  return file;
}

HANDLE WINAPI __wrap_CreateThread(SECURITY_ATTRIBUTES* security, DWORD stackSize,
                                  LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                                  LPDWORD threadId) {
  if (theEngine != nullptr && argument == &theEngine->GetReader()) {
    readerProcedure = procedure;
    procedure = &RunReader;
  }
  return __real_CreateThread(security, stackSize, procedure, argument, flags, threadId);
}

BOOL WINAPI __wrap_DeleteDC(HDC dc) {
  if (dc == theCanvas.GetDrawingDC()) {
    Note("canvas freed");
  }
  return __real_DeleteDC(dc);
}

DWORD WINAPI __wrap_GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size) {
  if (modulePath.empty()) {
    return __real_GetModuleFileNameW(module, fileName, size);
  }
  const std::size_t length = modulePath.copy(fileName, size - 1);
  fileName[length] = 0;
  return static_cast<DWORD>(length);
}

FARPROC WINAPI __wrap_GetProcAddressW(HMODULE module, LPCWSTR name) {
  if (hasSmsLibrary && name == WideString(u"SendParlex")) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(&SendSms));
  }
  return __real_GetProcAddressW(module, name);
}

HMODULE WINAPI __wrap_LoadLibraryW(LPCWSTR fileName) {
  const bool isSms = hasSmsLibrary && fileName == WideString(u"Parlex.DLL");
  return __real_LoadLibraryW(isSms ? handheld::DevicePath(ANY_LIBRARY).c_str() : fileName);
}

BOOL WINAPI __wrap_PlaySoundW(LPCWSTR, HMODULE, DWORD) {
  Note("sound");
  return TRUE;
}

BOOL WINAPI __wrap_PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  Note("message");
  return __real_PostMessageW(window, message, wParam, lParam);
}

BOOL WINAPI __wrap_ReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                            OVERLAPPED* overlapped) {
  if (file == port && failingPortReads > 0) {
    --failingPortReads;
    return FALSE;
  }
  return __real_ReadFile(file, buffer, toRead, read, overlapped);
}

BOOL WINAPI __wrap_SetCommState(HANDLE serialPort, DCB* settings) {
  return !isSetCommStateFailing && __real_SetCommState(serialPort, settings);
}

HANDLE WINAPI __wrap_SetPowerRequirement(LPVOID device, CEDEVICE_POWER_STATE state, ULONG flags,
                                         LPVOID systemState, ULONG stateFlags) {
  Note("backlight");
  return __real_SetPowerRequirement(device, state, flags, systemState, stateFlags);
}

BOOL WINAPI __wrap_SetThreadPriority(HANDLE thread, int priority) {
  Note("redraw");
  return __real_SetThreadPriority(thread, priority);
}

void WINAPI __wrap_SystemIdleTimerReset() {
  Note("idle timer");
  __real_SystemIdleTimerReset();
}
}

}  // namespace ferolin
