// The application as a program of its own.
#pragma once

#include <windows.h>

namespace app {

/// Runs the program to its end. Returns the exit code.
int RunApplication(HINSTANCE instance);

}  // namespace app
