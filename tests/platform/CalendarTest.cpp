#include <gtest/gtest.h>

#include "handheld.h"
#include "time/Calendar.h"

namespace {

FILETIME FileTime(std::uint64_t value) {
  return {static_cast<DWORD>(value), static_cast<DWORD>(value >> 32)};
}

std::uint64_t Value(const FILETIME& file) {
  return static_cast<std::uint64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime;
}

TEST(Calendar, KnowsTheLengthOfMonthsAndItsLastYear) {
  const SYSTEMTIME impossible[] = {
      {2023, 2, 0, 29, 0, 0, 0, 0},
      {1900, 2, 0, 29, 0, 0, 0, 0},
      {2024, 4, 0, 31, 0, 0, 0, 0},
      {30828, 1, 0, 1, 0, 0, 0, 0},
  };
  for (const SYSTEMTIME& moment : impossible) {
    FILETIME file;
    EXPECT_FALSE(SystemTimeToFileTime(&moment, &file)) << moment.wYear << "-" << moment.wMonth;
  }
}

/// 257 cut to a byte is 1.
TEST(Calendar, CutsNoFieldToAByte) {
  const SYSTEMTIME impossible[] = {{2024, 257, 0, 1, 0, 0, 0, 0}, {2024, 1, 0, 257, 0, 0, 0, 0}};
  for (const SYSTEMTIME& moment : impossible) {
    FILETIME file;
    EXPECT_FALSE(SystemTimeToFileTime(&moment, &file)) << moment.wMonth << "-" << moment.wDay;
  }
}

TEST(Calendar, NeedsAMomentAndAPlace) {
  SYSTEMTIME fields = {};
  const FILETIME file = FileTime(0);
  EXPECT_FALSE(FileTimeToSystemTime(nullptr, &fields));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_FALSE(FileTimeToSystemTime(&file, nullptr));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

TEST(Calendar, ConvertsBetweenUtcAndLocalTime) {
  handheld::SetTimeZone("MSK-3");
  const FILETIME utc = FileTime(10'000'000'000'000);
  FILETIME local;
  EXPECT_TRUE(FileTimeToLocalFileTime(&utc, &local));
  EXPECT_EQ(10'000'000'000'000 + 3ull * 36'000'000'000, Value(local));
  FILETIME back;
  EXPECT_TRUE(LocalFileTimeToFileTime(&local, &back));
  EXPECT_EQ(Value(utc), Value(back));
  handheld::SetTimeZone("UTC0");
}

TEST(Calendar, UsesTheOffsetOfTodayForEverySeason) {
  handheld::SetTimeZone("CET-1CEST,M3.5.0,M10.5.0/3");
  handheld::SetClockStopped(true);
  const SYSTEMTIME january = {2024, 1, 0, 15, 12, 0, 0, 0};
  FILETIME utc;
  ASSERT_TRUE(SystemTimeToFileTime(&january, &utc));
  FILETIME local;

  handheld::SetClock({2024, 7, 0, 1, 12, 0, 0, 0});
  EXPECT_TRUE(FileTimeToLocalFileTime(&utc, &local));
  EXPECT_EQ(2ull * 36'000'000'000, Value(local) - Value(utc));
  handheld::SetClock({2024, 12, 0, 1, 12, 0, 0, 0});
  EXPECT_TRUE(FileTimeToLocalFileTime(&utc, &local));
  EXPECT_EQ(1ull * 36'000'000'000, Value(local) - Value(utc));
  handheld::SetTimeZone("UTC0");
}

TEST(Calendar, RefusesLocalTimesBeforeItsStart) {
  handheld::SetTimeZone("EST5");
  const FILETIME early = FileTime(1);
  FILETIME local = FileTime(4711);
  EXPECT_FALSE(FileTimeToLocalFileTime(&early, &local));
  EXPECT_EQ(4711u, Value(local));
  EXPECT_FALSE(FileTimeToLocalFileTime(nullptr, &local));
  handheld::SetTimeZone("UTC0");
}

}  // namespace
