#pragma once

#include <windows.h>

namespace api {

/// A window of the calling thread, hidden until it is shown.
class Window {
 public:
  explicit Window(int x = 0, int y = 0, int width = 100, int height = 50, HWND owner = nullptr)
      : Window(TEXT("FerolinApi"), DefWindowProcW, nullptr, {x, y, x + width, y + height}, owner) {}
  /// All windows of a class name have the procedure and background of the first.
  Window(LPCWSTR className, WNDPROC procedure, HBRUSH background,
         const RECT& rect = {0, 0, 100, 50}, HWND owner = nullptr) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = className;
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, className, TEXT("Title"), WS_POPUP, rect.left, rect.top,
                             rect.right - rect.left, rect.bottom - rect.top, owner, nullptr,
                             nullptr, nullptr);
  }
  ~Window() { Destroy(); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Get() const { return window; }
  void Destroy() {
    if (IsWindow(window)) {
      DestroyWindow(window);
    }
  }

 private:
  HWND window;
};

}  // namespace api
