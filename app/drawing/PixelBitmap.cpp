#include "drawing/PixelBitmap.h"

namespace app {

namespace {

constexpr WORD BITS_A_PIXEL = 32;

}  // namespace

void PixelBitmap::EnsureSize(int newWidth, int newHeight) {
  if (dc != nullptr && newWidth == width && newHeight == height) {
    return;
  }
  Release();
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = newWidth;
  info.bmiHeader.biHeight = -newHeight;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = BITS_A_PIXEL;
  info.bmiHeader.biCompression = BI_RGB;
  LPVOID bits = nullptr;
  bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  dc = bitmap != nullptr ? CreateCompatibleDC(nullptr) : nullptr;
  if (dc == nullptr) {
    Release();
    return;
  }
  previousBitmap = SelectObject(dc, bitmap);
  pixels = static_cast<Color*>(bits);
  width = newWidth;
  height = newHeight;
}

void PixelBitmap::ShowIn(HWND window, const RECT& part) const {
  const HDC windowDC = ::GetDC(window);
  if (windowDC == nullptr) {
    return;
  }
  BitBlt(windowDC, part.left, part.top, part.right - part.left, part.bottom - part.top, dc,
         part.left, part.top, SRCCOPY);
  ReleaseDC(window, windowDC);
}

void PixelBitmap::Release() {
  if (dc != nullptr) {
    SelectObject(dc, previousBitmap);
    DeleteDC(dc);
    dc = nullptr;
  }
  if (bitmap != nullptr) {
    DeleteObject(bitmap);
    bitmap = nullptr;
  }
  width = 0;
  height = 0;
}

}  // namespace app
