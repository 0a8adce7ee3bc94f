// A program of the device, run within this one.
#pragma once

#include <windows.h>

#include "PeImage.h"

/// Calls of the device that only programs make.
namespace ProgramCalls {

/// The program has one class of windows.
ATOM RegisterClassW(const WNDCLASSW* description);
/// Ends the program.
[[noreturn]] void ExitThread(DWORD exitCode);

}  // namespace ProgramCalls

/// Enters the program on the calling thread, as the device's loader does. Returns its exit code. One
/// program runs at a time.
int RunProgram(const PeImage& image);
