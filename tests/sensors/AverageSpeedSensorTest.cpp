#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/AverageSpeedSensor.h"

namespace ferolin {
namespace {

class AverageSpeedSensorTest : public testing::Test {
 protected:
  AverageSpeedSensor sensor{"Average speed"};
  Drive drive{sensor};
};

TEST_F(AverageSpeedSensorTest, IsSaveable) {
  EXPECT_EQ(1, sensor.IsSaveable());
}

TEST_F(AverageSpeedSensorTest, FirstFixOnlySeeds) {
  EXPECT_EQ("", drive.At(0, 36).Text());
  EXPECT_EQ("0;0", drive.State());
}

TEST_F(AverageSpeedSensorTest, TenSecondsAt36KmhAverage36Kmh) {
  EXPECT_EQ("36.00 km/h", drive.Every(0, 11, 36).Text());
  EXPECT_EQ("0.1;10", drive.State());
}

/// Mean speeds of 5 and 30 km/h over 1 and 2 seconds: 65 / 3.
TEST_F(AverageSpeedSensorTest, SpeedIsIntegratedByTrapezoids) {
  EXPECT_EQ("21.67 km/h", drive.At(0, 0).At(1, 10).At(3, 50).Text());
  EXPECT_EQ("0.0180556;3", drive.State());
}

/// 20000 s at 54.3 km/h are 301.667 km; single precision makes them 301.708 (worked out apart,
/// rounding after each step).
TEST_F(AverageSpeedSensorTest, SumIsKeptInSinglePrecision) {
  EXPECT_EQ("301.708;20000", drive.Every(0, 20001, 54.3F).State());
  EXPECT_EQ("54.31 km/h", drive.Text());
}

TEST_F(AverageSpeedSensorTest, StandingTimeCounts) {
  EXPECT_EQ("18.00 km/h", drive.Every(0, 11, 36).At(10.5, 0).Every(11, 11, 0).Text());
}

TEST_F(AverageSpeedSensorTest, TwoFixesWithinASecondAddNeitherTimeNorDistance) {
  drive.Every(0, 11, 36).At(10.5, 90).At(11.4, 90);
  EXPECT_EQ("0.1;10", drive.State());
  EXPECT_EQ("36.00 km/h", drive.Text());
}

TEST_F(AverageSpeedSensorTest, FractionsOfEachStepAreDropped) {
  EXPECT_EQ("0.02;2", drive.At(0, 36).At(1.9, 36).At(3.8, 36).State());
}

TEST_F(AverageSpeedSensorTest, TextIsLeftAloneWhileNoSecondIsCounted) {
  EXPECT_EQ("", drive.At(0, 36).At(0.5, 36).Text());
}

TEST_F(AverageSpeedSensorTest, GapWithoutAFixAddsNothing) {
  drive.Every(0, 11, 36).LostAt(11, 36).At(20, 36);
  EXPECT_EQ("0.1;10", drive.State());
  drive.WithoutSpeedAt(21).At(30, 36);
  EXPECT_EQ("0.1;10", drive.State());
  EXPECT_EQ("0.11;11", drive.At(31, 36).State());
}

TEST_F(AverageSpeedSensorTest, ClockThatGoesBackOnlySeedsAfresh) {
  drive.Every(0, 11, 36).At(5, 36);
  EXPECT_EQ("0.1;10", drive.State());
  EXPECT_EQ("0.11;11", drive.At(6, 36).State());
}

TEST_F(AverageSpeedSensorTest, RestoredAverageIsShownAtOnceAndGoesOn) {
  EXPECT_EQ(1, sensor.SetRegistryString("10;1800"));
  EXPECT_EQ("20.00 km/h", drive.Text());
  EXPECT_EQ("10;1800", drive.State());
  // 30 km in an hour.
  EXPECT_EQ("30.00 km/h", drive.At(0, 40).At(1800, 40).Text());
}

TEST_F(AverageSpeedSensorTest, OnlyAPositiveDistanceInAPositiveTimeIsRestored) {
  sensor.SetRegistryString("10;1800");
  for (const char* text : {"0;100", "-1;100", "10;0", "10;-5", "10", "10;", ";100", "", "x;y"}) {
    EXPECT_EQ(0, sensor.SetRegistryString(text)) << text;
  }
  EXPECT_EQ("20.00 km/h", drive.Text());
  EXPECT_EQ("10;1800", drive.State());
}

TEST_F(AverageSpeedSensorTest, LowHalfOfTheSecondsIsSaved) {
  EXPECT_EQ(1, sensor.SetRegistryString("10;4294967301"));
  EXPECT_EQ("10;5", drive.State());
}

TEST_F(AverageSpeedSensorTest, ResetStartsAtZeroButLeavesTheTextUntilTheNextStep) {
  drive.Every(0, 11, 36);
  sensor.Reset();
  EXPECT_EQ("36.00 km/h", drive.Text());
  EXPECT_EQ("0;0", drive.State());
  EXPECT_EQ("36.00 km/h", drive.At(11, 72).Text());
  EXPECT_EQ("72.00 km/h", drive.At(12, 72).Text());
}

}  // namespace
}  // namespace ferolin
