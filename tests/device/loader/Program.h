// A program of the device, run within this one.
#pragma once

#include <windows.h>

#include <functional>

#include "PeImage.h"

/// Calls of the device that only programs make.
namespace ProgramCalls {

/// The program has one class of windows.
ATOM RegisterClassW(const WNDCLASSW* description);
BOOL GetMessageW(MSG* message, HWND window, UINT first, UINT last);
/// Ends the program.
[[noreturn]] void ExitThread(DWORD exitCode);

}  // namespace ProgramCalls

/// Enters the program on the calling thread, as the device's loader does. Returns its exit code. A
/// second program may run while the first one waits, and ends before that one goes on.
///
/// `whenIdle` is called while no message has come; without it the thread waits.
int RunProgram(const PeImage& image, const std::function<void()>& whenIdle = {});
