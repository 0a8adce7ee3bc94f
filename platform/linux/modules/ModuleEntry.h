// How a module tells the loader about its entry function.
#pragma once

#include <windows.h>

namespace handheld {

using ModuleEntry = BOOL(WINAPI*)(HINSTANCE module, DWORD reason, LPVOID reserved);

/// Called by a module's own start-up code (ModuleEntry.cpp) while Linux loads it, and when Linux
/// unloads it.
void RegisterModuleEntry(ModuleEntry entry);
void UnregisterModuleEntry(ModuleEntry entry);

}  // namespace handheld
