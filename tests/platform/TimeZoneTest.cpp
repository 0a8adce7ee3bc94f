#include <gtest/gtest.h>
#include <time.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

#include "handheld.h"
#include "time/Calendar.h"
#include "time/TimeZone.h"

namespace {

using handheld::PosixZone;
using handheld::TimeZone;

constexpr std::int64_t HOUR = 3600;

std::int64_t At(int year, unsigned month, unsigned day, int hour = 0, int minute = 0) {
  const std::chrono::sys_days date =
      std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day);
  return date.time_since_epoch().count() * 24 * HOUR + hour * HOUR + minute * 60;
}

PosixZone Rule(const std::string& text) {
  const auto rule = PosixZone::Parse(text);
  EXPECT_TRUE(rule) << text;
  return rule.value_or(PosixZone());
}

TEST(PosixZoneTest, CountsHoursWestOfGreenwich) {
  EXPECT_EQ(0, Rule("UTC0").GetOffsetAt(0));
  EXPECT_EQ(3 * HOUR, Rule("MSK-3").GetOffsetAt(0));
  EXPECT_EQ(-5 * HOUR, Rule("EST5").GetOffsetAt(0));
  EXPECT_EQ(5 * HOUR + 45 * 60, Rule("<+0545>-5:45").GetOffsetAt(0));
  EXPECT_EQ(-(HOUR + 62), Rule("ABC+1:01:02").GetOffsetAt(0));
}

TEST(PosixZoneTest, SummerBeginsAndEndsAtItsSundays) {
  const PosixZone zone = Rule("CET-1CEST,M3.5.0,M10.5.0/3");
  // In 2024 the last Sundays were 31 March and 27 October; both changes are at 1:00 UTC.
  EXPECT_EQ(1 * HOUR, zone.GetOffsetAt(At(2024, 3, 31, 1) - 1));
  EXPECT_EQ(2 * HOUR, zone.GetOffsetAt(At(2024, 3, 31, 1)));
  EXPECT_EQ(2 * HOUR, zone.GetOffsetAt(At(2024, 10, 27, 1) - 1));
  EXPECT_EQ(1 * HOUR, zone.GetOffsetAt(At(2024, 10, 27, 1)));
}

TEST(PosixZoneTest, SouthernSummerSpansTheNewYear) {
  const PosixZone zone = Rule("AEST-10AEDT,M10.1.0,M4.1.0/3");
  EXPECT_EQ(11 * HOUR, zone.GetOffsetAt(At(2024, 1, 1)));
  EXPECT_EQ(10 * HOUR, zone.GetOffsetAt(At(2024, 7, 1)));
  EXPECT_EQ(11 * HOUR, zone.GetOffsetAt(At(2024, 12, 31, 23)));
}

TEST(PosixZoneTest, KnowsDaysOfTheYear) {
  // Day 60 without leap days is 1 March in every year; day 60 counted from 0 is it only in common
  // years.
  const PosixZone without = Rule("AAA0BBB,J60/0,J300/0");
  EXPECT_EQ(0, without.GetOffsetAt(At(2024, 2, 29, 23)));
  EXPECT_EQ(HOUR, without.GetOffsetAt(At(2024, 3, 1)));
  EXPECT_EQ(HOUR, without.GetOffsetAt(At(2023, 3, 1)));
  const PosixZone from0 = Rule("AAA0BBB,59/0,299/0");
  EXPECT_EQ(HOUR, from0.GetOffsetAt(At(2024, 2, 29)));
  EXPECT_EQ(0, from0.GetOffsetAt(At(2023, 2, 28, 23)));
}

TEST(PosixZoneTest, SummerMayHaveAnOffsetOfItsOwn) {
  const PosixZone zone = Rule("LHST-10:30LHDT-11,M10.1.0,M4.1.0");
  EXPECT_EQ(11 * HOUR, zone.GetOffsetAt(At(2024, 1, 1)));
  EXPECT_EQ(10 * HOUR + 30 * 60, zone.GetOffsetAt(At(2024, 7, 1)));
}

TEST(PosixZoneTest, SummerWithoutRulesHasTheUsualOnes) {
  // Second Sunday in March, first in November.
  const PosixZone zone = Rule("EST5EDT");
  EXPECT_EQ(-5 * HOUR, zone.GetOffsetAt(At(2024, 3, 10, 6, 59)));
  EXPECT_EQ(-4 * HOUR, zone.GetOffsetAt(At(2024, 3, 10, 7)));
  EXPECT_EQ(-5 * HOUR, zone.GetOffsetAt(At(2024, 11, 3, 6)));
}

TEST(PosixZoneTest, RefusesWhatIsNoRule) {
  for (const char* text :
       {"", "AB0", "ABC", "ABC-", "ABC0x", "<ABC0", "ABC0DEF,M3.5.0", "ABC0DEF,M13.1.0,M10.5.0",
        "ABC0DEF,M3.5.0,M10.5.0,", "ABC999", "Europe/Nowhere", "ABC99999999999999999999"}) {
    EXPECT_FALSE(PosixZone::Parse(text)) << text;
  }
}

TEST(TimeZoneTest, UnknownNamesAreUtc) {
  for (const char* name : {"", "Nowhere/Town", "../../../etc/passwd", "/etc/passwd", "/none"}) {
    EXPECT_EQ(0, TimeZone::FromName(name).GetOffsetAt(At(2024, 7, 1))) << name;
  }
}

TEST(TimeZoneTest, DamagedFilesAreRefused) {
  EXPECT_FALSE(TimeZone::FromDatabase(""));
  EXPECT_FALSE(TimeZone::FromDatabase("TZif2"));
  std::string header = "TZif2" + std::string(15, '\0') + std::string(24, '\xff');
  EXPECT_FALSE(TimeZone::FromDatabase(header));
}

class DatabaseZone : public testing::TestWithParam<const char*> {};

/// The C library reads the same files by code of its own.
TEST_P(DatabaseZone, AgreesWithTheCLibrary) {
  if (!std::filesystem::exists(std::string("/usr/share/zoneinfo/") + GetParam())) {
    GTEST_SKIP() << "no such zone on this machine";
  }
  setenv("TZ", GetParam(), 1);
  tzset();
  const TimeZone zone = TimeZone::FromName(GetParam());
  for (std::int64_t moment = At(1900, 1, 1); moment < At(2100, 1, 1); moment += 97 * HOUR + 13) {
    const time_t time = moment;
    tm local;
    localtime_r(&time, &local);
    ASSERT_EQ(local.tm_gmtoff, zone.GetOffsetAt(moment)) << moment;
  }
}

INSTANTIATE_TEST_SUITE_P(Zones, DatabaseZone,
                         testing::Values("Europe/Moscow", "Europe/Berlin", "America/New_York",
                                         "Australia/Sydney", "Asia/Kathmandu", "Africa/Casablanca",
                                         "UTC", "America/St_Johns", "Antarctica/Troll"));

TEST(TimeZones, TheDatabaseIsKnownByName) {
  if (!std::filesystem::exists("/usr/share/zoneinfo/Europe/Moscow")) {
    GTEST_SKIP() << "no time zone database on this machine";
  }
  handheld::SetTimeZone(":Europe/Moscow");
  EXPECT_EQ(3 * HOUR, handheld::TimeZones::Instance().GetOffsetAt(handheld::Calendar::UNIX_EPOCH));
  handheld::SetTimeZone("Europe/Moscow");
  EXPECT_EQ(3 * HOUR, handheld::TimeZones::Instance().GetOffsetAt(handheld::Calendar::UNIX_EPOCH));
  handheld::SetTimeZone(nullptr);
  EXPECT_EQ(0, handheld::TimeZones::Instance().GetOffsetAt(handheld::Calendar::UNIX_EPOCH));
}

TEST(TimeZones, MayChangeWhileOthersConvert) {
  std::thread converter([] {
    for (int i = 0; i < 1000; ++i) {
      const FILETIME utc = {0, 30'000'000};
      FILETIME local;
      FileTimeToLocalFileTime(&utc, &local);
    }
  });
  for (int i = 0; i < 100; ++i) {
    handheld::SetTimeZone(i % 2 == 0 ? "MSK-3" : "UTC0");
  }
  converter.join();
}

}  // namespace
