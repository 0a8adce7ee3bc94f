#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "handheld.h"
#include "time/Calendar.h"
#include "time/TimeZone.h"

namespace {

constexpr std::int64_t MINUTE = 60;
constexpr std::int64_t HOUR = 60 * MINUTE;

/// Seconds east of UTC at a moment given in UTC.
std::int64_t OffsetAt(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0) {
  const SYSTEMTIME utc = {year, month, 0, day, hour, minute, 0, 0};
  return handheld::TimeZone::Instance().GetOffsetAt(
      handheld::Calendar::FromFields(utc).value_or(0));
}

class TimeZoneTest : public testing::Test {
 protected:
  ~TimeZoneTest() override { handheld::SetTimeZone("UTC0"); }
};

TEST_F(TimeZoneTest, CountsHoursWestOfGreenwich) {
  handheld::SetTimeZone("UTC0");
  EXPECT_EQ(0, OffsetAt(2024, 1, 1));
  handheld::SetTimeZone("MSK-3");
  EXPECT_EQ(3 * HOUR, OffsetAt(2024, 1, 1));
  handheld::SetTimeZone("EST5");
  EXPECT_EQ(-5 * HOUR, OffsetAt(2024, 1, 1));
  handheld::SetTimeZone("<+0545>-5:45");
  EXPECT_EQ(5 * HOUR + 45 * MINUTE, OffsetAt(2024, 1, 1));
}

TEST_F(TimeZoneTest, SummerBeginsAndEndsAtItsSundays) {
  handheld::SetTimeZone("CET-1CEST,M3.5.0,M10.5.0/3");
  // In 2024 the last Sundays were 31 March and 27 October; both changes are at 1:00 UTC.
  EXPECT_EQ(1 * HOUR, OffsetAt(2024, 3, 31, 0, 59));
  EXPECT_EQ(2 * HOUR, OffsetAt(2024, 3, 31, 1));
  EXPECT_EQ(2 * HOUR, OffsetAt(2024, 10, 27, 0, 59));
  EXPECT_EQ(1 * HOUR, OffsetAt(2024, 10, 27, 1));
}

TEST_F(TimeZoneTest, TheDatabaseIsKnownByName) {
  for (const char* name : {"Europe/Moscow", ":Europe/Moscow"}) {
    handheld::SetTimeZone(name);
    // From 27 March 2011 to 26 October 2014 Moscow was four hours ahead, before and after three.
    EXPECT_EQ(3 * HOUR, OffsetAt(2011, 1, 1)) << name;
    EXPECT_EQ(4 * HOUR, OffsetAt(2012, 1, 1)) << name;
    EXPECT_EQ(3 * HOUR, OffsetAt(2015, 1, 1)) << name;
  }
}

TEST_F(TimeZoneTest, UnknownNamesAreUtc) {
  for (const char* name : {"", "Nowhere/Town", "../../../etc/passwd", "/etc/passwd", "/none"}) {
    handheld::SetTimeZone("MSK-3");
    handheld::SetTimeZone(name);
    EXPECT_EQ(0, OffsetAt(2024, 7, 1)) << name;
  }
  handheld::SetTimeZone("MSK-3");
  handheld::SetTimeZone(nullptr);
  EXPECT_EQ(0, OffsetAt(2024, 7, 1));
}

TEST_F(TimeZoneTest, HoldsBefore1970AndFarAhead) {
  handheld::SetTimeZone("MSK-3");
  EXPECT_EQ(3 * HOUR, OffsetAt(1601, 1, 2));
  EXPECT_EQ(3 * HOUR, OffsetAt(30827, 12, 31));
}

TEST_F(TimeZoneTest, MayChangeWhileOthersAsk) {
  std::atomic<bool> isDone = false;
  std::thread asking([&isDone] {
    while (!isDone) {
      const std::int64_t offset = OffsetAt(2024, 1, 1);
      EXPECT_TRUE(offset == 0 || offset == 3 * HOUR) << offset;
    }
  });
  for (int i = 0; i < 100; ++i) {
    handheld::SetTimeZone(i % 2 == 0 ? "MSK-3" : "UTC0");
  }
  isDone = true;
  asking.join();
}

/// The environment is read once, so this needs a process of its own.
[[noreturn]] void ExitWithOffset(const char* zone) {
  setenv("TZ", zone, 1);
  std::exit(static_cast<int>(OffsetAt(2024, 1, 1) / HOUR));
}

TEST(TimeZoneDeathTest, StartsWithTheZoneOfTheEnvironment) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(ExitWithOffset("MSK-3"), testing::ExitedWithCode(3), "");
}

}  // namespace
