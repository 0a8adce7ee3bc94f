// Pixels of a window, as hosts and tests read them.

#include <gtest/gtest.h>
#include <handheld.h>
#include <windows.h>

namespace {

class WindowSurfaces : public testing::Test {
 protected:
  WindowSurfaces() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = DefWindowProcW;
    windowClass.lpszClassName = TEXT("FerolinSurface");
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, TEXT("FerolinSurface"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 3, 2,
                             nullptr, nullptr, nullptr, nullptr);
  }
  ~WindowSurfaces() override { DestroyWindow(window); }

  HWND window;
};

TEST_F(WindowSurfaces, PaintingTouchesOnlyWhatIsAskedFor) {
  DefWindowProcW(window, WM_PAINT, 0, 0);
  const RECT part = {1, 0, 2, 2};
  InvalidateRect(window, &part, FALSE);
  PAINTSTRUCT paint = {};
  const HDC dc = BeginPaint(window, &paint);
  // Neither a region of the program's own nor none lets it out of that part.
  const HRGN region = CreateRectRgn(0, 0, 3, 1);
  const RECT whole = {0, 0, 3, 2};
  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  SelectClipRgn(dc, region);
  FillRect(dc, &whole, brush);
  EXPECT_EQ((std::vector<std::uint32_t>{0, 0x010203, 0, 0, 0, 0}),
            handheld::WindowPixels(window).rows);
  SelectClipRgn(dc, nullptr);
  FillRect(dc, &whole, brush);
  EndPaint(window, &paint);
  EXPECT_EQ((std::vector<std::uint32_t>{0, 0x010203, 0, 0, 0x010203, 0}),
            handheld::WindowPixels(window).rows);
  DeleteObject(region);
  DeleteObject(brush);
}

TEST_F(WindowSurfaces, BackgroundsAreFilledBeforePainting) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = TEXT("FerolinColoredSurface");
  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  windowClass.hbrBackground = brush;
  RegisterClassW(&windowClass);
  const HWND colored =
      CreateWindowExW(0, TEXT("FerolinColoredSurface"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 2, 1,
                      nullptr, nullptr, nullptr, nullptr);
  PAINTSTRUCT paint = {};
  BeginPaint(colored, &paint);
  EXPECT_EQ((std::vector<std::uint32_t>{0x010203, 0x010203}), handheld::WindowPixels(colored).rows);
  EXPECT_FALSE(paint.fErase);
  EndPaint(colored, &paint);
  BeginPaint(window, &paint);
  EXPECT_TRUE(paint.fErase);
  EndPaint(window, &paint);
  DestroyWindow(colored);
  DeleteObject(brush);
}

TEST_F(WindowSurfaces, AContextAloneDrawsNothing) {
  const HDC dc = GetDC(window);
  EXPECT_EQ(0U, handheld::WindowPixelsVersion(window));
  EXPECT_TRUE(handheld::WindowPixels(window).rows.empty());
  ReleaseDC(window, dc);
}

TEST_F(WindowSurfaces, WhatIsDrawnIsSeenAndChangesTheVersion) {
  const HDC dc = GetDC(window);
  SetPixel(dc, 2, 1, RGB(1, 2, 3));
  const handheld::Pixels pixels = handheld::WindowPixels(window);
  EXPECT_EQ(3, pixels.width);
  EXPECT_EQ(2, pixels.height);
  EXPECT_EQ((std::vector<std::uint32_t>{0, 0, 0, 0, 0, 0x010203}), pixels.rows);
  const std::uint64_t version = handheld::WindowPixelsVersion(window);
  EXPECT_NE(0U, version);
  SetPixel(dc, 0, 0, RGB(1, 2, 3));
  EXPECT_NE(version, handheld::WindowPixelsVersion(window));
  ReleaseDC(window, dc);
}

}  // namespace
