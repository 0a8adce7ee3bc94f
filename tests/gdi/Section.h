// A picture in memory to draw into.
#pragma once

#include <windows.h>

#include <cstdint>

inline constexpr COLORREF RED = RGB(255, 0, 0);
inline constexpr COLORREF GREEN = RGB(0, 255, 0);
inline constexpr COLORREF BLUE = RGB(0, 0, 255);
inline constexpr COLORREF WHITE = RGB(255, 255, 255);

/// Of a DIB section without colour masks. Height as in BITMAPINFOHEADER: positive runs from the
/// bottom up.
inline BITMAPINFO SectionInfo(LONG width, LONG height, WORD bitsPerPixel) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = bitsPerPixel;
  return info;
}

/// Black at first. Lives on the test's thread; frees its context and its bitmap.
class Section {
 public:
  Section(int width, int height, WORD bitsPerPixel = 32) {
    const BITMAPINFO info = SectionInfo(width, height, bitsPerPixel);
    bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    dc = CreateCompatibleDC(nullptr);
    old = SelectObject(dc, bitmap);
  }
  ~Section() {
    SelectObject(dc, old);
    DeleteDC(dc);
    DeleteObject(bitmap);
  }
  Section(const Section&) = delete;
  Section& operator=(const Section&) = delete;

  std::uint16_t* Words() const { return static_cast<std::uint16_t*>(bits); }
  std::uint32_t* Longs() const { return static_cast<std::uint32_t*>(bits); }
  COLORREF At(int x, int y) const { return GetPixel(dc, x, y); }

  HDC dc;
  HBITMAP bitmap;

 private:
  HGDIOBJ old;
  LPVOID bits = nullptr;
};
