// Entry of a library: called by the device's loader when the library is loaded and unloaded.

#include <windows.h>

#include "Entry.h"
#include "Statics.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID processEnd);

BOOL StartUp(HINSTANCE module, DWORD reason, LPVOID processEnd) {
  if (reason == DLL_PROCESS_ATTACH) {
    ConstructStatics();
  }
  const BOOL isWilling = DllMain(module, reason, processEnd);
  if (reason == DLL_PROCESS_DETACH || (reason == DLL_PROCESS_ATTACH && !isWilling)) {
    DestroyStatics();
  }
  return isWilling;
}

asm("ENTRY DeviceEntry, StartUp");
static_assert(IsEntryPossible(StartUp));

}  // extern "C"
