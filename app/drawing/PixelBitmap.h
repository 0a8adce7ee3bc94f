// A bitmap in memory that both this program and the system draw into.
#pragma once

#include <windows.h>

#include <cstdint>

namespace app {

/// 0x00RRGGBB, as a pixel of the bitmap holds it.
using Color = std::uint32_t;

/// 32 bits a pixel, rows from the top. Empty when the memory could not be had: size 0 x 0.
class PixelBitmap {
 public:
  PixelBitmap() = default;
  PixelBitmap(const PixelBitmap&) = delete;
  PixelBitmap& operator=(const PixelBitmap&) = delete;
  ~PixelBitmap() { Release(); }

  /// Keeps the bitmap if it has that size; otherwise makes a new one, whose pixels are undefined.
  void EnsureSize(int newWidth, int newHeight);

  /// The context that the bitmap is selected into; null while it is empty.
  HDC GetDC() const { return dc; }
  int GetWidth() const { return width; }
  int GetHeight() const { return height; }

  /// First pixel of a row of the bitmap.
  Color* GetRow(int y) { return pixels + static_cast<std::ptrdiff_t>(y) * width; }

  /// Copies a part of the bitmap to the same place of the window's client area.
  void ShowIn(HWND window, const RECT& part) const;

 private:
  void Release();

  HDC dc = nullptr;
  HBITMAP bitmap = nullptr;
  HGDIOBJ previousBitmap = nullptr;
  Color* pixels = nullptr;
  int width = 0;
  int height = 0;
};

}  // namespace app
