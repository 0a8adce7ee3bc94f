#include "render/FrameBitmap.h"

namespace ferolin {

HBITMAP CreateFrameBitmap(HDC dc, LONG width, LONG height, void** bits) {
  constexpr LONG PIXELS_PER_METRE = 3780;  // 96 dpi
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 16;
  info.bmiHeader.biCompression = BI_RGB;
  info.bmiHeader.biXPelsPerMeter = PIXELS_PER_METRE;
  info.bmiHeader.biYPelsPerMeter = PIXELS_PER_METRE;
  return CreateDIBSection(dc, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}

}  // namespace ferolin
