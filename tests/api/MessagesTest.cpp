#include <gtest/gtest.h>
#include <windows.h>

#include <vector>

#include "Window.h"

namespace {

using api::Window;

constexpr UINT OWN_MESSAGE = 0x8000;
constexpr UINT OTHER_MESSAGE = 0x8001;

/// All messages of this thread that are the tests' own, and WM_QUIT.
std::vector<UINT> TakeAll() {
  std::vector<UINT> taken;
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message >= OWN_MESSAGE || message.message == WM_QUIT) {
      taken.push_back(message.message);
    }
  }
  return taken;
}

TEST(Messages, ComeInTheOrderInWhichTheyWerePosted) {
  const Window window;
  EXPECT_TRUE(PostMessageW(window.Get(), OTHER_MESSAGE, 1, 2));
  EXPECT_TRUE(PostMessageW(window.Get(), OWN_MESSAGE, 3, 4));
  EXPECT_EQ((std::vector<UINT>{OTHER_MESSAGE, OWN_MESSAGE}), TakeAll());
}

TEST(Messages, ComeBeforeTheWishToQuit) {
  const Window window;
  PostQuitMessage(5);
  EXPECT_TRUE(PostMessageW(window.Get(), OWN_MESSAGE, 0, 0));
  EXPECT_EQ((std::vector<UINT>{OWN_MESSAGE, WM_QUIT}), TakeAll());
}

TEST(Messages, AreWaitedForUntilTheWishToQuit) {
  const Window window;
  TakeAll();
  PostMessageW(window.Get(), OWN_MESSAGE, 3, -4);
  PostQuitMessage(5);
  MSG message = {};
  EXPECT_EQ(TRUE, GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(window.Get(), message.hwnd);
  EXPECT_EQ(OWN_MESSAGE, message.message);
  EXPECT_EQ(3U, message.wParam);
  EXPECT_EQ(-4, message.lParam);
  EXPECT_EQ(FALSE, GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(static_cast<UINT>(WM_QUIT), message.message);
  EXPECT_EQ(5U, message.wParam);
}

TEST(Messages, CanBeTakenByKind) {
  const Window window;
  PostMessageW(window.Get(), OWN_MESSAGE, 0, 0);
  PostMessageW(window.Get(), OTHER_MESSAGE, 0, 0);
  MSG message = {};
  EXPECT_TRUE(PeekMessageW(&message, nullptr, OTHER_MESSAGE, OTHER_MESSAGE, PM_REMOVE));
  EXPECT_EQ(OTHER_MESSAGE, message.message);
  EXPECT_EQ(std::vector<UINT>{OWN_MESSAGE}, TakeAll());
}

TEST(Messages, GoToTheThreadWithoutAWindow) {
  TakeAll();
  EXPECT_TRUE(PostMessageW(nullptr, OWN_MESSAGE, 0, 0));
  EXPECT_EQ(std::vector<UINT>{OWN_MESSAGE}, TakeAll());
}

TEST(Messages, GoWithTheirWindow) {
  Window window;
  PostMessageW(window.Get(), OWN_MESSAGE, 0, 0);
  window.Destroy();
  EXPECT_EQ(std::vector<UINT>{}, TakeAll());
}

TEST(Messages, HaveOneNumberForAName) {
  const UINT number = RegisterWindowMessageW(TEXT("FerolinApiMessage"));
  EXPECT_GE(number, 0xC000U);
  EXPECT_LE(number, 0xFFFFU);
  EXPECT_EQ(number, RegisterWindowMessageW(TEXT("FerolinApiMessage")));
  EXPECT_EQ(number, RegisterWindowMessageW(TEXT("FEROLINAPIMESSAGE")));
  EXPECT_NE(number, RegisterWindowMessageW(TEXT("FerolinApiOther")));
  EXPECT_EQ(0U, RegisterWindowMessageW(TEXT("")));
}

TEST(Messages, OfKeysAreTranslated) {
  MSG message = {};
  for (const UINT key : {WM_KEYDOWN, WM_KEYUP}) {
    message.message = key;
    EXPECT_TRUE(TranslateMessage(&message));
  }
  message.message = OWN_MESSAGE;
  EXPECT_FALSE(TranslateMessage(&message));
}

TEST(Messages, ThatDoNotComeEndTheWaitAtItsTime) {
  TakeAll();
  EXPECT_EQ(static_cast<DWORD>(WAIT_TIMEOUT),
            MsgWaitForMultipleObjectsEx(0, nullptr, 1, QS_ALLINPUT, MWMO_INPUTAVAILABLE));
}

}  // namespace
