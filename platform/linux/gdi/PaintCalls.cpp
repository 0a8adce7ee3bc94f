// Drawing that WM_PAINT asks for.
#include "core/LastError.h"
#include "gdi/DeviceContext.h"
#include "windows/WindowTable.h"

namespace handheld::gdi {

extern "C" {

HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint) {
  return Guarded<HDC>(nullptr, [&]() -> HDC {
    if (paint == nullptr) {
      return Fail<HDC>(ERROR_INVALID_PARAMETER, nullptr);
    }
    const auto found = WindowTable::Instance().Validate(window);
    if (!found) {
      return Fail<HDC>(ERROR_INVALID_WINDOW_HANDLE, nullptr);
    }
    const HDC dc = GetDC(window);
    if (const UsedContext context(dc); context) {
      context->visible = found->invalid;
    }
    *paint = {};
    paint->hdc = dc;
    paint->rcPaint = found->invalid;
    if (found->isEraseDue) {
      const LRESULT isErased =
          found->procedure(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
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
