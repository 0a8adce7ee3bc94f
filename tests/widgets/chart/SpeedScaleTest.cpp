#include <gtest/gtest.h>

#include <limits>

#include "widgets/chart/SpeedScale.h"

namespace ferolin {

namespace {

constexpr RECT PLOT = {15, 25, 225, 305};

struct ScaleCase {
  float highest;
  int top, step;
};

class SpeedScaleFor : public testing::TestWithParam<ScaleCase> {};

TEST_P(SpeedScaleFor, IsTheSmallestThatReaches) {
  const SpeedScale scale(GetParam().highest);
  EXPECT_EQ(GetParam().top, scale.top);
  EXPECT_EQ(GetParam().step, scale.step);
}

INSTANTIATE_TEST_SUITE_P(Speeds, SpeedScaleFor,
                         testing::Values(ScaleCase{0, 20, 5}, ScaleCase{20, 20, 5},
                                         ScaleCase{20.5F, 50, 10}, ScaleCase{50, 50, 10},
                                         ScaleCase{50.5F, 100, 20}, ScaleCase{100, 100, 20},
                                         ScaleCase{100.5F, 200, 40}, ScaleCase{999, 200, 40}));

TEST(SpeedScale, CutsRowsToWholePixels) {
  const SpeedScale scale(100);
  EXPECT_EQ(305, scale.RowOf(0, PLOT));
  EXPECT_EQ(25, scale.RowOf(100, PLOT));
  EXPECT_EQ(165, scale.RowOf(50, PLOT));
  EXPECT_EQ(302, scale.RowOf(1, PLOT)) << "305 - 2.8";
}

TEST(SpeedScale, DoesNotCutSpeedsBeyondIt) {
  EXPECT_EQ(-45, SpeedScale(250).RowOf(250, PLOT)) << "305 - 350";
}

TEST(SpeedScale, SurvivesSpeedsThatAreNone) {
  EXPECT_EQ(-30000, SpeedScale(1e30F).RowOf(1e30F, PLOT));
  EXPECT_EQ(-30000, SpeedScale(0).RowOf(std::numeric_limits<float>::infinity(), PLOT));
}

}  // namespace

}  // namespace ferolin
