#include <gtest/gtest.h>

#include <chrono>
#include <vector>

#include "sources/FixReader.h"

namespace host {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::sys_days DAY = std::chrono::year(1994) / 3 / 23;

std::int64_t MsOf(std::chrono::sys_time<std::chrono::milliseconds> moment) {
  return moment.time_since_epoch().count();
}

class FixReaderTest : public testing::Test {
 protected:
  void Add(std::initializer_list<const char*> sentences) {
    for (const char* each : sentences) {
      reader.Add(each);
    }
  }

  std::vector<Fix> fixes;
  FixReader reader{[this](const Fix& fix) { fixes.push_back(fix); }};
};

TEST_F(FixReaderTest, PutsAMomentTogether) {
  Add({"$GPGGA,123519.25,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,",
       "$GPGSA,A,3,04,05,,09,12,,,24,,,,,2.5,1.3,2.1", "$GPGSV,1,1,00",
       "$GPRMC,123519.25,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"});
  EXPECT_TRUE(fixes.empty());
  reader.Finish();
  ASSERT_EQ(1u, fixes.size());
  const Fix& fix = fixes[0];
  EXPECT_EQ(MsOf(DAY + 12h + 35min + 19s + 250ms), fix.timeMs);
  EXPECT_TRUE(fix.hasFix);
  EXPECT_DOUBLE_EQ(48 + 7.038 / 60, fix.latitude.value());
  EXPECT_DOUBLE_EQ(11 + 31.0 / 60, fix.longitude.value());
  EXPECT_DOUBLE_EQ(545.4, fix.altitude.value());
  EXPECT_DOUBLE_EQ(22.4 * 1.852, fix.speedKmh.value());
  EXPECT_DOUBLE_EQ(84.4, fix.course.value());
  EXPECT_DOUBLE_EQ(0.9, fix.hdop.value());
  EXPECT_EQ(8, fix.satellites);
}

TEST_F(FixReaderTest, TellsSouthAndWest) {
  Add({"$GNRMC,123519,A,3330.00000,S,07045.00000,W,0,,230394,,"});
  reader.Finish();
  EXPECT_DOUBLE_EQ(-33.5, fixes.at(0).latitude.value());
  EXPECT_DOUBLE_EQ(-70.75, fixes.at(0).longitude.value());
  EXPECT_FALSE(fixes.at(0).course);
  EXPECT_FALSE(fixes.at(0).altitude);
}

TEST_F(FixReaderTest, DeliversBehindTheKindThatEndedTheMomentBefore) {
  Add({"$GNRMC,000001,A,,,,,1,,230394,,", "$GNGGA,000001,,,,,1,05,,,M,,M,,",
       "$GNRMC,000002,A,,,,,2,,230394,,"});
  EXPECT_EQ(1u, fixes.size());
  Add({"$GNGGA,000002,,,,,1,06,,,M,,M,,"});
  ASSERT_EQ(2u, fixes.size());
  EXPECT_EQ(5, fixes[0].satellites);
  EXPECT_EQ(6, fixes[1].satellites);
  EXPECT_DOUBLE_EQ(2 * 1.852, fixes[1].speedKmh.value());
  Add({"$GNVTG,1,T,,M,7,N,8,K", "$GNRMC,000003,A,,,,,3,,230394,,"});
  EXPECT_EQ(2u, fixes.size());
  reader.Finish();
  EXPECT_EQ(3u, fixes.size());
}

TEST_F(FixReaderTest, EndsAMomentOfWhichASentenceIsMissing) {
  Add({"$GPRMC,000001,A,,,,,1,,230394,,", "$GPGGA,000001,,,,,1,05,,,M,,M,,",
       "$GPRMC,000002,A,,,,,2,,230394,,", "$GPRMC,000003,A,,,,,3,,230394,,",
       "$GPGGA,000003,,,,,1,07,,,M,,M,,"});
  reader.Finish();
  ASSERT_EQ(3u, fixes.size());
  EXPECT_FALSE(fixes[1].satellites);
  EXPECT_EQ(7, fixes[2].satellites);
  EXPECT_EQ(MsOf(DAY + 3s), fixes[2].timeMs);
}

TEST_F(FixReaderTest, TakesARepeatedTimeForTheNextMoment) {
  Add({"$GPRMC,000001,A,,,,,1,,230394,,", "$GPRMC,000001,A,,,,,2,,230394,,"});
  reader.Finish();
  EXPECT_EQ(2u, fixes.size());
}

TEST_F(FixReaderTest, TakesSpeedAndPrecisionFromWhereverTheyStand) {
  Add({"$GPRMC,000001,A,,,,,,,230394,,", "$GPVTG,084.4,T,077.8,M,022.4,N,041.5,K",
       "$GPGSA,A,3,,,,,,,,,,,,,2.5,1.3,2.1"});
  reader.Finish();
  EXPECT_DOUBLE_EQ(22.4 * 1.852, fixes.at(0).speedKmh.value());
  EXPECT_DOUBLE_EQ(84.4, fixes.at(0).course.value());
  EXPECT_DOUBLE_EQ(1.3, fixes.at(0).hdop.value());
  EXPECT_FALSE(fixes.at(0).satellites);
}

TEST_F(FixReaderTest, HasNoFixAndNoTimeWhereTheReceiverHasNone) {
  Add({"$GPRMC,000001,V,,,,,,,,,,N"});
  reader.Finish();
  Fix expected;
  EXPECT_EQ(expected, fixes.at(0));
}

TEST_F(FixReaderTest, TakesTheDateOfItsOwnRmcAtMidnight) {
  Add({"$GPGGA,235959,,,,,1,05,,,M,,M,,", "$GPRMC,235959,A,,,,,1,,230394,,",
       "$GPGGA,000000,,,,,1,05,,,M,,M,,", "$GPRMC,000000,A,,,,,1,,240394,,"});
  reader.Finish();
  ASSERT_EQ(2u, fixes.size());
  EXPECT_EQ(MsOf(DAY + 24h), fixes[1].timeMs);
}

TEST_F(FixReaderTest, LeavesOtherSentencesAlone) {
  Add({"$PGRMC,1,2", "$GPGLL,1", "$PARMC,000001,A", "$", "$GPGSA", "$GPVTG,1,T,,M,7,N,8,K"});
  reader.Finish();
  EXPECT_TRUE(fixes.empty());
}

TEST_F(FixReaderTest, KnowsThePresentMomentBeforeItsEnd) {
  Add({"$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,",
       "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"});
  EXPECT_EQ(MsOf(DAY + 12h + 35min + 19s), reader.GetPresent().timeMs);
  EXPECT_EQ(84.4, reader.GetPresent().course);
  EXPECT_EQ(545.4, reader.GetPresent().altitude);
}

TEST_F(FixReaderTest, TakesHeightAndSatellitesOfTheMomentBeforeUntilTheyCome) {
  Add({"$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W",
       "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,",
       "$GPRMC,123520,A,4807.038,N,01131.000,E,,,230394,003.1,W"});
  EXPECT_EQ(MsOf(DAY + 12h + 35min + 20s), reader.GetPresent().timeMs);
  EXPECT_EQ(545.4, reader.GetPresent().altitude);
  EXPECT_EQ(0.9, reader.GetPresent().hdop);
  EXPECT_EQ(8, reader.GetPresent().satellites);
  EXPECT_EQ(std::nullopt, reader.GetPresent().speedKmh);
  Add({"$GPRMC,123521,A,4807.038,N,01131.000,E,,,230394,003.1,W"});
  EXPECT_EQ(std::nullopt, reader.GetPresent().altitude);
}

TEST_F(FixReaderTest, KnowsNothingAfterTheEnd) {
  Add({"$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,",
       "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230394,003.1,W"});
  reader.Finish();
  EXPECT_EQ(std::nullopt, reader.GetPresent().altitude);
  EXPECT_FALSE(reader.GetPresent().hasFix);
}

}  // namespace
}  // namespace host
