// The device's API on desktop Windows: the system's own header and the handheld's additions.
#pragma once

#pragma GCC system_header
#include_next <windows.h>

// The device's API has only the wide calls, under their full names; these macros would hide other
// names.
#undef DrawText
#undef NO_DATA

/// The desktop has no alpha mask; sections of 32 bits a pixel keep their fourth byte without one.
#ifndef BI_ALPHABITFIELDS
#define BI_ALPHABITFIELDS BI_BITFIELDS
#endif

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
/// The desktop's function names have 8-bit characters only; other names are not found.
FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name);

/// The desktop has no backup battery: its members are 0, its flag says "none".
BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL update);

/// Delays the machine's sleep.
void WINAPI SystemIdleTimerReset();

// Calls that extend the system's own of that name.

/// SerialPorts.cpp: opens serial ports, whose names end in a colon, and files.
HANDLE WINAPI HandheldCreateFile(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                 SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                                 HANDLE templateFile);
/// A read from a port waits for data and returns the complete burst. It fails with
/// ERROR_OPERATION_ABORTED when another thread closes the port.
BOOL WINAPI HandheldReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                             OVERLAPPED* overlapped);
BOOL WINAPI HandheldCloseHandle(HANDLE object);

/// Threads.cpp: threads that can begin and end while a library is being unloaded, at most two at a
/// time. Ignores stack size, flags and identifier.
HANDLE WINAPI HandheldCreateThread(SECURITY_ATTRIBUTES* security, SIZE_T stackSize,
                                   LPTHREAD_START_ROUTINE procedure, LPVOID argument, DWORD flags,
                                   LPDWORD threadId);
BOOL WINAPI HandheldGetExitCodeThread(HANDLE thread, LPDWORD exitCode);
/// `priority` is 0 (most urgent) to 7, as on the handheld.
BOOL WINAPI HandheldSetThreadPriority(HANDLE thread, int priority);
}

#define CreateFileW HandheldCreateFile
#define ReadFile HandheldReadFile
#define CloseHandle HandheldCloseHandle
#define CreateThread HandheldCreateThread
#define GetExitCodeThread HandheldGetExitCodeThread
#define SetThreadPriority HandheldSetThreadPriority
