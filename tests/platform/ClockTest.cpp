#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <thread>

#include "handheld.h"
#include "time/Calendar.h"
#include "time/Clock.h"

namespace {

constexpr SYSTEMTIME NOON = {2024, 2, 4, 29, 12, 0, 0, 250};

bool operator==(const SYSTEMTIME& left, const SYSTEMTIME& right) {
  return left.wYear == right.wYear && left.wMonth == right.wMonth && left.wDay == right.wDay &&
         left.wDayOfWeek == right.wDayOfWeek && left.wHour == right.wHour &&
         left.wMinute == right.wMinute && left.wSecond == right.wSecond &&
         left.wMilliseconds == right.wMilliseconds;
}

class ClockTest : public testing::Test {
 protected:
  ClockTest() { handheld::SetTimeZone("UTC0"); }
  ~ClockTest() override {
    handheld::SetTimeRate(1);
    handheld::SetClockStopped(false);
    handheld::SetTimeZone("UTC0");
  }
};

/// Needs a process whose clock was not changed yet.
[[noreturn]] void ExitWithClockDifference() {
  const auto machine = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  const std::chrono::seconds clock(
      (handheld::Clock::Instance().GetNow() - handheld::Calendar::UNIX_EPOCH) / 10'000'000);
  const auto difference = clock - machine.time_since_epoch();
  std::exit(difference >= std::chrono::seconds(0) && difference < std::chrono::hours(1) ? 10 : 20);
}

TEST(ClockDeathTest, ShowsTheMachinesTimeAtStart) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(ExitWithClockDifference(), testing::ExitedWithCode(10), "");
}

TEST_F(ClockTest, StandsWhenStopped) {
  handheld::SetClockStopped(true);
  handheld::SetClock(NOON);
  SYSTEMTIME local = {};
  GetLocalTime(&local);
  EXPECT_TRUE(local == NOON);
  Sleep(3);
  GetLocalTime(&local);
  EXPECT_TRUE(local == NOON);
}

TEST_F(ClockTest, RunsOnFromTheMomentItIsSetTo) {
  handheld::SetClock(NOON);
  const auto before = handheld::Clock::Instance().GetNow();
  Sleep(2);
  EXPECT_GE(handheld::Clock::Instance().GetNow(), before + 20'000);
}

TEST_F(ClockTest, RunsAtTheTimeRate) {
  handheld::SetClock(NOON);
  handheld::SetTimeRate(1e6);
  const auto before = handheld::Clock::Instance().GetNow();
  std::this_thread::sleep_for(std::chrono::milliseconds(2));
  // 2 ms at a million times are 2000 s.
  EXPECT_GE(handheld::Clock::Instance().GetNow() - before, 2000 * 10'000'000LL);
}

TEST_F(ClockTest, DoesNotJumpWhenTheRateChanges) {
  handheld::SetClockStopped(true);
  handheld::SetClock(NOON);
  const auto before = handheld::Clock::Instance().GetNow();
  handheld::SetTimeRate(1000);
  EXPECT_EQ(before, handheld::Clock::Instance().GetNow());
  handheld::SetClockStopped(false);
  EXPECT_GE(handheld::Clock::Instance().GetNow(), before);
}

TEST_F(ClockTest, IgnoresImpossibleRates) {
  for (const double rate : {0.0, -1.0, std::nan(""), HUGE_VAL}) {
    handheld::SetTimeRate(rate);
  }
  EXPECT_EQ(1, handheld::Clock::Instance().GetRate());
}

TEST_F(ClockTest, IgnoresImpossibleMoments) {
  handheld::SetClockStopped(true);
  handheld::SetClock(NOON);
  handheld::SetClock({2024, 13, 0, 1, 0, 0, 0, 0});
  SYSTEMTIME local = {};
  GetLocalTime(&local);
  EXPECT_TRUE(local == NOON);
}

TEST_F(ClockTest, ShowsLocalTime) {
  handheld::SetTimeZone("MSK-3");
  handheld::SetClockStopped(true);
  handheld::SetClock({2023, 12, 0, 31, 22, 30, 0, 0});
  SYSTEMTIME local = {};
  GetLocalTime(&local);
  // 2024 began on a Monday.
  EXPECT_TRUE(local == (SYSTEMTIME{2024, 1, 1, 1, 1, 30, 0, 0}));
}

TEST_F(ClockTest, TicksGoOnWhileTheClockStands) {
  handheld::SetClockStopped(true);
  const DWORD before = GetTickCount();
  Sleep(5);
  EXPECT_GE(GetTickCount() - before, 5u);
}

TEST_F(ClockTest, TicksFollowTheTimeRate) {
  handheld::SetTimeRate(1e6);
  const DWORD before = GetTickCount();
  std::this_thread::sleep_for(std::chrono::milliseconds(2));
  EXPECT_GE(GetTickCount() - before, 2'000'000u);
}

TEST_F(ClockTest, SleepsAreShorterAtAHighTimeRate) {
  handheld::SetTimeRate(1e9);
  // A month; the test would run into its time limit at any ordinary rate.
  Sleep(30u * 86'400u * 1000u);
  Sleep(0);
}

}  // namespace
