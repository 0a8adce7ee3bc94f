#include <gtest/gtest.h>

#include "gps/FixRecord.h"
#include "sensors/TripText.h"
#include "support/EditableFix.h"

namespace ferolin {
namespace {

using testing_support::EditableFix;

TEST(FixCountsTest, OnlyAValidFixWithASpeedCounts) {
  EditableFix fix;
  EXPECT_FALSE(FixCounts(fix));
  fix.fixValid = 1;
  EXPECT_FALSE(FixCounts(fix));
  fix.speedKmh = 0;
  EXPECT_TRUE(FixCounts(fix));
  fix.fixValid = 0;
  EXPECT_FALSE(FixCounts(fix));
}

TEST(TimeTextTest, PrecisionFallsWithTheNumberOfSeconds) {
  EXPECT_EQ(TimeText(9.5), "9.500 s");
  EXPECT_EQ(TimeText(12.3456), "12.35 s");
  EXPECT_EQ(TimeText(123.456), "123.5 s");
  EXPECT_EQ(TimeText(1234.56), "1235 s");
}

TEST(TimeTextTest, LimitsBelongToTheCoarserForm) {
  EXPECT_EQ(TimeText(10), "10.00 s");
  EXPECT_EQ(TimeText(100), "100.0 s");
  EXPECT_EQ(TimeText(1000), "1000 s");
}

TEST(TimeTextTest, PrecisionIsChosenBeforeRounding) {
  EXPECT_EQ(TimeText(9.9999), "10.000 s");
  EXPECT_EQ(TimeText(99.999), "100.00 s");
  EXPECT_EQ(TimeText(999.99), "1000.0 s");
}

}  // namespace
}  // namespace ferolin
