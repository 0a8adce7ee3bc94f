// The device's API on desktop Windows: the system's own header, and what only the handheld has.
#pragma once

#pragma GCC system_header
#include_next <windows.h>

// The device's API has the wide calls by their own names alone, so these words are free there.
#undef DrawText

/// The desktop knows no mask for alpha; a section of 32 bits a pixel keeps its fourth byte all the same.
#ifndef BI_ALPHABITFIELDS
#define BI_ALPHABITFIELDS BI_BITFIELDS
#endif

struct SYSTEM_POWER_STATUS_EX {
  BYTE ACLineStatus;
  BYTE BatteryFlag;
  BYTE BatteryLifePercent;
  BYTE Reserved1;
  DWORD BatteryLifeTime;
  DWORD BatteryFullLifeTime;
  BYTE Reserved2;
  BYTE BackupBatteryFlag;
  BYTE BackupBatteryLifePercent;
  BYTE Reserved3;
  DWORD BackupBatteryLifeTime;
  DWORD BackupBatteryFullLifeTime;
};

extern "C" {
/// The desktop's functions are named in 8-bit characters only. A name that cannot be is not found.
FARPROC WINAPI GetProcAddressW(HMODULE module, LPCWSTR name);

/// There is no backup battery on a desktop: its members are 0, its flag says "none".
BOOL WINAPI GetSystemPowerStatusEx(SYSTEM_POWER_STATUS_EX* status, BOOL update);

/// Puts off the machine's sleep.
void WINAPI SystemIdleTimerReset();

// Calls that do more here than the system's own, which stay behind them.

/// SerialPorts.cpp: ports are read as on the handheld. A name that ends in a colon is a port's.
HANDLE WINAPI HandheldCreateFile(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                 SECURITY_ATTRIBUTES* security, DWORD disposition, DWORD attributes,
                                 HANDLE templateFile);
/// From a port: waits for data and returns the whole burst. Ends with ERROR_OPERATION_ABORTED when another thread closes
/// the port.
BOOL WINAPI HandheldReadFile(HANDLE file, LPVOID buffer, DWORD toRead, LPDWORD read,
                             OVERLAPPED* overlapped);
BOOL WINAPI HandheldCloseHandle(HANDLE object);

/// Threads.cpp: threads that can begin and end while a library is being unloaded. Up to two at a time; the stack's size,
/// the flags and the identifier are left to the system, which shows no such thread.
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
