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

template <class Object>
Object KeepCount(Object made) {
  if (made != nullptr) {
    const Lock guard(theState->lock);
    theState->drawingObjects.insert(made);
  }
  return made;
}

HDC WINAPI CreateCompatibleDCDouble(HDC model) {
  return KeepCount(CreateCompatibleDC(model));
}

HBITMAP WINAPI CreateCompatibleBitmapDouble(HDC model, int width, int height) {
  return KeepCount(CreateCompatibleBitmap(model, width, height));
}

HBITMAP WINAPI CreateDIBSectionDouble(HDC dc, const BITMAPINFO* info, UINT usage, void** bits,
                                      HANDLE section, DWORD offset) {
  return KeepCount(CreateDIBSection(dc, info, usage, bits, section, offset));
}

/// Called before the deletion: another thread may get the same handle right after it.
void ForgetDrawingObject(HGDIOBJ object) {
  const Lock guard(theState->lock);
  theState->drawingObjects.erase(object);
}

BOOL WINAPI DeleteDCDouble(HDC dc) {
  ForgetDrawingObject(dc);
  return DeleteDC(dc);
}

BOOL WINAPI DeleteObjectDouble(HGDIOBJ object) {
  ForgetDrawingObject(object);
  return DeleteObject(object);
}

WindowSurface MakeSurface(const RECT& client) {
  WindowSurface surface;
  surface.width = client.right;
  surface.height = client.bottom;
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = client.right;
  info.bmiHeader.biHeight = -client.bottom;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* pixels = nullptr;
  surface.dc = CreateCompatibleDC(nullptr);
  surface.bitmap = CreateDIBSection(surface.dc, &info, DIB_RGB_COLORS, &pixels, nullptr, 0);
  surface.pixels = static_cast<const std::uint32_t*>(pixels);
  SelectObject(surface.dc, surface.bitmap);
  return surface;
}

void DeleteSurface(const WindowSurface& surface) {
  DeleteDC(surface.dc);
  DeleteObject(surface.bitmap);
}

/// The suite's windows have no frame, so one surface of the window's size serves each.
HDC WINAPI GetDCDouble(HWND window) {
  RECT client = {};
  if (!GetClientRect(window, &client)) {
    return GetDC(window);
  }
  const Lock guard(theState->lock);
  WindowSurface& surface = theState->surfaces[window];
  if (surface.dc == nullptr || surface.width != client.right || surface.height != client.bottom) {
    DeleteSurface(surface);
    surface = MakeSurface(client);
  }
  return surface.dc;
}

WindowSurface* FindSurface(HDC dc) {
  for (auto& [window, surface] : theState->surfaces) {
    if (surface.dc == dc) {
      return &surface;
    }
  }
  return nullptr;
}

int WINAPI ReleaseDCDouble(HWND window, HDC dc) {
  const Lock guard(theState->lock);
  return FindSurface(dc) != nullptr ? 1 : ReleaseDC(window, dc);
}

/// Under the lock, so that a test sees whole frames.
BOOL WINAPI BitBltDouble(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                         int sourceY, DWORD operation) {
  const Lock guard(theState->lock);
  const BOOL result = BitBlt(dc, x, y, width, height, source, sourceX, sourceY, operation);
  GdiFlush();
  if (WindowSurface* const surface = FindSurface(dc); surface != nullptr) {
    ++surface->version;
  }
  return result;
}

}  // namespace

std::vector<ImportDouble> MakeDoubles() {
  return {
      {"BitBlt", Erase(&BitBltDouble)},
      {"CloseHandle", Erase(&CloseHandleDouble)},
      {"CreateCompatibleBitmap", Erase(&CreateCompatibleBitmapDouble)},
      {"CreateCompatibleDC", Erase(&CreateCompatibleDCDouble)},
      {"CreateDIBSection", Erase(&CreateDIBSectionDouble)},
      {"CreateFileW", Erase(&CreateFileDouble)},
      {"DeleteDC", Erase(&DeleteDCDouble)},
      {"DeleteObject", Erase(&DeleteObjectDouble)},
      {"FileTimeToLocalFileTime", Erase(&FileTimeToLocalFileTimeDouble)},
      {"GetDC", Erase(&GetDCDouble)},
      {"GetLocaleInfoW", Erase(&GetLocaleInfoDouble)},
      {"GetLocalTime", Erase(&GetLocalTimeDouble)},
      {"GetSystemPowerStatus", Erase(&GetSystemPowerStatusDouble)},
      {"GetWindowDC", Erase(&GetDCDouble)},
      {"LocalFileTimeToFileTime", Erase(&LocalFileTimeToFileTimeDouble)},
      {"MultiByteToWideChar", Erase(&MultiByteToWideCharDouble)},
      {"PlaySoundW", Erase(&PlaySoundDouble)},
      {"PowerCreateRequest", Erase(&PowerCreateRequestDouble)},
      {"PowerSetRequest", Erase(&PowerSetRequestDouble)},
      {"ReleaseDC", Erase(&ReleaseDCDouble)},
      {"SetThreadExecutionState", Erase(&SetThreadExecutionStateDouble)},
      {"Sleep", Erase(&SleepDouble)},
      {"WideCharToMultiByte", Erase(&WideCharToMultiByteDouble)},
  };
}

}  // namespace e2e
