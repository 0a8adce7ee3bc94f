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

BOOL WINAPI UpdateWindow(HWND window) {
  return Guarded<BOOL>(FALSE, [&] {
    const auto found = WindowTable::Instance().Find(window);
    if (!found) {
      return Fail(ERROR_INVALID_WINDOW_HANDLE, FALSE);
    }
    const bool isDue = found->invalid.left < found->invalid.right;
    if (isDue && found->queue == MessageQueue::OfThisThread()) {
      found->procedure(window, WM_PAINT, 0, 0);
    }
    return TRUE;
  });
}

}  // extern "C"

}  // namespace handheld
