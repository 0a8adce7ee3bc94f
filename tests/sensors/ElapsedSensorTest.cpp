#include <gtest/gtest.h>

#include "Drive.h"
#include "sensors/ElapsedSensor.h"

namespace ferolin {
namespace {

class ElapsedSensorTest : public testing::Test {
 protected:
  std::string TextOfRestored(const char* state) {
    EXPECT_EQ(sensor.SetRegistryString(state), 1) << state;
    return drive.Text();
  }

  ElapsedSensor sensor{"Elapsed"};
  Drive drive{sensor};
};

TEST_F(ElapsedSensorTest, IsSaveable) {
  EXPECT_EQ(sensor.IsSaveable(), 1);
}

TEST_F(ElapsedSensorTest, FirstFixOnlySeeds) {
  EXPECT_EQ(drive.At(0, 36).Text(), "");
  EXPECT_EQ(drive.State(), "0");
}

TEST_F(ElapsedSensorTest, ElevenFixesOneSecondApartAreTenSeconds) {
  EXPECT_EQ(drive.Every(0, 11, 36).Text(), "10 s");
  EXPECT_EQ(drive.State(), "10");
}

TEST_F(ElapsedSensorTest, StandingTimeCounts) {
  EXPECT_EQ(drive.Every(0, 6, 0).Text(), "5 s");
}

TEST_F(ElapsedSensorTest, FractionsOfEachStepAreDropped) {
  EXPECT_EQ(drive.At(0, 36).At(1.9, 36).Text(), "1 s");
  EXPECT_EQ(drive.At(3.8, 36).Text(), "2 s");
  EXPECT_EQ(drive.At(4.3, 36).Text(), "2 s");
}

TEST_F(ElapsedSensorTest, GapWithoutAFixCountsOnceTheFixIsBack) {
  drive.At(0, 36).At(1, 36).LostAt(2).WithoutSpeedAt(3);
  EXPECT_EQ(drive.Text(), "1 s");
  EXPECT_EQ(drive.At(61, 36).Text(), "1:01");
}

TEST_F(ElapsedSensorTest, ClockThatGoesBackOnlyRestartsTheStep) {
  EXPECT_EQ(drive.At(100, 36).At(110, 36).At(50, 36).Text(), "10 s");
  EXPECT_EQ(drive.At(55, 36).Text(), "15 s");
}

TEST_F(ElapsedSensorTest, FormDependsOnTheTime) {
  EXPECT_EQ(TextOfRestored("1"), "1 s");
  EXPECT_EQ(TextOfRestored("59"), "59 s");
  EXPECT_EQ(TextOfRestored("60"), "1:00");
  EXPECT_EQ(TextOfRestored("61"), "1:01");
  EXPECT_EQ(TextOfRestored("3599"), "59:59");
  EXPECT_EQ(TextOfRestored("3600"), "1:00:00");
  EXPECT_EQ(TextOfRestored("3725"), "1:02:05");
  EXPECT_EQ(TextOfRestored("86399"), "23:59:59");
  EXPECT_EQ(TextOfRestored("86400"), "1days0:0:0");
  EXPECT_EQ(TextOfRestored("90061"), "1days1:1:1");
  EXPECT_EQ(TextOfRestored("183845"), "2days3:4:5");
}

TEST_F(ElapsedSensorTest, RestoredTimeGoesOn) {
  TextOfRestored("3725");
  EXPECT_EQ(drive.At(0, 36).At(5, 36).Text(), "1:02:10");
  EXPECT_EQ(drive.State(), "3730");
}

TEST_F(ElapsedSensorTest, OnlyAPositiveTimeIsRestored) {
  TextOfRestored("3725");
  for (const char* text : {"0", "-5", "", "long", "0.5"}) {
    EXPECT_EQ(sensor.SetRegistryString(text), 0) << text;
  }
  EXPECT_EQ(drive.Text(), "1:02:05");
  EXPECT_EQ(drive.State(), "3725");
}

/// 2^63 - 1 seconds are 106751991167300 days, more than a number holds, and 15:30:07.
TEST_F(ElapsedSensorTest, TimeBeyondAllNumbersStaysAtTheLargest) {
  EXPECT_EQ(TextOfRestored("9223372036854775807"), "2147483647days15:30:7");
  EXPECT_EQ(drive.At(0, 36).At(5, 36).Text(), "2147483647days15:30:7");
}

/// 4294967301 = 2^32 + 5: 49710 days, 6 hours, 28 minutes and 21 seconds.
TEST_F(ElapsedSensorTest, LowHalfOfTheSecondsIsSaved) {
  EXPECT_EQ(TextOfRestored("4294967301"), "49710days6:28:21");
  EXPECT_EQ(drive.State(), "5");
}

TEST_F(ElapsedSensorTest, ResetStartsAtZeroButLeavesTheTextUntilTheNextStep) {
  drive.Every(0, 11, 36);
  sensor.Reset();
  EXPECT_EQ(drive.Text(), "10 s");
  EXPECT_EQ(drive.State(), "0");
  EXPECT_EQ(drive.At(20, 36).Text(), "10 s");
  EXPECT_EQ(drive.At(22, 36).Text(), "2 s");
}

}  // namespace
}  // namespace ferolin
