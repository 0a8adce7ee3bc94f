#include "window/FullScreen.h"

#include "base/ModuleFunction.h"

namespace app {

namespace {

// What the shell of a handheld is asked to hide: task bar, keyboard button, start button.
constexpr DWORD HIDE_TASK_BAR = 0x0002;
constexpr DWORD HIDE_KEYBOARD_BUTTON = 0x0008;
constexpr DWORD HIDE_START_BUTTON = 0x0020;

using FullScreenCall = BOOL WINAPI(HWND window, DWORD state);

}  // namespace

/// Only handhelds with a shell of their own have the library.
void CoverScreen(HWND window) {
  const HMODULE shell = LoadLibraryW(TEXT("aygshell.dll"));
  if (shell == nullptr) {
    return;
  }
  FullScreenCall* hideBars = nullptr;
  ferolin::FindEntry(shell, TEXT("SHFullScreen"), hideBars);
  if (hideBars != nullptr) {
    hideBars(window, HIDE_TASK_BAR | HIDE_KEYBOARD_BUTTON | HIDE_START_BUTTON);
  }
  FreeLibrary(shell);
}

}  // namespace app
