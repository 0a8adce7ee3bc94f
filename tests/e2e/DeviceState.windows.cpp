#include "DeviceState.windows.h"

#include <mmsystem.h>

#include <algorithm>
#include <cstring>
#include <cwchar>

// Here the system's own calls are meant.
#undef CloseHandle
#undef CreateFileW

namespace e2e {

DeviceState* theState = nullptr;

namespace {

constexpr ULONGLONG UNITS_PER_HOUR = 36'000'000'000;
constexpr UINT LATIN_CODE_PAGE = 1252;
constexpr UINT CYRILLIC_CODE_PAGE = 1251;

ULONGLONG ToNumber(const FILETIME& time) {
  return ULONGLONG{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

FILETIME ToFileTime(ULONGLONG number) {
  return {static_cast<DWORD>(number), static_cast<DWORD>(number >> 32)};
}

ULONGLONG ToLocal(ULONGLONG utc) {
  return utc + static_cast<ULONGLONG>(theState->zoneHours) * UNITS_PER_HOUR;
}

ULONGLONG ToUtc(ULONGLONG local) {
  return local - static_cast<ULONGLONG>(theState->zoneHours) * UNITS_PER_HOUR;
}

/// Caller holds the lock.
ULONGLONG Now() {
  if (theState->isClockStopped) {
    return theState->clockBase;
  }
  FILETIME real;
  GetSystemTimeAsFileTime(&real);
  const auto passed = static_cast<double>(ToNumber(real) - theState->clockBaseReal);
  return theState->clockBase + static_cast<ULONGLONG>(passed * theState->timeRate);
}

void WINAPI GetLocalTimeDouble(SYSTEMTIME* local) {
  const Lock guard(theState->lock);
  const FILETIME now = ToFileTime(ToLocal(Now()));
  FileTimeToSystemTime(&now, local);
}

BOOL WINAPI FileTimeToLocalFileTimeDouble(const FILETIME* utc, FILETIME* local) {
  const Lock guard(theState->lock);
  *local = ToFileTime(ToLocal(ToNumber(*utc)));
  return TRUE;
}

BOOL WINAPI LocalFileTimeToFileTimeDouble(const FILETIME* local, FILETIME* utc) {
  const Lock guard(theState->lock);
  *utc = ToFileTime(ToUtc(ToNumber(*local)));
  return TRUE;
}

void WINAPI SleepDouble(DWORD milliseconds) {
  double rate = 1;
  {
    const Lock guard(theState->lock);
    rate = theState->timeRate;
  }
  Sleep(static_cast<DWORD>(milliseconds / rate));
}

int WINAPI GetLocaleInfoDouble(LCID locale, LCTYPE type, LPWSTR data, int size) {
  if (type != LOCALE_SABBREVLANGNAME) {
    return GetLocaleInfoW(locale, type, data, size);
  }
  const wchar_t* const name = theState->isRussian ? L"RUS" : L"ENU";
  const int length = static_cast<int>(std::wcslen(name)) + 1;
  if (size >= length) {
    std::wcscpy(data, name);
  }
  return length;
}

UINT CodePage(UINT wanted) {
  if (wanted != CP_ACP) {
    return wanted;
  }
  return theState->isRussian ? CYRILLIC_CODE_PAGE : LATIN_CODE_PAGE;
}

int WINAPI MultiByteToWideCharDouble(UINT codePage, DWORD flags, LPCSTR text, int length,
                                     LPWSTR wide, int wideSize) {
  return MultiByteToWideChar(CodePage(codePage), flags, text, length, wide, wideSize);
}

int WINAPI WideCharToMultiByteDouble(UINT codePage, DWORD flags, LPCWSTR wide, int wideLength,
                                     LPSTR text, int size, LPCSTR defaultCharacter,
                                     BOOL* usedDefault) {
  return WideCharToMultiByte(CodePage(codePage), flags, wide, wideLength, text, size,
                             defaultCharacter, usedDefault);
}

BOOL WINAPI GetSystemPowerStatusDouble(SYSTEM_POWER_STATUS* status) {
  const Lock guard(theState->lock);
  *status = {};
  status->BatteryFlag = theState->batteryFlag;
  status->BatteryLifePercent = theState->batteryPercent;
  return TRUE;
}

EXECUTION_STATE WINAPI SetThreadExecutionStateDouble(EXECUTION_STATE) {
  const Lock guard(theState->lock);
  ++theState->idleTimerResets;
  return ES_SYSTEM_REQUIRED;
}

HANDLE WINAPI PowerCreateRequestDouble(REASON_CONTEXT*) {
  const Lock guard(theState->lock);
  const HANDLE request = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  theState->requirements.insert(request);
  ++theState->requirementsTaken;
  return request;
}

BOOL WINAPI PowerSetRequestDouble(HANDLE, POWER_REQUEST_TYPE) {
  return TRUE;
}

BOOL WINAPI CloseHandleDouble(HANDLE object) {
  {
    const Lock guard(theState->lock);
    theState->requirements.erase(object);
  }
  return CloseHandle(object);
}

HANDLE WINAPI CreateFileDouble(LPCWSTR fileName, DWORD access, DWORD shareMode,
                               SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                               HANDLE templateFile) {
  constexpr std::wstring_view DEVICES = L"\\\\.\\";
  std::wstring name = fileName;
  if (name.starts_with(DEVICES)) {
    const Lock guard(theState->lock);
    const auto port = theState->ports.find(name.substr(DEVICES.size()));
    if (port == theState->ports.end()) {
      SetLastError(ERROR_FILE_NOT_FOUND);
      return INVALID_HANDLE_VALUE;
    }
    name = port->second;
  }
  return CreateFileW(name.c_str(), access, shareMode, security, disposition, attributes,
                     templateFile);
}

BOOL WINAPI PlaySoundDouble(LPCWSTR sound, HMODULE, DWORD) {
  if (GetFileAttributesW(sound) == INVALID_FILE_ATTRIBUTES) {
    return FALSE;
  }
  const Lock guard(theState->lock);
  theState->sounds.emplace_back(sound);
  return TRUE;
}

template <class Function>
FARPROC Erase(Function* function) {
  return reinterpret_cast<FARPROC>(reinterpret_cast<void (*)()>(function));
}

}  // namespace

std::vector<ImportDouble> MakeDoubles() {
  return {
      {"CloseHandle", Erase(&CloseHandleDouble)},
      {"CreateFileW", Erase(&CreateFileDouble)},
      {"FileTimeToLocalFileTime", Erase(&FileTimeToLocalFileTimeDouble)},
      {"GetLocaleInfoW", Erase(&GetLocaleInfoDouble)},
      {"GetLocalTime", Erase(&GetLocalTimeDouble)},
      {"GetSystemPowerStatus", Erase(&GetSystemPowerStatusDouble)},
      {"LocalFileTimeToFileTime", Erase(&LocalFileTimeToFileTimeDouble)},
      {"MultiByteToWideChar", Erase(&MultiByteToWideCharDouble)},
      {"PlaySoundW", Erase(&PlaySoundDouble)},
      {"PowerCreateRequest", Erase(&PowerCreateRequestDouble)},
      {"PowerSetRequest", Erase(&PowerSetRequestDouble)},
      {"SetThreadExecutionState", Erase(&SetThreadExecutionStateDouble)},
      {"Sleep", Erase(&SleepDouble)},
      {"WideCharToMultiByte", Erase(&WideCharToMultiByteDouble)},
  };
}

}  // namespace e2e
