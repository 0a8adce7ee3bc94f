#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/ElapsedSensor.h"

namespace ferolin {
namespace {

class ElapsedSensorTest : public testing::Test {
 protected:
  std::string TextOfRestored(const char* state) {
    EXPECT_EQ(1, sensor.SetRegistryString(state)) << state;
    return drive.Text();
  }

  ElapsedSensor sensor{"Elapsed"};
  Drive drive{sensor};
};

TEST_F(ElapsedSensorTest, IsSaveable) {
  EXPECT_EQ(1, sensor.IsSaveable());
}

TEST_F(ElapsedSensorTest, FirstFixOnlySeeds) {
  EXPECT_EQ("", drive.At(0, 36).Text());
  EXPECT_EQ("0", drive.State());
}

TEST_F(ElapsedSensorTest, ElevenFixesOneSecondApartAreTenSeconds) {
  EXPECT_EQ("10 s", drive.Every(0, 11, 36).Text());
  EXPECT_EQ("10", drive.State());
}

TEST_F(ElapsedSensorTest, StandingTimeCounts) {
  EXPECT_EQ("5 s", drive.Every(0, 6, 0).Text());
}

TEST_F(ElapsedSensorTest, FractionsOfEachStepAreDropped) {
  EXPECT_EQ("1 s", drive.At(0, 36).At(1.9, 36).Text());
  EXPECT_EQ("2 s", drive.At(3.8, 36).Text());
  EXPECT_EQ("2 s", drive.At(4.3, 36).Text());
}

TEST_F(ElapsedSensorTest, GapWithoutAFixCountsOnceTheFixIsBack) {
  drive.At(0, 36).At(1, 36).LostAt(2).WithoutSpeedAt(3);
  EXPECT_EQ("1 s", drive.Text());
  EXPECT_EQ("1:01", drive.At(61, 36).Text());
}

TEST_F(ElapsedSensorTest, ClockThatGoesBackOnlyRestartsTheStep) {
  EXPECT_EQ("10 s", drive.At(100, 36).At(110, 36).At(50, 36).Text());
  EXPECT_EQ("15 s", drive.At(55, 36).Text());
}

TEST_F(ElapsedSensorTest, FormDependsOnTheTime) {
  EXPECT_EQ("1 s", TextOfRestored("1"));
  EXPECT_EQ("59 s", TextOfRestored("59"));
  EXPECT_EQ("1:00", TextOfRestored("60"));
  EXPECT_EQ("1:01", TextOfRestored("61"));
  EXPECT_EQ("59:59", TextOfRestored("3599"));
  EXPECT_EQ("1:00:00", TextOfRestored("3600"));
  EXPECT_EQ("1:02:05", TextOfRestored("3725"));
  EXPECT_EQ("23:59:59", TextOfRestored("86399"));
  EXPECT_EQ("1days0:0:0", TextOfRestored("86400"));
  EXPECT_EQ("1days1:1:1", TextOfRestored("90061"));
  EXPECT_EQ("2days3:4:5", TextOfRestored("183845"));
}

TEST_F(ElapsedSensorTest, RestoredTimeGoesOn) {
  TextOfRestored("3725");
  EXPECT_EQ("1:02:10", drive.At(0, 36).At(5, 36).Text());
  EXPECT_EQ("3730", drive.State());
}

TEST_F(ElapsedSensorTest, OnlyAPositiveTimeIsRestored) {
  TextOfRestored("3725");
  for (const char* text : {"0", "-5", "", "long", "0.5"}) {
    EXPECT_EQ(0, sensor.SetRegistryString(text)) << text;
  }
  EXPECT_EQ("1:02:05", drive.Text());
  EXPECT_EQ("3725", drive.State());
}

/// 2^63 - 1 seconds are 106751991167300 days, more than a number holds, and 15:30:07.
TEST_F(ElapsedSensorTest, TimeBeyondAllNumbersStaysAtTheLargest) {
  EXPECT_EQ("2147483647days15:30:7", TextOfRestored("9223372036854775807"));
  EXPECT_EQ("2147483647days15:30:7", drive.At(0, 36).At(5, 36).Text());
}

/// 4294967301 = 2^32 + 5: 49710 days, 6 hours, 28 minutes and 21 seconds.
TEST_F(ElapsedSensorTest, LowHalfOfTheSecondsIsSaved) {
  EXPECT_EQ("49710days6:28:21", TextOfRestored("4294967301"));
  EXPECT_EQ("5", drive.State());
}

TEST_F(ElapsedSensorTest, ResetStartsAtZeroButLeavesTheTextUntilTheNextStep) {
  drive.Every(0, 11, 36);
  sensor.Reset();
  EXPECT_EQ("10 s", drive.Text());
  EXPECT_EQ("0", drive.State());
  EXPECT_EQ("10 s", drive.At(20, 36).Text());
  EXPECT_EQ("2 s", drive.At(22, 36).Text());
}

}  // namespace
}  // namespace ferolin
