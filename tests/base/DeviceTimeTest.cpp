#include <gtest/gtest.h>

#include "base/DeviceTime.h"
#include "handheld.h"
#include "support/Moments.h"

namespace ferolin {
namespace {

using testing_support::Fields;
using testing_support::Moment;

class DeviceTimeTest : public testing::Test {
 protected:
  void SetUp() override { handheld::SetTimeZone("MSK-3"); }
  void TearDown() override {
    handheld::SetTimeZone("UTC0");
    handheld::SetClockStopped(false);
  }
};

TEST_F(DeviceTimeTest, LocalTimeLiesEastOfUtc) {
  EXPECT_EQ(Fields(Moment(2024, 5, 6, 10, 8, 9, 250)),
            Fields(LocalFromUtc(Moment(2024, 5, 6, 7, 8, 9, 250))));
}

TEST_F(DeviceTimeTest, ConversionCarriesIntoTheNextYear) {
  EXPECT_EQ(Fields(Moment(2024, 1, 1, 1, 30, 0)),
            Fields(LocalFromUtc(Moment(2023, 12, 31, 22, 30, 0))));
}

TEST_F(DeviceTimeTest, ConversionCarriesIntoTheLeapDay) {
  EXPECT_EQ(Fields(Moment(2024, 2, 29, 23, 0, 0)),
            Fields(UtcFromLocal(Moment(2024, 3, 1, 2, 0, 0))));
}

TEST_F(DeviceTimeTest, ConversionsUndoEachOther) {
  const SYSTEMTIME utc = Moment(2005, 7, 1, 12, 0, 59, 999);
  EXPECT_EQ(Fields(utc), Fields(UtcFromLocal(LocalFromUtc(utc))));
}

TEST_F(DeviceTimeTest, ConvertedTimeKnowsItsDayOfTheWeek) {
  EXPECT_EQ(3, LocalFromUtc(Moment(1994, 3, 23, 12, 35, 19)).wDayOfWeek);  // a Wednesday
}

TEST_F(DeviceTimeTest, ZonesWestOfGreenwichLagBehind) {
  handheld::SetTimeZone("EST5");
  EXPECT_EQ(Fields(Moment(2023, 12, 31, 22, 0, 0)),
            Fields(LocalFromUtc(Moment(2024, 1, 1, 3, 0, 0))));
}

TEST_F(DeviceTimeTest, TimeThatIsNoneComesBackAsItIs) {
  EXPECT_EQ(Fields(Moment(2024, 13, 1, 0, 0, 0)),
            Fields(LocalFromUtc(Moment(2024, 13, 1, 0, 0, 0))));
  EXPECT_EQ(Fields(Moment(2024, 1, 0, 0, 0, 0)), Fields(UtcFromLocal(Moment(2024, 1, 0, 0, 0, 0))));
}

TEST_F(DeviceTimeTest, DeviceTimeIsTheLocalClock) {
  handheld::SetClockStopped(true);
  handheld::SetClock(Moment(2024, 5, 6, 21, 8, 9, 40));
  EXPECT_EQ(Fields(Moment(2024, 5, 7, 0, 8, 9, 40)), Fields(DeviceTime()));
}

TEST_F(DeviceTimeTest, FileTimeCounts100NanosecondsSince1601) {
  EXPECT_EQ(0, FileTimeOf(Moment(1601, 1, 1, 0, 0, 0)));
  EXPECT_EQ(10'000, FileTimeOf(Moment(1601, 1, 1, 0, 0, 0, 1)));
  EXPECT_EQ(86'401LL * 10'000'000, FileTimeOf(Moment(1601, 1, 2, 0, 0, 1)));
  // 1601 to 1970: 369 years with 89 leap days, that is 134774 days.
  EXPECT_EQ(134'774LL * 86'400 * 10'000'000, FileTimeOf(Moment(1970, 1, 1, 0, 0, 0)));
}

TEST_F(DeviceTimeTest, FileTimeOfATimeThatIsNoneIsZero) {
  EXPECT_EQ(0, FileTimeOf(Moment(2024, 1, 0, 0, 0, 0)));
  EXPECT_EQ(0, FileTimeOf(Moment(2024, 13, 1, 0, 0, 0)));
  EXPECT_EQ(0, FileTimeOf(Moment(2023, 2, 29, 0, 0, 0)));
  EXPECT_EQ(0, FileTimeOf(Moment(2024, 1, 1, 24, 0, 0)));
  EXPECT_EQ(0, FileTimeOf(SYSTEMTIME{}));
}

}  // namespace
}  // namespace ferolin
