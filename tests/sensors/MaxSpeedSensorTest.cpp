#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/MaxSpeedSensor.h"

namespace ferolin {
namespace {

class MaxSpeedSensorTest : public testing::Test {
 protected:
  MaxSpeedSensor sensor{"Max speed"};
  Drive drive{sensor};
};

TEST_F(MaxSpeedSensorTest, IsSaveable) {
  EXPECT_EQ(sensor.IsSaveable(), 1);
}

TEST_F(MaxSpeedSensorTest, StartsWithoutAMaximum) {
  EXPECT_EQ(drive.State(), "-9999");
  EXPECT_EQ(drive.Text(), "");
}

TEST_F(MaxSpeedSensorTest, FirstSpeedIsTheMaximum) {
  EXPECT_EQ(drive.At(0, 0).Text(), "0.0 km/h");
  EXPECT_EQ(drive.State(), "0");
}

TEST_F(MaxSpeedSensorTest, OnlyAGreaterSpeedRaisesTheMaximum) {
  drive.At(0, 50.5F).At(1, 50);
  EXPECT_EQ(drive.Text(), "50.5 km/h");
  EXPECT_EQ(drive.At(2, 60.25F).Text(), "60.2 km/h");
  EXPECT_EQ(drive.State(), "60.25");
}

TEST_F(MaxSpeedSensorTest, LostFixKeepsTheMaximum) {
  EXPECT_EQ(drive.At(0, 50).LostAt(1, 20).Text(), "50.0 km/h");
}

TEST_F(MaxSpeedSensorTest, SpeedCountsWithoutAValidFix) {
  EXPECT_EQ(drive.LostAt(0, 70).Text(), "70.0 km/h");
}

TEST_F(MaxSpeedSensorTest, MissingSpeedNeverBecomesTheMaximum) {
  EXPECT_EQ(drive.WithoutSpeedAt(0).Text(), "");
  EXPECT_EQ(drive.State(), "-9999");
  EXPECT_EQ(drive.At(1, 50).WithoutSpeedAt(2).Text(), "50.0 km/h");
}

TEST_F(MaxSpeedSensorTest, RestoredMaximumIsShownAtOnce) {
  EXPECT_EQ(sensor.SetRegistryString("123.456"), 1);
  EXPECT_EQ(drive.Text(), "123.5 km/h");
  EXPECT_EQ(drive.State(), "123.456");
  EXPECT_EQ(drive.At(0, 100).Text(), "123.5 km/h");
}

TEST_F(MaxSpeedSensorTest, OnlyAPositiveMaximumIsRestored) {
  drive.At(0, 50);
  for (const char* text : {"0", "-5", "", "fast", "-9999"}) {
    EXPECT_EQ(sensor.SetRegistryString(text), 0) << text;
  }
  EXPECT_EQ(drive.Text(), "50.0 km/h");
  EXPECT_EQ(drive.State(), "50");
}

TEST_F(MaxSpeedSensorTest, LowerMaximumIsRestoredToo) {
  drive.At(0, 50);
  EXPECT_EQ(sensor.SetRegistryString("30"), 1);
  EXPECT_EQ(drive.Text(), "30.0 km/h");
}

TEST_F(MaxSpeedSensorTest, ResetForgetsTheMaximumAndEmptiesTheText) {
  drive.At(0, 50);
  sensor.Reset();
  EXPECT_EQ(drive.Text(), "");
  EXPECT_EQ(drive.State(), "-9999");
  EXPECT_EQ(drive.At(1, 10).Text(), "10.0 km/h");
}

}  // namespace
}  // namespace ferolin
