#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "Random.h"

namespace drawing {

inline constexpr COLORREF WHITE = RGB(255, 255, 255);

/// A picture in memory and the context that draws into it.
class Paper {
 public:
  /// 16 bits are 5-5-5. The engine's frames run from the bottom up, its pictures from the top down.
  enum Kind { BOTTOM_UP_16, TOP_DOWN_32, BOTTOM_UP_32, TOP_DOWN_16, KINDS };

  Paper(Kind kind, int width, int height);
  ~Paper();
  Paper(const Paper&) = delete;
  Paper& operator=(const Paper&) = delete;

  HDC GetDC() const { return dc; }
  int GetBitsPerPixel() const { return bitsPerPixel; }
  int GetWidth() const { return width; }
  int GetHeight() const { return height; }
  RECT GetBounds() const { return {0, 0, width, height}; }

  void Fill(COLORREF color) const;
  void FillWithNoise(Random& random) const;
  /// Gives 32-bit pixels of noise an alpha: some are opaque, some clear, and no colour is brighter
  /// than its alpha.
  void Premultiply(Random& random) const;

  /// All pixels, the top row first, without gaps between rows.
  std::string GetPixels() const;

 private:
  std::size_t GetRowBytes() const;

  const int width;
  const int height;
  const int bitsPerPixel;
  const bool isTopDown;
  HDC dc;
  HBITMAP bitmap;
  HGDIOBJ oldBitmap;
  void* bits = nullptr;
};

/// Selects an object into the context. Puts the previous one back at its end and deletes its own.
class InUse {
 public:
  InUse(HDC context, HGDIOBJ used) : dc(context), object(used), old(SelectObject(dc, object)) {}
  ~InUse() {
    SelectObject(dc, old);
    DeleteObject(object);
  }
  InUse(const InUse&) = delete;
  InUse& operator=(const InUse&) = delete;

 private:
  HDC dc;
  HGDIOBJ object;
  HGDIOBJ old;
};

}  // namespace drawing
