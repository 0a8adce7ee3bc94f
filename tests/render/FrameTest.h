// A window on a screen of a test's choice, and the canvas over it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>

#include "render/Canvas.h"

namespace ferolin {

constexpr COLORREF BLACK = RGB(0, 0, 0);
constexpr COLORREF WHITE = RGB(255, 255, 255);
constexpr COLORREF RED = RGB(255, 0, 0);
constexpr COLORREF GREEN = RGB(0, 255, 0);
constexpr COLORREF BLUE = RGB(0, 0, 255);

class FrameTest : public testing::Test {
 protected:
  FrameTest();
  ~FrameTest() override;

  /// Opens a window that fills a screen of that size and begins a black frame in it.
  void Open(int width, int height, int dpi = 96);

  /// Colours of a pixel: in the back buffer, and in the window after presenting.
  COLORREF At(int x, int y) const { return GetPixel(theCanvas.GetDrawingDC(), x, y); }
  COLORREF WindowAt(int x, int y) const;

  /// Number of the back buffer's pixels that are not black.
  int CountInk() const;
  /// The smallest rectangle around the pixels that are not black; all zero without such pixels.
  RECT InkBounds() const;

  void Present();

  HWND window = nullptr;
};

}  // namespace ferolin
