// Registration of a module's entry function with the loader.
#pragma once

#include <windows.h>

namespace handheld {

/// `processEnd` is not null when a library is detached because the process ends.
using ModuleEntry = BOOL(WINAPI*)(HINSTANCE module, DWORD reason, LPVOID processEnd);

/// Called by the start-up code of a module (ModuleEntry.cpp) while Linux loads or unloads it. Calls
/// the entry unless LoadLibraryW and FreeLibrary do: the module was loaded by dlopen, or is linked.
void RegisterModuleEntry(ModuleEntry entry);
void UnregisterModuleEntry(ModuleEntry entry);

}  // namespace handheld
