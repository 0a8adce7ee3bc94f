#include <gtest/gtest.h>

#include "handheld.h"

namespace {

/// Facts about timers that tests/api does not test on both homes.
class Timers : public testing::Test {
 protected:
  Timers() {
    WNDCLASSW windowClass = {};
    windowClass.lpszClassName = u"Timers";
    windowClass.lpfnWndProc = DefWindowProcW;
    RegisterClassW(&windowClass);
    window = CreateWindowExW(0, u"Timers", u"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  }
  ~Timers() override {
    DestroyWindow(window);
    handheld::SetTimeRate(1);
  }

  HWND window = nullptr;
};

TEST_F(Timers, LiveInTheTimeOfTheDevice) {
  handheld::SetTimeRate(100'000);
  const DWORD start = GetTickCount();
  SetTimer(window, 1, 3'600'000, nullptr);
  MSG message = {};
  EXPECT_EQ(TRUE, GetMessageW(&message, window, 0, 0));
  EXPECT_EQ(WM_TIMER, message.message);
  EXPECT_GE(GetTickCount() - start, 3'600'000u);
}

TEST_F(Timers, AnswerWithTheirNumber) {
  EXPECT_EQ(5u, SetTimer(window, 5, 1000, nullptr));
  EXPECT_NE(0u, SetTimer(window, 0, 1000, nullptr));
}

TEST_F(Timers, HaveNoProcedures) {
  EXPECT_EQ(0u, SetTimer(window, 1, 10, [](HWND, UINT, UINT_PTR, DWORD) {}));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

}  // namespace
