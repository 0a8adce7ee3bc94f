// What homes have to do differently before scenes can be drawn. Each has its own source:
// Home.<home>.cpp.
#pragma once

#include <windows.h>

#include <string>

namespace drawing {

/// A module that lies beside the pictures and the display font; the battery from now on is at 65 %
/// and charging, the screen has 96 dpi.
HMODULE PrepareHome();

}  // namespace drawing
