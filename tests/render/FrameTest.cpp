#include "FrameTest.h"

#include <handheld.h>

#include <algorithm>

#include "render/InvertFlags.h"

namespace ferolin {

namespace {

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace

FrameTest::FrameTest() {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = &OnMessage;
  windowClass.lpszClassName = TEXT("FrameTest");
  RegisterClassW(&windowClass);
}

FrameTest::~FrameTest() {
  theInvertFlags.vert = 0;
  theInvertFlags.horz = 0;
  theInvertFlags.color = 0;
  theInvertFlags.orient = 0;
  theCanvas.ReleaseAll();
  if (window != nullptr) {
    DestroyWindow(window);
  }
}

void FrameTest::Open(int width, int height, int dpi) {
  if (window != nullptr) {
    DestroyWindow(window);
  }
  handheld::SetScreen(width, height, dpi);
  window = CreateWindowExW(0, TEXT("FrameTest"), TEXT(""), WS_VISIBLE, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, nullptr, nullptr);
  theCanvas.BeginFrame(window);
  theCanvas.FillBackground(BLACK);
}

COLORREF FrameTest::WindowAt(int x, int y) const {
  const handheld::Pixels pixels = handheld::WindowPixels(window);
  if (x >= pixels.width || y >= pixels.height) {
    return CLR_INVALID;
  }
  const std::uint32_t pixel = pixels.rows[static_cast<std::size_t>(y * pixels.width + x)];
  return RGB(static_cast<BYTE>(pixel >> 16), static_cast<BYTE>(pixel >> 8),
             static_cast<BYTE>(pixel));
}

int FrameTest::CountInk() const {
  const RECT frame = theCanvas.GetFrameRect();
  int count = 0;
  for (int y = 0; y < frame.bottom; ++y) {
    for (int x = 0; x < frame.right; ++x) {
      count += At(x, y) != BLACK ? 1 : 0;
    }
  }
  return count;
}

RECT FrameTest::InkBounds() const {
  const RECT frame = theCanvas.GetFrameRect();
  RECT bounds = {frame.right, frame.bottom, 0, 0};
  for (LONG y = 0; y < frame.bottom; ++y) {
    for (LONG x = 0; x < frame.right; ++x) {
      if (At(x, y) != BLACK) {
        bounds = {std::min(bounds.left, x), std::min(bounds.top, y), std::max(bounds.right, x + 1),
                  std::max(bounds.bottom, y + 1)};
      }
    }
  }
  return bounds.right > 0 ? bounds : RECT{};
}

void FrameTest::Present() {
  theCanvas.PresentTransformed();
  theCanvas.FlushToWindow();
}

}  // namespace ferolin
