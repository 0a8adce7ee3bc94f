// Windows of a program: their procedure is entered from the device.

#include <windows.h>

#include "Entry.h"

namespace {

/// A program has one class of windows.
WNDPROC procedure = nullptr;

}  // namespace

extern "C" {

[[gnu::used]] LRESULT RunWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return procedure(window, message, wParam, lParam);
}

LRESULT DeviceWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
asm("ENTRY DeviceWindowProcedure, RunWindowProcedure");
static_assert(IsEntryPossible(RunWindowProcedure));

extern decltype(&RegisterClassW) __imp_RegisterClassW;

ATOM WINAPI RegisterClassW(const WNDCLASSW* description) {
  WNDCLASSW entered = *description;
  procedure = description->lpfnWndProc;
  entered.lpfnWndProc = DeviceWindowProcedure;
  return __imp_RegisterClassW(&entered);
}

}  // extern "C"
