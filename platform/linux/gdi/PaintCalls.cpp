// Drawing that WM_PAINT asks for.
#include "core/LastError.h"
#include "gdi/DeviceContext.h"
#include "windows/WindowTable.h"

namespace handheld::gdi {

extern "C" {

HDC WINAPI BeginPaint(HWND handle, PAINTSTRUCT* paint) {
  return Guarded<HDC>(nullptr, [&]() -> HDC {
    if (paint == nullptr) {
      return Fail<HDC>(ERROR_INVALID_PARAMETER, nullptr);
    }
    const auto window = WindowTable::Instance().Validate(handle);
    if (!window) {
      return Fail<HDC>(ERROR_INVALID_WINDOW_HANDLE, nullptr);
    }
    const HDC dc = GetDC(handle);
    if (const UsedContext context(dc); context) {
      context->visible = window->invalid;
    }
    *paint = {};
    paint->hdc = dc;
    paint->rcPaint = window->invalid;
    if (window->isEraseDue) {
      const LRESULT isErased =
          window->procedure(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
      paint->fErase = isErased == 0 ? TRUE : FALSE;
    }
    return dc;
  });
}

BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint) {
  if (paint == nullptr) {
    return FALSE;
  }
  ReleaseDC(window, paint->hdc);
  return TRUE;
}

BOOL WINAPI GdiFlush() {
  // Every call draws at once.
  return TRUE;
}

}  // extern "C"

}  // namespace handheld::gdi
