// Core services of the device: files, serial ports, threads, time, modules, power status.
#pragma once

#include <windef.h>

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

struct FILETIME {
  DWORD dwLowDateTime;
  DWORD dwHighDateTime;
};

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;
  WORD wDayOfWeek;
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

// Files.

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_INVALID_HANDLE = 6;
constexpr DWORD ERROR_GEN_FAILURE = 31;
constexpr DWORD ERROR_SHARING_VIOLATION = 32;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND = 127;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
constexpr DWORD ERROR_OPERATION_ABORTED = 995;
constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;

struct SECURITY_ATTRIBUTES;
struct OVERLAPPED;

struct WIN32_FIND_DATAW {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
  DWORD dwOID;
  WCHAR cFileName[MAX_PATH];
};

extern "C" {
DWORD WINAPI GetLastError();
HANDLE WINAPI CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode,
                          SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                          HANDLE templateFile);
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                     OVERLAPPED* overlapped);
BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD toWrite, LPDWORD written,
                      OVERLAPPED* overlapped);
BOOL WINAPI FlushFileBuffers(HANDLE file);
BOOL WINAPI CloseHandle(HANDLE object);
BOOL WINAPI DeleteFileW(LPCWSTR fileName);
BOOL WINAPI MoveFileW(LPCWSTR existingName, LPCWSTR newName);
BOOL WINAPI CreateDirectoryW(LPCWSTR path, SECURITY_ATTRIBUTES* security);
HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, WIN32_FIND_DATAW* found);
BOOL WINAPI FindClose(HANDLE search);
}

// Serial ports.

/// Settings of a serial port. 28 bytes; the flag bits are one word here, as this system does not
/// set them one by one.
struct DCB {
  DWORD DCBlength;
  DWORD BaudRate;
  DWORD flags;
  WORD wReserved;  // Unused.
  WORD XonLim;
  WORD XoffLim;
  BYTE ByteSize;
  BYTE Parity;
  BYTE StopBits;
  char XonChar;
  char XoffChar;
  char ErrorChar;
  char EofChar;
  char EvtChar;
  WORD wReserved1;  // Unused.
};
static_assert(sizeof(DCB) == 28);

extern "C" {
BOOL WINAPI GetCommState(HANDLE port, DCB* settings);
BOOL WINAPI SetCommState(HANDLE port, DCB* settings);
}

// Threads.

using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID argument);

constexpr DWORD STILL_ACTIVE = 259;

struct CRITICAL_SECTION {
  void* opaque[8];
};

extern "C" {
HANDLE WINAPI CreateThread(SECURITY_ATTRIBUTES* security, DWORD stackSize,
                           LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                           LPDWORD threadId);
BOOL WINAPI SetThreadPriority(HANDLE thread, int priority);
BOOL WINAPI GetExitCodeThread(HANDLE thread, LPDWORD exitCode);
void WINAPI Sleep(DWORD milliseconds);
void WINAPI InitializeCriticalSection(CRITICAL_SECTION* section);
void WINAPI EnterCriticalSection(CRITICAL_SECTION* section);
void WINAPI LeaveCriticalSection(CRITICAL_SECTION* section);
void WINAPI DeleteCriticalSection(CRITICAL_SECTION* section);
/// Opens the mutex of that name, which sets the last error to ERROR_ALREADY_EXISTS, or makes one. It
/// exists until all of its handles are closed. Used for its name only: nothing waits for it.
HANDLE WINAPI CreateMutexW(SECURITY_ATTRIBUTES* security, BOOL isOwner, LPCWSTR name);
}

// Time.

extern "C" {
DWORD WINAPI GetTickCount();
void WINAPI GetLocalTime(SYSTEMTIME* local);
BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* system, FILETIME* file);
BOOL WINAPI FileTimeToSystemTime(const FILETIME* file, SYSTEMTIME* system);
BOOL WINAPI FileTimeToLocalFileTime(const FILETIME* utc, FILETIME* local);
BOOL WINAPI LocalFileTimeToFileTime(const FILETIME* local, FILETIME* utc);
}

// Programs and modules.

extern "C" {
/// Entry of a program. `show` is a command for ShowWindow.
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR commandLine, int show);
}

constexpr DWORD DLL_PROCESS_DETACH = 0;
constexpr DWORD DLL_PROCESS_ATTACH = 1;

extern "C" {
HMODULE WINAPI LoadLibraryW(LPCWSTR fileName);
FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name);
BOOL WINAPI FreeLibrary(HMODULE module);
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size);
}

// Power status.

constexpr BYTE BATTERY_FLAG_CHARGING = 0x08;
constexpr BYTE BATTERY_PERCENTAGE_UNKNOWN = 0xFF;

struct SYSTEM_POWER_STATUS_EX {
  BYTE ACLineStatus;
  BYTE BatteryFlag;
  BYTE BatteryLifePercent;
  BYTE Reserved1;  // Unused.
  DWORD BatteryLifeTime;
  DWORD BatteryFullLifeTime;
  BYTE Reserved2;  // Unused.
  BYTE BackupBatteryFlag;
  BYTE BackupBatteryLifePercent;
  BYTE Reserved3;  // Unused.
  DWORD BackupBatteryLifeTime;
  DWORD BackupBatteryFullLifeTime;
};

extern "C" {
BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL update);
void WINAPI SystemIdleTimerReset();
}
