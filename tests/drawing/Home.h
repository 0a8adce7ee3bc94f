// Preparations that differ between homes. Each home has its own source, Home.<home>.cpp.
#pragma once

#include <windows.h>

#include <string>

namespace drawing {

/// Sets the screen to 96 dpi and the battery to 65 %, charging. Returns a module that lies beside
/// the pictures and the display font.
HMODULE PrepareHome();

}  // namespace drawing
