#include <gtest/gtest.h>
#include <windows.h>

#include "Window.h"

namespace {

using api::Window;

/// Calls that the procedures below saw.
int erasings = 0;
int paintings = 0;
RECT painted = {};

/// Leaves its background alone and draws nothing.
LRESULT CALLBACK CountPaintings(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) {
    ++erasings;
    return 1;
  }
  if (message == WM_PAINT) {
    ++paintings;
    PAINTSTRUCT paint = {};
    BeginPaint(window, &paint);
    painted = paint.rcPaint;
    EndPaint(window, &paint);
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

bool IsPaintPending(HWND window) {
  MSG message = {};
  return PeekMessageW(&message, window, WM_PAINT, WM_PAINT, 0) != FALSE;
}

/// A window of 100 x 50 pixels that is shown and drawn.
class Painting : public testing::Test {
 protected:
  Painting() : window(TEXT("FerolinApiPainting"), CountPaintings, nullptr) {
    ShowWindow(window.Get(), SW_SHOW);
    UpdateWindow(window.Get());
    erasings = 0;
    paintings = 0;
    painted = {};
  }

  /// Lets the window draw what is pending.
  static void Pump() {
    MSG message = {};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      DispatchMessageW(&message);
    }
  }

  const Window window;
};

TEST_F(Painting, IsDueWhenTheWindowIsShown) {
  ShowWindow(window.Get(), SW_HIDE);
  EXPECT_FALSE(IsPaintPending(window.Get()));
  ShowWindow(window.Get(), SW_SHOW);
  EXPECT_TRUE(IsPaintPending(window.Get()));
  Pump();
  EXPECT_EQ(1, paintings);
  EXPECT_EQ(1, erasings);
  EXPECT_EQ(0, painted.left);
  EXPECT_EQ(0, painted.top);
  EXPECT_EQ(100, painted.right);
  EXPECT_EQ(50, painted.bottom);
}

TEST_F(Painting, StaysDueUntilItIsDone) {
  EXPECT_TRUE(InvalidateRect(window.Get(), nullptr, FALSE));
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, window.Get(), WM_PAINT, WM_PAINT, PM_REMOVE));
  EXPECT_TRUE(PeekMessageW(&message, window.Get(), WM_PAINT, WM_PAINT, PM_REMOVE));
  DispatchMessageW(&message);
  EXPECT_FALSE(IsPaintPending(window.Get()));
  EXPECT_EQ(1, paintings);
}

TEST_F(Painting, CoversAllThatWasInvalidated) {
  const RECT one = {10, 5, 20, 15};
  const RECT other = {30, 20, 200, 25};
  InvalidateRect(window.Get(), &one, FALSE);
  InvalidateRect(window.Get(), &other, FALSE);
  Pump();
  EXPECT_EQ(1, paintings);
  EXPECT_EQ(0, erasings);
  EXPECT_EQ(10, painted.left);
  EXPECT_EQ(5, painted.top);
  EXPECT_EQ(100, painted.right);
  EXPECT_EQ(25, painted.bottom);
}

TEST_F(Painting, ErasesWhenOneOfTheInvalidationsAskedForIt) {
  InvalidateRect(window.Get(), nullptr, TRUE);
  InvalidateRect(window.Get(), nullptr, FALSE);
  Pump();
  EXPECT_EQ(1, erasings);
}

TEST_F(Painting, OutsideOfTheWindowIsNotDue) {
  const RECT outside = {100, 0, 200, 50};
  EXPECT_TRUE(InvalidateRect(window.Get(), &outside, TRUE));
  EXPECT_FALSE(IsPaintPending(window.Get()));
}

TEST_F(Painting, ComesBehindPostedMessages) {
  InvalidateRect(window.Get(), nullptr, FALSE);
  PostMessageW(window.Get(), 0x8000, 0, 0);
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, window.Get(), 0, 0, PM_REMOVE));
  EXPECT_EQ(0x8000U, message.message);
  EXPECT_TRUE(PeekMessageW(&message, window.Get(), 0, 0, PM_REMOVE));
  EXPECT_EQ(static_cast<UINT>(WM_PAINT), message.message);
}

TEST_F(Painting, IsDoneAtOnceByUpdateWindow) {
  EXPECT_TRUE(UpdateWindow(window.Get()));
  EXPECT_EQ(0, paintings);
  InvalidateRect(window.Get(), nullptr, FALSE);
  EXPECT_TRUE(UpdateWindow(window.Get()));
  EXPECT_EQ(1, paintings);
}

TEST_F(Painting, OfHiddenWindowsIsNotDue) {
  ShowWindow(window.Get(), SW_HIDE);
  InvalidateRect(window.Get(), nullptr, TRUE);
  EXPECT_FALSE(IsPaintPending(window.Get()));
}

TEST_F(Painting, WakesAWaitingThread) {
  InvalidateRect(window.Get(), nullptr, FALSE);
  EXPECT_EQ(static_cast<DWORD>(WAIT_OBJECT_0),
            MsgWaitForMultipleObjectsEx(0, nullptr, 10'000, QS_ALLINPUT, MWMO_INPUTAVAILABLE));
}

TEST_F(Painting, NeedsAWindow) {
  PAINTSTRUCT paint = {};
  EXPECT_EQ(nullptr, BeginPaint(reinterpret_cast<HWND>(ULONG_PTR{0x7776}), &paint));
  EXPECT_FALSE(EndPaint(window.Get(), nullptr));
}

TEST(PaintingByDefault, SettlesTheWindow) {
  const Window window;
  ShowWindow(window.Get(), SW_SHOW);
  ASSERT_TRUE(IsPaintPending(window.Get()));
  DefWindowProcW(window.Get(), WM_PAINT, 0, 0);
  EXPECT_FALSE(IsPaintPending(window.Get()));
}

TEST(PaintingByDefault, TellsWhetherTheClassHasABackground) {
  const Window plain;
  const Window colored(TEXT("FerolinApiColored"), DefWindowProcW, CreateSolidBrush(RGB(9, 8, 7)));
  for (const HWND window : {plain.Get(), colored.Get()}) {
    const HDC dc = GetDC(window);
    const bool hasBackground = window == colored.Get();
    EXPECT_EQ(hasBackground ? 1 : 0,
              DefWindowProcW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0));
    ReleaseDC(window, dc);
  }
}

}  // namespace
