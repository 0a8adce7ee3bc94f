// Entry of a program: called by the device's loader on the program's first thread.

#include <windows.h>

#include "Entry.h"
#include "Statics.h"

extern "C" {

/// Ends the thread; the end of its first thread ends a program.
[[noreturn]] void WINAPI ExitThread(DWORD exitCode);

/// The device hands over what WinMain gets.
[[noreturn]] void StartUp(HINSTANCE program, HINSTANCE previous, LPWSTR commandLine, int show) {
  ConstructStatics();
  const int exitCode = wWinMain(program, previous, commandLine, show);
  DestroyStatics();
  ExitThread(static_cast<DWORD>(exitCode));
}

asm("ENTRY DeviceEntry, StartUp");
static_assert(IsEntryPossible(StartUp));

}  // extern "C"
