// The application as a library of its own. Its imports can then be doubled like the engine's, while
// the test keeps the system's calls.
#pragma once

#include <windows.h>

#include "engine/LoadedEngine.h"

extern "C" {

/// Null when it ends at once. One runs at a time.
void* StartApplication(const app::LoadedEngine* engine);
/// Null once it has ended.
HWND GetApplicationWindow(const void* application);
void EndApplication(void* application);
}
