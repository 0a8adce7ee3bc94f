#include <gtest/gtest.h>

#include "SpeedFix.h"
#include "drives/DriveTotals.h"

namespace host {
namespace {

class DriveTotalsTest : public testing::Test {
 protected:
  void Add(std::int64_t timeMs, std::optional<double> kmh, bool hasFix = true) {
    totals.Add(SpeedFix(timeMs, kmh, hasFix));
  }

  Drive Sum() const {
    Drive drive;
    totals.PutInto(drive);
    return drive;
  }

  DriveTotals totals;
};

TEST_F(DriveTotalsTest, TakesTheMeanSpeedOverTheTimeBetween) {
  Add(1000, 36);
  Add(3000, 72);  // 54 km/h for 2 s: 30 m
  Add(3500, 72);  // 10 m
  EXPECT_DOUBLE_EQ(0.040, Sum().distanceKm);
  EXPECT_EQ(72, Sum().highestKmh);
  EXPECT_EQ(1000, Sum().startMs);
  EXPECT_EQ(3500, Sum().endMs);
}

TEST_F(DriveTotalsTest, TellsMovingFromStanding) {
  Add(0, 36);
  Add(1000, 36);
  Add(2000, 0.5);
  EXPECT_EQ((MovingTime::Sums{0.010, 1000, 1000}), Sum().moving);
}

TEST_F(DriveTotalsTest, AddsNoDistanceWithoutAFix) {
  Add(0, 36);
  Add(1000, 36);  // 10 m
  Add(2000, 360, false);
  Add(3000, 36);
  Add(4000, 36);  // 10 m
  EXPECT_DOUBLE_EQ(0.020, Sum().distanceKm);
  EXPECT_EQ(36, Sum().highestKmh);
  EXPECT_EQ(4000, Sum().endMs - Sum().startMs);
}

TEST_F(DriveTotalsTest, AddsNothingForAJumpOfTheClock) {
  constexpr std::int64_t NOW_MS = 1795000000000;
  Add(0, 36);
  Add(1000, 36);  // 10 m
  Add(NOW_MS, 36);
  Add(NOW_MS + 1000, 36);  // 10 m
  EXPECT_DOUBLE_EQ(0.020, Sum().distanceKm);
  EXPECT_EQ(NOW_MS - 1000, Sum().startMs);
  EXPECT_EQ(NOW_MS + 1000, Sum().endMs);
}

TEST_F(DriveTotalsTest, AddsNothingForSentencesOutOfTurn) {
  Add(5000, 36);
  Add(4000, 36);
  EXPECT_EQ(0, Sum().distanceKm);
  EXPECT_EQ(Sum().startMs, Sum().endMs);
}

TEST_F(DriveTotalsTest, AddsNothingWhereASpeedIsMissing) {
  Add(0, 36);
  Add(1000, std::nullopt);
  Add(2000, 36);
  EXPECT_EQ(0, Sum().distanceKm);
  EXPECT_EQ(36, Sum().highestKmh);
}

}  // namespace
}  // namespace host
