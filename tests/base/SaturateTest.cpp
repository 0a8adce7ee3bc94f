#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "base/Saturate.h"

namespace ferolin {
namespace {

constexpr int INT_LOWEST = -2147483647 - 1;
constexpr int INT_HIGHEST = 2147483647;
constexpr std::int64_t INT64_LOWEST = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t INT64_HIGHEST = std::numeric_limits<std::int64_t>::max();

TEST(SaturateTest, DecimalsAreCut) {
  EXPECT_EQ(Saturated<int>(2.9), 2);
  EXPECT_EQ(Saturated<int>(-2.9), -2);
}

TEST(SaturateTest, ValuesBeyondTheTypeGiveItsEnds) {
  EXPECT_EQ(Saturated<int>(2147483647.0), INT_HIGHEST);
  EXPECT_EQ(Saturated<int>(2147483648.0), INT_HIGHEST);
  EXPECT_EQ(Saturated<int>(-2147483648.0), INT_LOWEST);
  EXPECT_EQ(Saturated<int>(-2147483649.5), INT_LOWEST);
  EXPECT_EQ(Saturated<std::int64_t>(9.3e18), INT64_HIGHEST);
  EXPECT_EQ(Saturated<std::int64_t>(-INFINITY), INT64_LOWEST);
}

TEST(SaturateTest, NoNumberGives0) {
  EXPECT_EQ(Saturated<int>(NAN), 0);
}

TEST(SaturateTest, LongIntegersGiveTheEndsOfShortOnes) {
  EXPECT_EQ(Saturated<int>(std::int64_t{2147483648}), INT_HIGHEST);
  EXPECT_EQ(Saturated<int>(std::int64_t{-2147483649}), INT_LOWEST);
  EXPECT_EQ(Saturated<int>(std::int64_t{-5}), -5);
}

TEST(SaturateTest, SumsStopAtTheEnds) {
  EXPECT_EQ(SaturatedSum(INT64_HIGHEST, 1), INT64_HIGHEST);
  EXPECT_EQ(SaturatedSum(INT64_LOWEST, -1), INT64_LOWEST);
  EXPECT_EQ(SaturatedSum(INT64_HIGHEST - 1, 1), INT64_HIGHEST);
  EXPECT_EQ(SaturatedSum(2, 3), 5);
}

}  // namespace
}  // namespace ferolin
