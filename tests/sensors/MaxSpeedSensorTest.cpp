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
  EXPECT_EQ(1, sensor.IsSaveable());
}

TEST_F(MaxSpeedSensorTest, StartsWithoutAMaximum) {
  EXPECT_EQ("-9999", drive.State());
  EXPECT_EQ("", drive.Text());
}

TEST_F(MaxSpeedSensorTest, FirstSpeedIsTheMaximum) {
  EXPECT_EQ("0.0 km/h", drive.At(0, 0).Text());
  EXPECT_EQ("0", drive.State());
}

TEST_F(MaxSpeedSensorTest, OnlyAGreaterSpeedRaisesTheMaximum) {
  drive.At(0, 50.5F).At(1, 50);
  EXPECT_EQ("50.5 km/h", drive.Text());
  EXPECT_EQ("60.2 km/h", drive.At(2, 60.25F).Text());
  EXPECT_EQ("60.25", drive.State());
}

TEST_F(MaxSpeedSensorTest, LostFixKeepsTheMaximum) {
  EXPECT_EQ("50.0 km/h", drive.At(0, 50).LostAt(1, 20).Text());
}

TEST_F(MaxSpeedSensorTest, SpeedCountsWithoutAValidFix) {
  EXPECT_EQ("70.0 km/h", drive.LostAt(0, 70).Text());
}

TEST_F(MaxSpeedSensorTest, MissingSpeedNeverBecomesTheMaximum) {
  EXPECT_EQ("", drive.WithoutSpeedAt(0).Text());
  EXPECT_EQ("-9999", drive.State());
  EXPECT_EQ("50.0 km/h", drive.At(1, 50).WithoutSpeedAt(2).Text());
}

TEST_F(MaxSpeedSensorTest, RestoredMaximumIsShownAtOnce) {
  EXPECT_EQ(1, sensor.SetRegistryString("123.456"));
  EXPECT_EQ("123.5 km/h", drive.Text());
  EXPECT_EQ("123.456", drive.State());
  EXPECT_EQ("123.5 km/h", drive.At(0, 100).Text());
}

TEST_F(MaxSpeedSensorTest, OnlyAPositiveMaximumIsRestored) {
  drive.At(0, 50);
  for (const char* text : {"0", "-5", "", "fast", "-9999"}) {
    EXPECT_EQ(0, sensor.SetRegistryString(text)) << text;
  }
  EXPECT_EQ("50.0 km/h", drive.Text());
  EXPECT_EQ("50", drive.State());
}

TEST_F(MaxSpeedSensorTest, LowerMaximumIsRestoredToo) {
  drive.At(0, 50);
  EXPECT_EQ(1, sensor.SetRegistryString("30"));
  EXPECT_EQ("30.0 km/h", drive.Text());
}

TEST_F(MaxSpeedSensorTest, ResetForgetsTheMaximumAndEmptiesTheText) {
  drive.At(0, 50);
  sensor.Reset();
  EXPECT_EQ("", drive.Text());
  EXPECT_EQ("-9999", drive.State());
  EXPECT_EQ("10.0 km/h", drive.At(1, 10).Text());
}

}  // namespace
}  // namespace ferolin
