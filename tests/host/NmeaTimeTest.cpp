#include <gtest/gtest.h>

#include "sources/NmeaTime.h"

namespace host {
namespace {

constexpr std::int64_t DAY_MS = 86400000;

TEST(NmeaTime, CountsMillisecondsSinceMidnight) {
  EXPECT_EQ(0, ParseNmeaTime("000000"));
  EXPECT_EQ(3723000, ParseNmeaTime("010203"));
  EXPECT_EQ(3723250, ParseNmeaTime("010203.25"));
  EXPECT_EQ(3723000, ParseNmeaTime("010203."));
  EXPECT_EQ(86399999, ParseNmeaTime("235959.9999"));
  EXPECT_EQ(DAY_MS, ParseNmeaTime("235960"));
  EXPECT_EQ(std::nullopt, ParseNmeaTime(""));
  EXPECT_EQ(std::nullopt, ParseNmeaTime("240000"));
}

// From 1970 to 1990 there are 5 leap days, from 1970 to 2000 there are 7.
TEST(NmeaTime, CountsDaysSince1970AndReadsYearsFrom90OnAsThe1900s) {
  EXPECT_EQ((20 * 365 + 5) * DAY_MS, ParseNmeaDate("010190"));
  EXPECT_EQ((30 * 365 + 7) * DAY_MS, ParseNmeaDate("010100"));
  EXPECT_EQ(std::nullopt, ParseNmeaDate(""));
  EXPECT_EQ(std::nullopt, ParseNmeaDate("290221"));
}

}  // namespace
}  // namespace host
