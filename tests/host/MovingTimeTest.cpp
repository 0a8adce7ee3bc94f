#include <gtest/gtest.h>

#include "SpeedFix.h"
#include "sources/MovingTime.h"

namespace host {
namespace {

class MovingTimeTest : public testing::Test {
 protected:
  void Add(std::int64_t timeMs, std::optional<double> kmh, bool hasFix = true) {
    time.Add(SpeedFix(timeMs, kmh, hasFix));
  }

  MovingTime time;
};

TEST_F(MovingTimeTest, DividesTimeByTheSpeedAtTheEndOfEachStep) {
  Add(0, 0);
  Add(10000, 0.9);   // 10 s at a standstill
  Add(11000, 71.1);  // 1 s at 36 km/h in the mean: 10 m
  Add(13000, 0.9);   // 2 s at a standstill
  Add(13500, 1);     // 0.5 s in motion at 0.95 km/h
  EXPECT_EQ(12000, time.GetSums().stoppedMs);
  EXPECT_EQ(1500, time.GetSums().movingMs);
  EXPECT_NEAR(0.010 + 0.95 * 0.5 / 3600, time.GetSums().movingKm, 1e-12);
}

TEST_F(MovingTimeTest, HasAnAverageOnceOneMoves) {
  Add(0, 0);
  Add(60000, 0);
  EXPECT_EQ(std::nullopt, time.GetSums().GetAverageKmh());
  Add(61000, 72);  // 36 km/h in the mean
  Add(62000, 72);
  EXPECT_DOUBLE_EQ(54, time.GetSums().GetAverageKmh().value_or(0));
}

TEST_F(MovingTimeTest, CountsNoTimeWithoutAFixOrASpeed) {
  Add(0, 36);
  Add(1000, 36, false);
  Add(2000, 36);
  Add(3000, std::nullopt);
  Add(4000, 36);
  time.Add(Fix());
  Add(5000, 36);
  EXPECT_EQ(MovingTime::Sums(), time.GetSums());
}

TEST_F(MovingTimeTest, CountsNoJumpOfTheClock) {
  constexpr std::int64_t TWO_HOURS_MS = 7200000;
  Add(0, 36);
  Add(TWO_HOURS_MS, 36);
  Add(0, 36);
  Add(1000, 36);
  EXPECT_EQ(1000, time.GetSums().movingMs);
}

TEST_F(MovingTimeTest, GoesOnFromKeptSums) {
  Add(0, 36);
  time.Resume({1.5, 90000, 60000});
  Add(1000, 36);
  EXPECT_EQ((MovingTime::Sums{1.5, 90000, 60000}), time.GetSums());
  Add(2000, 36);
  EXPECT_EQ((MovingTime::Sums{1.51, 91000, 60000}), time.GetSums());
}

}  // namespace
}  // namespace host
