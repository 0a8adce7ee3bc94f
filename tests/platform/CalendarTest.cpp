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

TEST(Calendar, CountsFromTheStartOf1601) {
  const SYSTEMTIME epoch = {1601, 1, 0, 1, 0, 0, 0, 0};
  FILETIME file = FileTime(99);
  EXPECT_TRUE(SystemTimeToFileTime(&epoch, &file));
  EXPECT_EQ(0u, Value(file));
}

TEST(Calendar, CountsHundredNanoseconds) {
  // 1970 began 134774 days after 1601; 1 h 2 min 3.004 s are 3723.004 s.
  const SYSTEMTIME moment = {1970, 1, 0, 1, 1, 2, 3, 4};
  FILETIME file;
  EXPECT_TRUE(SystemTimeToFileTime(&moment, &file));
  EXPECT_EQ(134'774ull * 864'000'000'000 + 37'230'040'000, Value(file));
}

TEST(Calendar, DoesNotLookAtTheDayOfTheWeek) {
  const SYSTEMTIME moment = {2024, 2, 77, 29, 0, 0, 0, 0};
  FILETIME file;
  EXPECT_TRUE(SystemTimeToFileTime(&moment, &file));
}

TEST(Calendar, FindsTheDayOfTheWeek) {
  // 29 February 2024 was a Thursday.
  const SYSTEMTIME moment = {2024, 2, 0, 29, 23, 59, 59, 999};
  FILETIME file;
  ASSERT_TRUE(SystemTimeToFileTime(&moment, &file));
  SYSTEMTIME back = {};
  EXPECT_TRUE(FileTimeToSystemTime(&file, &back));
  EXPECT_EQ(2024, back.wYear);
  EXPECT_EQ(2, back.wMonth);
  EXPECT_EQ(29, back.wDay);
  EXPECT_EQ(4, back.wDayOfWeek);
  EXPECT_EQ(23, back.wHour);
  EXPECT_EQ(59, back.wMinute);
  EXPECT_EQ(59, back.wSecond);
  EXPECT_EQ(999, back.wMilliseconds);
}

TEST(Calendar, RefusesImpossibleFieldsAndLeavesTheResultAlone) {
  const SYSTEMTIME impossible[] = {
      {1600, 12, 0, 31, 0, 0, 0, 0},  {2024, 0, 0, 1, 0, 0, 0, 0},  {2024, 13, 0, 1, 0, 0, 0, 0},
      {2024, 1, 0, 0, 0, 0, 0, 0},    {2024, 1, 0, 32, 0, 0, 0, 0}, {2024, 2, 0, 30, 0, 0, 0, 0},
      {2023, 2, 0, 29, 0, 0, 0, 0},   {1900, 2, 0, 29, 0, 0, 0, 0}, {2024, 4, 0, 31, 0, 0, 0, 0},
      {2024, 1, 0, 1, 24, 0, 0, 0},   {2024, 1, 0, 1, 0, 60, 0, 0}, {2024, 1, 0, 1, 0, 0, 60, 0},
      {2024, 1, 0, 1, 0, 0, 0, 1000}, {30828, 1, 0, 1, 0, 0, 0, 0}, {2024, 257, 0, 1, 0, 0, 0, 0},
      {2024, 1, 0, 257, 0, 0, 0, 0},
  };
  for (const SYSTEMTIME& moment : impossible) {
    FILETIME file = FileTime(4711);
    EXPECT_FALSE(SystemTimeToFileTime(&moment, &file)) << moment.wYear << "-" << moment.wMonth;
    EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
    EXPECT_EQ(4711u, Value(file));
  }
}

TEST(Calendar, RefusesMomentsBeyondItsRange) {
  SYSTEMTIME fields = {};
  const FILETIME tooLate = FileTime(0x8000000000000000);
  EXPECT_FALSE(FileTimeToSystemTime(&tooLate, &fields));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(0, fields.wYear);
  EXPECT_FALSE(FileTimeToSystemTime(nullptr, &fields));
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
