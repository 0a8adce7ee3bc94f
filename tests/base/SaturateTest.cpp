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
  EXPECT_EQ(2, Saturated<int>(2.9));
  EXPECT_EQ(-2, Saturated<int>(-2.9));
}

TEST(SaturateTest, ValuesBeyondTheTypeGiveItsEnds) {
  EXPECT_EQ(INT_HIGHEST, Saturated<int>(2147483647.0));
  EXPECT_EQ(INT_HIGHEST, Saturated<int>(2147483648.0));
  EXPECT_EQ(INT_LOWEST, Saturated<int>(-2147483648.0));
  EXPECT_EQ(INT_LOWEST, Saturated<int>(-2147483649.5));
  EXPECT_EQ(INT64_HIGHEST, Saturated<std::int64_t>(9.3e18));
  EXPECT_EQ(INT64_LOWEST, Saturated<std::int64_t>(-INFINITY));
}

TEST(SaturateTest, NoNumberGives0) {
  EXPECT_EQ(0, Saturated<int>(NAN));
}

TEST(SaturateTest, LongIntegersGiveTheEndsOfShortOnes) {
  EXPECT_EQ(INT_HIGHEST, Saturated<int>(std::int64_t{2147483648}));
  EXPECT_EQ(INT_LOWEST, Saturated<int>(std::int64_t{-2147483649}));
  EXPECT_EQ(-5, Saturated<int>(std::int64_t{-5}));
}

TEST(SaturateTest, SumsStopAtTheEnds) {
  EXPECT_EQ(INT64_HIGHEST, SaturatedSum(INT64_HIGHEST, 1));
  EXPECT_EQ(INT64_LOWEST, SaturatedSum(INT64_LOWEST, -1));
  EXPECT_EQ(INT64_HIGHEST, SaturatedSum(INT64_HIGHEST - 1, 1));
  EXPECT_EQ(5, SaturatedSum(2, 3));
}

}  // namespace
}  // namespace ferolin
