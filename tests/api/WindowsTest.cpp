#include <gtest/gtest.h>
#include <windows.h>

#include "Window.h"

namespace {

using api::Window;

TEST(Windows, HaveAClassWhoseNameKnowsNoLetterCase) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.lpszClassName = TEXT("FerolinApiTwice");
  EXPECT_NE(0, RegisterClassW(&windowClass));
  EXPECT_EQ(0, RegisterClassW(&windowClass));
  windowClass.lpszClassName = TEXT("FEROLINAPITWICE");
  EXPECT_EQ(0, RegisterClassW(&windowClass));
  EXPECT_EQ(nullptr, CreateWindowExW(0, TEXT("FerolinApiNone"), TEXT(""), WS_POPUP, 0, 0, 9, 9,
                                     nullptr, nullptr, nullptr, nullptr));
}

TEST(Windows, KeepPlaceAndTitle) {
  const Window window(10, 20, 100, 50);
  RECT rect = {};
  EXPECT_TRUE(GetClientRect(window.Get(), &rect));
  EXPECT_EQ(0, rect.left);
  EXPECT_EQ(0, rect.top);
  EXPECT_EQ(100, rect.right);
  EXPECT_EQ(50, rect.bottom);
  EXPECT_TRUE(GetWindowRect(window.Get(), &rect));
  EXPECT_EQ(10, rect.left);
  EXPECT_EQ(20, rect.top);
  EXPECT_EQ(110, rect.right);
  EXPECT_EQ(70, rect.bottom);
  WCHAR title[8];
  EXPECT_EQ(5, GetWindowTextW(window.Get(), title, 8));
  EXPECT_EQ(2, GetWindowTextW(window.Get(), title, 3));
  EXPECT_EQ(0, title[2]);
}

LPARAM sizeTold = 0;

LRESULT CALLBACK NoteSize(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SIZE) {
    sizeTold = lParam;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST(Windows, AreToldOfTheirNewSizeWhenTheyAreMoved) {
  const Window window(TEXT("FerolinApiMoved"), &NoteSize, nullptr, {10, 20, 110, 70});
  ShowWindow(window.Get(), SW_SHOW);
  sizeTold = 0;
  EXPECT_TRUE(MoveWindow(window.Get(), 5, 6, 100, 50, TRUE));
  EXPECT_EQ(0, sizeTold);
  EXPECT_TRUE(MoveWindow(window.Get(), 0, 0, 80, 60, TRUE));
  EXPECT_EQ(60 << 16 | 80, sizeTold);
  RECT rect = {};
  EXPECT_TRUE(GetWindowRect(window.Get(), &rect));
  EXPECT_EQ(80, rect.right);
  EXPECT_EQ(60, rect.bottom);
}

TEST(Windows, TellWhetherTheyWereShownBefore) {
  const Window window;
  EXPECT_FALSE(IsWindowVisible(window.Get()));
  EXPECT_FALSE(ShowWindow(window.Get(), SW_SHOW));
  EXPECT_TRUE(ShowWindow(window.Get(), SW_SHOW));
  EXPECT_TRUE(IsWindowVisible(window.Get()));
  EXPECT_TRUE(ShowWindow(window.Get(), SW_HIDE));
  EXPECT_FALSE(IsWindowVisible(window.Get()));
}

TEST(Windows, TakeTheWindowsThatTheyOwnAlong) {
  Window owner;
  const Window owned(0, 0, 9, 9, owner.Get());
  EXPECT_EQ(owner.Get(), GetParent(owned.Get()));
  EXPECT_EQ(nullptr, GetParent(owner.Get()));
  owner.Destroy();
  EXPECT_FALSE(IsWindow(owned.Get()));
}

TEST(Windows, ThatAreGoneAnswerNothing) {
  Window window;
  const HWND gone = window.Get();
  window.Destroy();
  EXPECT_FALSE(IsWindow(gone));
  EXPECT_FALSE(IsWindowVisible(gone));
  RECT rect = {1, 2, 3, 4};
  EXPECT_FALSE(GetClientRect(gone, &rect));
  EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
  EXPECT_EQ(3, rect.right);
  EXPECT_FALSE(GetWindowRect(gone, &rect));
  EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
  EXPECT_FALSE(PostMessageW(gone, 0x8000, 0, 0));
  EXPECT_EQ(ERROR_INVALID_WINDOW_HANDLE, GetLastError());
  EXPECT_EQ(nullptr, GetParent(gone));
  EXPECT_FALSE(ShowWindow(gone, SW_SHOW));
  EXPECT_FALSE(DestroyWindow(gone));
  EXPECT_EQ(nullptr, GetDC(gone));
  EXPECT_EQ(nullptr, GetWindowDC(gone));
  WCHAR title[8] = {'z'};
  EXPECT_EQ(0, GetWindowTextW(gone, title, 8));
  EXPECT_EQ(0, title[0]);
}

TEST(Windows, AreFoundByClassAndTitle) {
  Window window(TEXT("FerolinApiFound"), DefWindowProcW, nullptr);
  EXPECT_EQ(window.Get(), FindWindowW(TEXT("FerolinApiFound"), nullptr));
  EXPECT_EQ(window.Get(), FindWindowW(TEXT("FEROLINAPIFOUND"), TEXT("Title")));
  EXPECT_EQ(nullptr, FindWindowW(TEXT("FerolinApiFound"), TEXT("Other")));
  EXPECT_EQ(nullptr, FindWindowW(TEXT("FerolinApiNowhere"), nullptr));
  window.Destroy();
  EXPECT_EQ(nullptr, FindWindowW(TEXT("FerolinApiFound"), nullptr));
}

TEST(Windows, HaveTheMouseOneAtATime) {
  const Window first;
  Window second;
  EXPECT_EQ(nullptr, SetCapture(first.Get()));
  EXPECT_EQ(first.Get(), SetCapture(second.Get()));
  second.Destroy();
  EXPECT_EQ(nullptr, SetCapture(first.Get()));
  EXPECT_TRUE(ReleaseCapture());
  EXPECT_EQ(nullptr, SetCapture(first.Get()));
  ReleaseCapture();
}

TEST(Windows, FillAScreenThatHasASize) {
  EXPECT_GT(GetSystemMetrics(SM_CXSCREEN), 0);
  EXPECT_GT(GetSystemMetrics(SM_CYSCREEN), 0);
  EXPECT_EQ(0, GetSystemMetrics(-1));
}

TEST(Windows, ThatAreGoneComeNotToTheFront) {
  Window window;
  const HWND gone = window.Get();
  window.Destroy();
  EXPECT_FALSE(SetForegroundWindow(gone));
}

TEST(Windows, NoneIsNoWindow) {
  RECT rect = {};
  EXPECT_FALSE(IsWindow(nullptr));
  EXPECT_FALSE(GetClientRect(nullptr, &rect));
  EXPECT_FALSE(GetWindowRect(nullptr, &rect));
}

}  // namespace
