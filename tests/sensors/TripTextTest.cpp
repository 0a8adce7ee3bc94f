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
  EXPECT_EQ("9.500 s", TimeText(9.5));
  EXPECT_EQ("12.35 s", TimeText(12.3456));
  EXPECT_EQ("123.5 s", TimeText(123.456));
  EXPECT_EQ("1235 s", TimeText(1234.56));
}

TEST(TimeTextTest, LimitsBelongToTheCoarserForm) {
  EXPECT_EQ("10.00 s", TimeText(10));
  EXPECT_EQ("100.0 s", TimeText(100));
  EXPECT_EQ("1000 s", TimeText(1000));
}

TEST(TimeTextTest, PrecisionIsChosenBeforeRounding) {
  EXPECT_EQ("10.000 s", TimeText(9.9999));
  EXPECT_EQ("100.00 s", TimeText(99.999));
  EXPECT_EQ("1000.0 s", TimeText(999.99));
}

}  // namespace
}  // namespace ferolin
