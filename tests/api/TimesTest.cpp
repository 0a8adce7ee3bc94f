#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>

#include "support/Moments.h"

namespace {

using testing_support::Moment;

/// 100 ns since 1601; -1 for what is no moment.
std::int64_t Number(const SYSTEMTIME& moment) {
  FILETIME time;
  if (!SystemTimeToFileTime(&moment, &time)) {
    return -1;
  }
  return static_cast<std::int64_t>(std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime);
}

FILETIME Time(std::uint64_t number) {
  return {static_cast<DWORD>(number), static_cast<DWORD>(number >> 32)};
}

TEST(Times, CountFrom1601) {
  EXPECT_EQ(0, Number(Moment(1601, 1, 1, 0, 0, 0, 0)));
  EXPECT_EQ(10'000, Number(Moment(1601, 1, 1, 0, 0, 0, 1)));
  EXPECT_EQ(864'000'000'000, Number(Moment(1601, 1, 2, 0, 0, 0, 0)));
  // 369 years with 89 leap days.
  EXPECT_EQ((369LL * 365 + 89) * 864'000'000'000, Number(Moment(1970, 1, 1, 0, 0, 0, 0)));
}

TEST(Times, ComeBackAsTheyWere) {
  // 1970 began 134774 days after 1601; 1 h 2 min 3.004 s are 3723.004 s.
  EXPECT_EQ(134'774 * 864'000'000'000 + 37'230'040'000, Number(Moment(1970, 1, 1, 1, 2, 3, 4)));
  const FILETIME time =
      Time(static_cast<std::uint64_t>(Number(Moment(2024, 2, 29, 23, 59, 59, 999))));
  SYSTEMTIME moment;
  ASSERT_TRUE(FileTimeToSystemTime(&time, &moment));
  EXPECT_EQ(2024, moment.wYear);
  EXPECT_EQ(2, moment.wMonth);
  EXPECT_EQ(29, moment.wDay);
  EXPECT_EQ(23, moment.wHour);
  EXPECT_EQ(59, moment.wMinute);
  EXPECT_EQ(59, moment.wSecond);
  EXPECT_EQ(999, moment.wMilliseconds);
}

TEST(Times, AreNoneWithFieldsOutOfTheirRange) {
  EXPECT_EQ(-1, Number(Moment(1600, 12, 31, 0, 0, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 0, 1, 0, 0, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 13, 1, 0, 0, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 1, 0, 0, 0, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 2, 30, 0, 0, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 1, 1, 24, 0, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 1, 1, 0, 60, 0, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 1, 1, 0, 0, 60, 0)));
  EXPECT_EQ(-1, Number(Moment(2024, 1, 1, 0, 0, 0, 1000)));
}

TEST(Times, KeepTheirTargetWhenTheyAreNone) {
  const SYSTEMTIME moment = Moment(2024, 13, 1, 0, 0, 0, 0);
  FILETIME time = {1, 2};
  EXPECT_FALSE(SystemTimeToFileTime(&moment, &time));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
  EXPECT_EQ(1U, time.dwLowDateTime);
  EXPECT_EQ(2U, time.dwHighDateTime);
}

TEST(Times, DoNotReadTheDayOfTheWeekButTellIt) {
  SYSTEMTIME moment = Moment(2024, 2, 29, 12, 0, 0, 0);
  moment.wDayOfWeek = 9;
  const std::int64_t number = Number(moment);
  EXPECT_EQ(number, Number(Moment(2024, 2, 29, 12, 0, 0, 0)));
  const FILETIME time = Time(static_cast<std::uint64_t>(number));
  ASSERT_TRUE(FileTimeToSystemTime(&time, &moment));
  EXPECT_EQ(4, moment.wDayOfWeek);  // a Thursday
  EXPECT_EQ(29, moment.wDay);
}

TEST(Times, LoseWhatIsLessThanAMillisecond) {
  const FILETIME time = Time(19'999);
  SYSTEMTIME moment;
  ASSERT_TRUE(FileTimeToSystemTime(&time, &moment));
  EXPECT_EQ(1, moment.wMilliseconds);
}

TEST(Times, EndWhereTheSignBitIsSet) {
  const FILETIME last = Time(0x7FFF'FFFF'FFFF'FFFF);
  SYSTEMTIME moment;
  EXPECT_TRUE(FileTimeToSystemTime(&last, &moment));
  EXPECT_EQ(30828, moment.wYear);
  const FILETIME beyond = Time(0x8000'0000'0000'0000);
  EXPECT_FALSE(FileTimeToSystemTime(&beyond, &moment));
  EXPECT_EQ(ERROR_INVALID_PARAMETER, GetLastError());
}

}  // namespace
