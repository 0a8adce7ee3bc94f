#include <gtest/gtest.h>
#include <windows.h>

#include "Window.h"

namespace {

using api::Window;

/// Far away: it does not come while a test runs.
constexpr UINT HOUR_MS = 3'600'000;
/// A test does not wait longer for a timer that has to come.
constexpr DWORD PATIENCE_MS = 10'000;

/// Waits for the next message of the window; an empty one when none comes.
MSG Await(HWND window) {
  const DWORD start = GetTickCount();
  MSG message = {};
  while (!PeekMessageW(&message, window, 0, 0, PM_REMOVE)) {
    const DWORD passed = GetTickCount() - start;
    if (passed >= PATIENCE_MS) {
      return {};
    }
    MsgWaitForMultipleObjectsEx(0, nullptr, PATIENCE_MS - passed, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
  return message;
}

TEST(Timers, ComeAgainAndAgain) {
  const Window window;
  const DWORD start = GetTickCount();
  EXPECT_NE(0U, SetTimer(window.Get(), 7, 20, nullptr));
  for (int count = 0; count < 3; ++count) {
    const MSG message = Await(window.Get());
    EXPECT_EQ(window.Get(), message.hwnd);
    EXPECT_EQ(static_cast<UINT>(WM_TIMER), message.message);
    EXPECT_EQ(7U, message.wParam);
    EXPECT_EQ(0, message.lParam);
  }
  // Coarse clocks count a period as up to one of their steps less.
  EXPECT_GE(GetTickCount() - start, 30U);
}

TEST(Timers, AreWaitedForByGetMessage) {
  const Window window;
  SetTimer(window.Get(), 7, 20, nullptr);
  MSG message = {};
  EXPECT_EQ(TRUE, GetMessageW(&message, window.Get(), 0, 0));
  EXPECT_EQ(static_cast<UINT>(WM_TIMER), message.message);
}

TEST(Timers, AreReplacedByThoseOfTheSameNumber) {
  const Window window;
  SetTimer(window.Get(), 7, HOUR_MS, nullptr);
  SetTimer(window.Get(), 8, HOUR_MS, nullptr);
  SetTimer(window.Get(), 7, 20, nullptr);
  EXPECT_EQ(7U, Await(window.Get()).wParam);
  EXPECT_TRUE(KillTimer(window.Get(), 7));
  EXPECT_FALSE(KillTimer(window.Get(), 7));
  EXPECT_TRUE(KillTimer(window.Get(), 8));
}

TEST(Timers, ComeBehindAllOtherMessages) {
  const Window window;
  SetTimer(window.Get(), 7, 10, nullptr);
  Sleep(50);
  PostMessageW(window.Get(), 0x8000, 0, 0);
  EXPECT_EQ(0x8000U, Await(window.Get()).message);
  EXPECT_EQ(static_cast<UINT>(WM_TIMER), Await(window.Get()).message);
}

TEST(Timers, EndWithTheirWindow) {
  Window window;
  const HWND gone = window.Get();
  SetTimer(gone, 7, 10, nullptr);
  window.Destroy();
  EXPECT_FALSE(KillTimer(gone, 7));
  EXPECT_EQ(0U, SetTimer(gone, 7, 10, nullptr));
  const Window other;
  SetTimer(other.Get(), 9, 50, nullptr);
  MSG message = {};
  EXPECT_EQ(TRUE, GetMessageW(&message, nullptr, WM_TIMER, WM_TIMER));
  EXPECT_EQ(9U, message.wParam);
}

}  // namespace
