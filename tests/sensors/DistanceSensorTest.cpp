#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/DistanceSensor.h"

namespace ferolin {
namespace {

class DistanceSensorTest : public testing::Test {
 protected:
  std::string TextOfRestored(const char* state) {
    EXPECT_EQ(sensor.SetRegistryString(state), 1) << state;
    return drive.Text();
  }

  DistanceSensor sensor{"Distance"};
  Drive drive{sensor};
};

TEST_F(DistanceSensorTest, IsSaveable) {
  EXPECT_EQ(sensor.IsSaveable(), 1);
}

TEST_F(DistanceSensorTest, FirstFixOnlySeeds) {
  EXPECT_EQ(drive.At(0, 36).Text(), "");
  EXPECT_EQ(drive.State(), "0");
}

TEST_F(DistanceSensorTest, TenSecondsAt36KmhAreAHundredMetres) {
  EXPECT_EQ(drive.Every(0, 11, 36).Text(), "100 m");
  EXPECT_EQ(drive.State(), "0.1");
}

/// Mean speeds of 5, 30 and 51 km/h over 1, 2 and 0.5 seconds: (5 + 60 + 25.5) / 3600 km.
TEST_F(DistanceSensorTest, SpeedIsIntegratedByTrapezoids) {
  drive.At(0, 0).At(1, 10).At(3, 50).At(3.5, 52);
  EXPECT_EQ(drive.State(), "0.0251389");
  EXPECT_EQ(drive.Text(), "25 m");
}

/// 20000 s at 54.3 km/h are 301.667 km; single precision makes them 301.708 (worked out apart,
/// rounding after each step).
TEST_F(DistanceSensorTest, SumIsKeptInSinglePrecision) {
  EXPECT_EQ(drive.Every(0, 20001, 54.3F).State(), "301.708");
}

TEST_F(DistanceSensorTest, StandingWritesTheTextButAddsNothing) {
  EXPECT_EQ(drive.At(0, 0).At(1, 0).Text(), "0 m");
  EXPECT_EQ(drive.State(), "0");
}

TEST_F(DistanceSensorTest, GapWithoutAFixAddsNothing) {
  drive.Every(0, 11, 36).LostAt(11, 36).At(20, 36);
  EXPECT_EQ(drive.State(), "0.1");
  EXPECT_EQ(drive.At(21, 36).Text(), "110 m");
}

TEST_F(DistanceSensorTest, GapWithoutASpeedAddsNothing) {
  drive.Every(0, 11, 36).WithoutSpeedAt(11).At(20, 36);
  EXPECT_EQ(drive.State(), "0.1");
}

TEST_F(DistanceSensorTest, LongStepBetweenTwoFixesIsDriven) {
  EXPECT_EQ(drive.At(0, 36).At(100, 36).Text(), "1.00 km");
}

TEST_F(DistanceSensorTest, ClockThatGoesBackOnlySeedsAfresh) {
  drive.Every(0, 11, 36).At(5, 36);
  EXPECT_EQ(drive.State(), "0.1");
  EXPECT_EQ(drive.At(6, 36).Text(), "110 m");
}

TEST_F(DistanceSensorTest, FixWithoutATimeAddsNothingBeforeOrBehindIt) {
  drive.Every(0, 11, 36).Timeless(36).At(12, 36);
  EXPECT_EQ(drive.State(), "0.1");
  EXPECT_EQ(drive.At(13, 36).Text(), "110 m");
}

TEST_F(DistanceSensorTest, UnitAndDecimalsDependOnTheDistance) {
  EXPECT_EQ(TextOfRestored("0.5"), "500 m");
  EXPECT_EQ(TextOfRestored("0.0004"), "0 m");
  EXPECT_EQ(TextOfRestored("0.9994"), "999 m");
  EXPECT_EQ(TextOfRestored("1"), "1.00 km");
  EXPECT_EQ(TextOfRestored("1.25"), "1.25 km");
  EXPECT_EQ(TextOfRestored("9.99"), "9.99 km");
  EXPECT_EQ(TextOfRestored("10"), "10.0 km");
  EXPECT_EQ(TextOfRestored("12.5"), "12.5 km");
  EXPECT_EQ(TextOfRestored("1234.56"), "1234.6 km");
}

TEST_F(DistanceSensorTest, RestoredDistanceIsDrivenOn) {
  TextOfRestored("12.5");
  EXPECT_EQ(drive.State(), "12.5");
  EXPECT_EQ(drive.At(0, 36).At(100, 36).Text(), "13.5 km");
}

TEST_F(DistanceSensorTest, OnlyAPositiveDistanceIsRestored) {
  TextOfRestored("12.5");
  for (const char* text : {"0", "-5", "", "far"}) {
    EXPECT_EQ(sensor.SetRegistryString(text), 0) << text;
  }
  EXPECT_EQ(drive.Text(), "12.5 km");
  EXPECT_EQ(drive.State(), "12.5");
}

TEST_F(DistanceSensorTest, ResetStartsAtZeroButLeavesTheTextUntilTheNextStep) {
  drive.Every(0, 11, 36);
  sensor.Reset();
  EXPECT_EQ(drive.Text(), "100 m");
  EXPECT_EQ(drive.State(), "0");
  EXPECT_EQ(drive.At(11, 36).Text(), "100 m");
  EXPECT_EQ(drive.At(12, 36).Text(), "10 m");
}

}  // namespace
}  // namespace ferolin
