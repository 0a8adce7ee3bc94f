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
  EXPECT_EQ(sensor.IsSaveable(), 1);
}

TEST_F(AverageSpeedSensorTest, FirstFixOnlySeeds) {
  EXPECT_EQ(drive.At(0, 36).Text(), "");
  EXPECT_EQ(drive.State(), "0;0");
}

TEST_F(AverageSpeedSensorTest, TenSecondsAt36KmhAverage36Kmh) {
  EXPECT_EQ(drive.Every(0, 11, 36).Text(), "36.00 km/h");
  EXPECT_EQ(drive.State(), "0.1;10");
}

/// Mean speeds of 5 and 30 km/h over 1 and 2 seconds: 65 / 3.
TEST_F(AverageSpeedSensorTest, SpeedIsIntegratedByTrapezoids) {
  EXPECT_EQ(drive.At(0, 0).At(1, 10).At(3, 50).Text(), "21.67 km/h");
  EXPECT_EQ(drive.State(), "0.0180556;3");
}

/// 20000 s at 54.3 km/h are 301.667 km; single precision makes them 301.708 (worked out apart,
/// rounding after each step).
TEST_F(AverageSpeedSensorTest, SumIsKeptInSinglePrecision) {
  EXPECT_EQ(drive.Every(0, 20001, 54.3F).State(), "301.708;20000");
  EXPECT_EQ(drive.Text(), "54.31 km/h");
}

TEST_F(AverageSpeedSensorTest, StandingTimeCounts) {
  EXPECT_EQ(drive.Every(0, 11, 36).At(10.5, 0).Every(11, 11, 0).Text(), "18.00 km/h");
}

TEST_F(AverageSpeedSensorTest, TwoFixesWithinASecondAddNeitherTimeNorDistance) {
  drive.Every(0, 11, 36).At(10.5, 90).At(11.4, 90);
  EXPECT_EQ(drive.State(), "0.1;10");
  EXPECT_EQ(drive.Text(), "36.00 km/h");
}

TEST_F(AverageSpeedSensorTest, FractionsOfEachStepAreDropped) {
  EXPECT_EQ(drive.At(0, 36).At(1.9, 36).At(3.8, 36).State(), "0.02;2");
}

TEST_F(AverageSpeedSensorTest, TextIsLeftAloneWhileNoSecondIsCounted) {
  EXPECT_EQ(drive.At(0, 36).At(0.5, 36).Text(), "");
}

TEST_F(AverageSpeedSensorTest, GapWithoutAFixAddsNothing) {
  drive.Every(0, 11, 36).LostAt(11, 36).At(20, 36);
  EXPECT_EQ(drive.State(), "0.1;10");
  drive.WithoutSpeedAt(21).At(30, 36);
  EXPECT_EQ(drive.State(), "0.1;10");
  EXPECT_EQ(drive.At(31, 36).State(), "0.11;11");
}

TEST_F(AverageSpeedSensorTest, ClockThatGoesBackOnlySeedsAfresh) {
  drive.Every(0, 11, 36).At(5, 36);
  EXPECT_EQ(drive.State(), "0.1;10");
  EXPECT_EQ(drive.At(6, 36).State(), "0.11;11");
}

TEST_F(AverageSpeedSensorTest, RestoredAverageIsShownAtOnceAndGoesOn) {
  EXPECT_EQ(sensor.SetRegistryString("10;1800"), 1);
  EXPECT_EQ(drive.Text(), "20.00 km/h");
  EXPECT_EQ(drive.State(), "10;1800");
  // 30 km in an hour.
  EXPECT_EQ(drive.At(0, 40).At(1800, 40).Text(), "30.00 km/h");
}

TEST_F(AverageSpeedSensorTest, OnlyAPositiveDistanceInAPositiveTimeIsRestored) {
  sensor.SetRegistryString("10;1800");
  for (const char* text : {"0;100", "-1;100", "10;0", "10;-5", "10", "10;", ";100", "", "x;y"}) {
    EXPECT_EQ(sensor.SetRegistryString(text), 0) << text;
  }
  EXPECT_EQ(drive.Text(), "20.00 km/h");
  EXPECT_EQ(drive.State(), "10;1800");
}

TEST_F(AverageSpeedSensorTest, LowHalfOfTheSecondsIsSaved) {
  EXPECT_EQ(sensor.SetRegistryString("10;4294967301"), 1);
  EXPECT_EQ(drive.State(), "10;5");
}

TEST_F(AverageSpeedSensorTest, ResetStartsAtZeroButLeavesTheTextUntilTheNextStep) {
  drive.Every(0, 11, 36);
  sensor.Reset();
  EXPECT_EQ(drive.Text(), "36.00 km/h");
  EXPECT_EQ(drive.State(), "0;0");
  EXPECT_EQ(drive.At(11, 72).Text(), "36.00 km/h");
  EXPECT_EQ(drive.At(12, 72).Text(), "72.00 km/h");
}

}  // namespace
}  // namespace ferolin
