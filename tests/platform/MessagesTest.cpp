#include <gtest/gtest.h>

#include <future>
#include <thread>
#include <vector>

#include "core/History.h"
#include "handheld.h"

namespace {

constexpr UINT WM_APP = 0x8000;
constexpr DWORD INFINITE = 0xFFFFFFFF;

LRESULT CALLBACK AddUp(HWND, UINT, WPARAM wParam, LPARAM lParam) {
  return static_cast<LRESULT>(wParam) + lParam;
}

HWND CreateTestWindow() {
  WNDCLASSW windowClass = {};
  windowClass.lpszClassName = u"Messages";
  windowClass.lpfnWndProc = AddUp;
  RegisterClassW(&windowClass);
  return CreateWindowExW(0, u"Messages", u"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
}

/// Facts about messages that tests/api does not test on both homes.
class Messages : public testing::Test {
 protected:
  Messages() : window(CreateTestWindow()) { handheld::ForgetMessagesPosted(); }
  ~Messages() override {
    DestroyWindow(window);
    MSG rest;
    while (PeekMessageW(&rest, nullptr, 0, 0, PM_REMOVE)) {
    }
  }

  const HWND window;
  MSG message = {};
};

TEST_F(Messages, AreDispatchedToTheWindow) {
  PostMessageW(window, WM_APP, 20, 22);
  GetMessageW(&message, nullptr, 0, 0);
  EXPECT_EQ(42, DispatchMessageW(&message));
}

TEST_F(Messages, ForNoWindowAreDispatchedNowhere) {
  EXPECT_EQ(0, DispatchMessageW(nullptr));
  EXPECT_EQ(0, DispatchMessageW(&message));
  message.hwnd = reinterpret_cast<HWND>(ULONG_PTR{0x7777});
  EXPECT_EQ(0, DispatchMessageW(&message));
}

TEST_F(Messages, StayWhenOnlyPeekedAt) {
  PostMessageW(window, WM_APP, 0, 0);
  EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, 0));
  EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, 0));
}

TEST_F(Messages, AreFilteredByWindow) {
  const HWND other = CreateTestWindow();
  PostMessageW(window, WM_APP, 0, 0);
  PostMessageW(other, WM_APP, 0, 0);
  EXPECT_TRUE(PeekMessageW(&message, other, 0, 0, PM_REMOVE));
  EXPECT_EQ(other, message.hwnd);
  EXPECT_FALSE(PeekMessageW(&message, other, 0, 0, PM_REMOVE));
  DestroyWindow(other);
  EXPECT_EQ(-1, GetMessageW(&message, other, 0, 0));
}

TEST_F(Messages, GoToTheThreadOfTheWindow) {
  std::promise<HWND> made;
  std::thread owner([&made] {
    const HWND own = CreateTestWindow();
    made.set_value(own);
    MSG received = {};
    EXPECT_EQ(TRUE, GetMessageW(&received, nullptr, 0, 0));
    EXPECT_EQ(own, received.hwnd);
    EXPECT_EQ(WM_APP, received.message);
    DestroyWindow(own);
  });
  EXPECT_TRUE(PostMessageW(made.get_future().get(), WM_APP, 0, 0));
  owner.join();
  EXPECT_FALSE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Messages, QuittingPassesEveryFilter) {
  PostQuitMessage(0);
  EXPECT_TRUE(PeekMessageW(&message, window, WM_APP, WM_APP, PM_REMOVE));
  EXPECT_EQ(WM_QUIT, message.message);
}

TEST_F(Messages, AreRemembered) {
  const HWND gone = CreateTestWindow();
  DestroyWindow(gone);
  PostMessageW(window, WM_APP, 1, 0);
  PostMessageW(gone, WM_APP, 2, 0);
  PostMessageW(nullptr, WM_APP, 3, 0);
  PostMessageW(window, WM_APP, 4, 0);
  const std::vector<MSG> posted = handheld::MessagesPosted();
  ASSERT_EQ(2u, posted.size());
  EXPECT_EQ(1u, posted[0].wParam);
  EXPECT_EQ(4u, posted[1].wParam);
  handheld::ForgetMessagesPosted();
  EXPECT_TRUE(handheld::MessagesPosted().empty());
}

TEST_F(Messages, WaitingEndsWithAMessage) {
  std::thread sender([this] { PostMessageW(window, WM_APP, 0, 0); });
  EXPECT_EQ(WAIT_OBJECT_0,
            MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE));
  sender.join();
  EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(Messages, WaitingLooksAtOldMessagesOnlyWhenAskedTo) {
  PostMessageW(window, WM_APP, 0, 0);
  PeekMessageW(&message, nullptr, 0, 0, 0);
  EXPECT_EQ(WAIT_TIMEOUT, MsgWaitForMultipleObjectsEx(0, nullptr, 0, QS_ALLINPUT, 0));
  EXPECT_EQ(WAIT_OBJECT_0,
            MsgWaitForMultipleObjectsEx(0, nullptr, 0, QS_ALLINPUT, MWMO_INPUTAVAILABLE));
  PostMessageW(window, WM_APP, 0, 0);
  EXPECT_EQ(WAIT_OBJECT_0, MsgWaitForMultipleObjectsEx(0, nullptr, 0, QS_ALLINPUT, 0));
}

TEST_F(Messages, WaitingKnowsNoHandles) {
  const HANDLE handle = nullptr;
  EXPECT_EQ(0xFFFFFFFF, MsgWaitForMultipleObjectsEx(1, &handle, 0, QS_ALLINPUT, 0));
}

TEST_F(Messages, NeedAPlaceAndAName) {
  EXPECT_EQ(-1, GetMessageW(nullptr, nullptr, 0, 0));
  EXPECT_FALSE(PeekMessageW(nullptr, nullptr, 0, 0, 0));
  EXPECT_EQ(0u, RegisterWindowMessageW(nullptr));
}

TEST_F(Messages, FromManyThreadsAllArrive) {
  std::vector<std::thread> senders;
  for (int i = 0; i < 4; ++i) {
    senders.emplace_back([this] {
      for (int k = 0; k < 100; ++k) {
        PostMessageW(window, WM_APP, 0, 0);
      }
    });
  }
  for (int i = 0; i < 400; ++i) {
    EXPECT_EQ(TRUE, GetMessageW(&message, nullptr, 0, 0));
  }
  for (std::thread& sender : senders) {
    sender.join();
  }
  EXPECT_EQ(400u, handheld::MessagesPosted().size());
}

TEST(HistoryTest, KeepsTheLatest) {
  handheld::History<int> history;
  constexpr int CAPACITY = handheld::History<int>::CAPACITY;
  for (int i = 0; i < CAPACITY + 3; ++i) {
    history.Add(i);
  }
  const std::vector<int> kept = history.GetAll();
  EXPECT_EQ(static_cast<std::size_t>(CAPACITY), kept.size());
  EXPECT_EQ(3, kept.front());
  EXPECT_EQ(CAPACITY + 2, kept.back());
}

}  // namespace
