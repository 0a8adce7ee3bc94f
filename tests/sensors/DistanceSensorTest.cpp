#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/DistanceSensor.h"

namespace ferolin {
namespace {

class DistanceSensorTest : public testing::Test {
 protected:
  std::string TextOfRestored(const char* state) {
    EXPECT_EQ(1, sensor.SetRegistryString(state)) << state;
    return drive.Text();
  }

  DistanceSensor sensor{"Distance"};
  Drive drive{sensor};
};

TEST_F(DistanceSensorTest, IsSaveable) {
  EXPECT_EQ(1, sensor.IsSaveable());
}

TEST_F(DistanceSensorTest, FirstFixOnlySeeds) {
  EXPECT_EQ("", drive.At(0, 36).Text());
  EXPECT_EQ("0", drive.State());
}

TEST_F(DistanceSensorTest, TenSecondsAt36KmhAreAHundredMetres) {
  EXPECT_EQ("100 m", drive.Every(0, 11, 36).Text());
  EXPECT_EQ("0.1", drive.State());
}

/// Mean speeds of 5, 30 and 51 km/h over 1, 2 and 0.5 seconds: (5 + 60 + 25.5) / 3600 km.
TEST_F(DistanceSensorTest, SpeedIsIntegratedByTrapezoids) {
  drive.At(0, 0).At(1, 10).At(3, 50).At(3.5, 52);
  EXPECT_EQ("0.0251389", drive.State());
  EXPECT_EQ("25 m", drive.Text());
}

/// 20000 s at 54.3 km/h are 301.667 km; single precision makes them 301.708 (worked out apart,
/// rounding after each step).
TEST_F(DistanceSensorTest, SumIsKeptInSinglePrecision) {
  EXPECT_EQ("301.708", drive.Every(0, 20001, 54.3F).State());
}

TEST_F(DistanceSensorTest, StandingWritesTheTextButAddsNothing) {
  EXPECT_EQ("0 m", drive.At(0, 0).At(1, 0).Text());
  EXPECT_EQ("0", drive.State());
}

TEST_F(DistanceSensorTest, GapWithoutAFixAddsNothing) {
  drive.Every(0, 11, 36).LostAt(11, 36).At(20, 36);
  EXPECT_EQ("0.1", drive.State());
  EXPECT_EQ("110 m", drive.At(21, 36).Text());
}

TEST_F(DistanceSensorTest, GapWithoutASpeedAddsNothing) {
  drive.Every(0, 11, 36).WithoutSpeedAt(11).At(20, 36);
  EXPECT_EQ("0.1", drive.State());
}

TEST_F(DistanceSensorTest, LongStepBetweenTwoFixesIsDriven) {
  EXPECT_EQ("1.00 km", drive.At(0, 36).At(100, 36).Text());
}

TEST_F(DistanceSensorTest, ClockThatGoesBackOnlySeedsAfresh) {
  drive.Every(0, 11, 36).At(5, 36);
  EXPECT_EQ("0.1", drive.State());
  EXPECT_EQ("110 m", drive.At(6, 36).Text());
}

TEST_F(DistanceSensorTest, FixWithoutATimeAddsNothingBeforeOrBehindIt) {
  drive.Every(0, 11, 36).Timeless(36).At(12, 36);
  EXPECT_EQ("0.1", drive.State());
  EXPECT_EQ("110 m", drive.At(13, 36).Text());
}

TEST_F(DistanceSensorTest, UnitAndDecimalsDependOnTheDistance) {
  EXPECT_EQ("500 m", TextOfRestored("0.5"));
  EXPECT_EQ("0 m", TextOfRestored("0.0004"));
  EXPECT_EQ("999 m", TextOfRestored("0.9994"));
  EXPECT_EQ("1.00 km", TextOfRestored("1"));
  EXPECT_EQ("1.25 km", TextOfRestored("1.25"));
  EXPECT_EQ("9.99 km", TextOfRestored("9.99"));
  EXPECT_EQ("10.0 km", TextOfRestored("10"));
  EXPECT_EQ("12.5 km", TextOfRestored("12.5"));
  EXPECT_EQ("1234.6 km", TextOfRestored("1234.56"));
}

TEST_F(DistanceSensorTest, RestoredDistanceIsDrivenOn) {
  TextOfRestored("12.5");
  EXPECT_EQ("12.5", drive.State());
  EXPECT_EQ("13.5 km", drive.At(0, 36).At(100, 36).Text());
}

TEST_F(DistanceSensorTest, OnlyAPositiveDistanceIsRestored) {
  TextOfRestored("12.5");
  for (const char* text : {"0", "-5", "", "far"}) {
    EXPECT_EQ(0, sensor.SetRegistryString(text)) << text;
  }
  EXPECT_EQ("12.5 km", drive.Text());
  EXPECT_EQ("12.5", drive.State());
}

TEST_F(DistanceSensorTest, ResetStartsAtZeroButLeavesTheTextUntilTheNextStep) {
  drive.Every(0, 11, 36);
  sensor.Reset();
  EXPECT_EQ("100 m", drive.Text());
  EXPECT_EQ("0", drive.State());
  EXPECT_EQ("100 m", drive.At(11, 36).Text());
  EXPECT_EQ("10 m", drive.At(12, 36).Text());
}

}  // namespace
}  // namespace ferolin
