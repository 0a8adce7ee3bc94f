#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/FastestSensor.h"

namespace ferolin {
namespace {

// 36 km/h are 10 m in a second. 36 x 0.2777777851363761 is a little more, but its nearest
// single-precision number is 10; likewise 54 km/h give 15, 72 give 20, 360 give 100 and 3.6 give 1.

class FastestSensorTest : public testing::Test {
 protected:
  FastestSensor sensor{402};
  Drive drive{sensor};
};

TEST_F(FastestSensorTest, NameHoldsTheTarget) {
  EXPECT_STREQ("Fastest 402m", sensor.GetName());
  EXPECT_STREQ("Fastest 10000m", FastestSensor(10000).GetName());
}

TEST_F(FastestSensorTest, IsSaveable) {
  EXPECT_EQ(1, sensor.IsSaveable());
}

TEST_F(FastestSensorTest, StartsWithoutARecord) {
  EXPECT_EQ("402;0", drive.State());
  EXPECT_EQ("", drive.At(0, 36).Text());
}

/// 41 segments of 10 m: 40 stored ones of one second, and a fifth of the second in which the run
/// starts.
TEST_F(FastestSensorTest, RunIsFoundOnceItIsAsLongAsTheTarget) {
  EXPECT_EQ("", drive.Every(0, 41, 36).Text());
  EXPECT_EQ("40.20 s", drive.At(41, 36).Text());
  EXPECT_EQ("402;40200", drive.State());
}

/// Behind the record only the newest segment of 10 m is left; at 72 km/h follow one of 15 m and
/// then 20 m each. The 20th fix makes 19 x 20 + 15 = 395 m and with the first segment 405 m: 20 s
/// and 0.7 s.
TEST_F(FastestSensorTest, FoundRunStartsAfreshWithTheNewestSegment) {
  drive.Every(0, 42, 36);
  EXPECT_EQ("40.20 s", drive.Every(42, 19, 72).Text());
  EXPECT_EQ("20.70 s", drive.At(61, 72).Text());
}

TEST_F(FastestSensorTest, OnlyABetterTimeIsARecord) {
  drive.Every(0, 42, 72);
  EXPECT_EQ("20.10 s", drive.Text());
  drive.Every(42, 200, 36);
  EXPECT_EQ("20.10 s", drive.Text());
}

/// 50 m in 5 s, then 20 m in 2 s; the target of 60 m lies 40 m into the first: 5 s and 4 s. The
/// segment that has just come does not add its time.
TEST_F(FastestSensorTest, TimeIsThatOfTheStoredSegmentsAndTheShareOfTheFirst) {
  FastestSensor to60(60);
  Drive other(to60);
  EXPECT_EQ("", other.At(0, 36).At(5, 36).Text());
  EXPECT_EQ("9.000 s", other.At(7, 36).Text());
}

/// As above with 5.9 s and 2.5 s: the lengths count whole seconds, the times do not. 5.9 + 0.8 x
/// 5.9.
TEST_F(FastestSensorTest, LengthsCountWholeSecondsOnly) {
  FastestSensor to60(60);
  Drive other(to60);
  EXPECT_EQ("10.62 s", other.At(0, 36).At(5.9, 36).At(8.4, 36).Text());
}

/// 200 m backwards, then 60 m and 60 m forwards: 1 s and 40/60 of the second in which the run starts.
TEST_F(FastestSensorTest, WayBackwardsDoesNotHideARunBehindIt) {
  FastestSensor to100(100);
  Drive other(to100);
  EXPECT_EQ("", other.At(0, -720).At(1, -720).At(2, 1152).Text());
  EXPECT_EQ("1.666 s", other.At(3, -720).Text());
}

TEST_F(FastestSensorTest, SegmentLengthIsTheMeanSpeedsWay) {
  // 0 to 72 km/h in 10 s: 100 m; 1 s at 72: 20 m. 110 m: 90 m into the first, 10 s and 9 s.
  FastestSensor to110(110);
  Drive other(to110);
  EXPECT_EQ("19.00 s", other.At(0, 0).At(10, 72).At(11, 72).Text());
}

TEST_F(FastestSensorTest, SegmentThatIsLongEnoughAloneWaitsForAStoredOne) {
  FastestSensor to100(100);
  Drive other(to100);
  EXPECT_EQ("", other.At(0, 36).At(20, 36).Text());
}

TEST_F(FastestSensorTest, StopEmptiesTheRun) {
  drive.Every(0, 41, 36).At(41, 0);
  // From the stop on: a segment of 5 m, then 10 m each. 40 of them come to 395 m, 41 to 405 m.
  drive.Every(42, 40, 36);
  EXPECT_EQ("", drive.Text());
  EXPECT_EQ("40.40 s", drive.At(82, 36).Text());  // 2 of the 5 m: 40 s and 0.4 s
}

TEST_F(FastestSensorTest, LostFixEmptiesTheRun) {
  drive.Every(0, 41, 36).LostAt(41, 36).Every(42, 41, 36);
  EXPECT_EQ("", drive.Text());
  EXPECT_EQ("40.20 s", drive.At(83, 36).Text());
}

TEST_F(FastestSensorTest, MissingSpeedEmptiesTheRun) {
  drive.Every(0, 41, 36).WithoutSpeedAt(41).Every(42, 41, 36);
  EXPECT_EQ("", drive.Text());
}

TEST_F(FastestSensorTest, ClockThatGoesBackAddsNoSegment) {
  drive.Every(0, 41, 36).At(20, 36);
  EXPECT_EQ("", drive.Text());
  EXPECT_EQ("40.20 s", drive.At(21, 36).Text());
}

TEST_F(FastestSensorTest, FixWithoutATimeAddsNoSegment) {
  drive.Timeless(36).At(0, 36).At(1, 36);
  EXPECT_EQ("", drive.Text());
}

/// Half a second is no whole one, so its segment has no length. A following one of 200 m is longer
/// than the target by itself, and there is nothing to take a share of.
TEST_F(FastestSensorTest, SegmentWithoutLengthIsNoStartOfARun) {
  FastestSensor to100(100);
  Drive other(to100);
  EXPECT_EQ("", other.At(0, 36).At(0.5, 36).At(20.5, 36).Text());
  EXPECT_EQ("100;0", other.State());
  // The 200 m are stored: 90 m into them lie 20 s and 9 s.
  EXPECT_EQ("29.00 s", other.At(21.5, 36).Text());
}

/// 300 segments of 1 m are stored; the 301st comes with the 302nd fix.
TEST_F(FastestSensorTest, RunOf301SegmentsIsStillFound) {
  FastestSensor to301(301);
  Drive other(to301);
  EXPECT_EQ("", other.Every(0, 301, 3.6F).Text());
  EXPECT_EQ("301.0 s", other.At(301, 3.6F).Text());
}

TEST_F(FastestSensorTest, LongerRunIsNeverFound) {
  FastestSensor to302(302);
  Drive other(to302);
  EXPECT_EQ("", other.Every(0, 2000, 3.6F).Text());
}

/// 300 segments of 0.1 m, then one of 50 m: 80 m of 100. All are dropped, the last one too, so that
/// the 99.9 m of the next fix stand alone; the one after that finds them.
TEST_F(FastestSensorTest, SegmentThatOverflowsTheRunIsNotStored) {
  FastestSensor to100(100);
  Drive other(to100);
  other.Every(0, 301, 0.36F).At(301, 359.64F);
  EXPECT_EQ("", other.At(302, 359.64F).Text());
  EXPECT_NE("", other.At(303, 359.64F).Text());
}

TEST_F(FastestSensorTest, RestoredRecordIsShownAtOnce) {
  EXPECT_EQ(1, sensor.SetRegistryString("402;15250"));
  EXPECT_EQ("15.25 s", drive.Text());
  EXPECT_EQ("402;15250", drive.State());
  drive.Every(0, 42, 36);
  EXPECT_EQ("15.25 s", drive.Text());
}

TEST_F(FastestSensorTest, RestoredTargetReplacesTheOldOne) {
  EXPECT_EQ(1, sensor.SetRegistryString("150;1234567"));
  EXPECT_STREQ("Fastest 150m", sensor.GetName());
  EXPECT_EQ("1235 s", drive.Text());
  // 15 segments of 10 m: the 14 stored ones, and the whole of the one in which the run starts.
  EXPECT_EQ("15.00 s", drive.Every(0, 16, 36).Text());
}

TEST_F(FastestSensorTest, OnlyAPositiveTargetWithAPositiveTimeIsRestored) {
  sensor.SetRegistryString("402;15250");
  for (const char* text :
       {"402;0", "402;-5", "0;100", "-402;100", "402", "402;", ";100", "", "x;y"}) {
    EXPECT_EQ(0, sensor.SetRegistryString(text)) << text;
  }
  EXPECT_STREQ("Fastest 402m", sensor.GetName());
  EXPECT_EQ("15.25 s", drive.Text());
  EXPECT_EQ("402;15250", drive.State());
}

/// 2^32 + 5 milliseconds.
TEST_F(FastestSensorTest, LowHalfOfTheMillisecondsIsSaved) {
  EXPECT_EQ(1, sensor.SetRegistryString("402;4294967301"));
  EXPECT_EQ("402;5", drive.State());
  EXPECT_EQ("4294967 s", drive.Text());
}

TEST_F(FastestSensorTest, ResetForgetsRecordAndRunButLeavesTheText) {
  drive.Every(0, 42, 36).Every(42, 30, 36);
  sensor.Reset();
  EXPECT_EQ("40.20 s", drive.Text());
  EXPECT_EQ("402;0", drive.State());
  drive.Every(72, 41, 36);
  EXPECT_EQ("402;0", drive.State());
  EXPECT_EQ("402;40200", drive.At(113, 36).State());
}

}  // namespace
}  // namespace ferolin
