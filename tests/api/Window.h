#pragma once

#include <windows.h>

namespace api {

/// A window of the calling thread, hidden until it is shown.
class Window {
 public:
  explicit Window(int x = 0, int y = 0, int width = 100, int height = 50, HWND owner = nullptr) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = TEXT("FerolinApi");
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, TEXT("FerolinApi"), TEXT("Title"), WS_POPUP, x, y, width, height,
                             owner, nullptr, nullptr, nullptr);
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
