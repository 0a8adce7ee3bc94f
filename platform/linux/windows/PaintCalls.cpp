// Calls that ask for drawing. BeginPaint and EndPaint are in gdi/.
#include "core/LastError.h"
#include "windows/WindowTable.h"

namespace handheld {

extern "C" {

BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto part = rect != nullptr ? std::optional(*rect) : std::nullopt;
    return WindowTable::Instance().Invalidate(window, part, erase != FALSE)
               ? TRUE
               : Fail(ERROR_INVALID_WINDOW_HANDLE, FALSE);
  });
}

BOOL WINAPI UpdateWindow(HWND handle) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto window = WindowTable::Instance().Find(handle);
    if (!window) {
      return Fail(ERROR_INVALID_WINDOW_HANDLE, FALSE);
    }
    const bool isDue = window->invalid.left < window->invalid.right;
    if (isDue && window->queue == MessageQueue::OfThisThread()) {
      window->procedure(handle, WM_PAINT, 0, 0);
    }
    return TRUE;
  });
}

}  // extern "C"

}  // namespace handheld
