// The whole screen for a window.
#pragma once

#include <windows.h>

namespace app {

/// Puts the window over the task bar and the soft keys where the system has them.
void CoverScreen(HWND window);

}  // namespace app
