#include <gtest/gtest.h>

#include "sources/ClockWatch.h"

namespace host {
namespace {

constexpr std::int64_t SECOND = 1000;
constexpr std::int64_t HOUR = 3600 * SECOND;
constexpr std::int64_t YEAR = 8766 * HOUR;
constexpr std::int64_t CLOCK_START = 50 * YEAR;

/// Whether the clock jumps when it makes this step.
bool Jumps(std::int64_t stepMs) {
  ClockWatch clock;
  EXPECT_FALSE(clock.Jumps(CLOCK_START));
  return clock.Jumps(CLOCK_START + stepMs);
}

TEST(ClockWatch, TakesItsTimeFromTheFirstTimeStamp) {
  ClockWatch clock;
  EXPECT_FALSE(clock.Jumps(CLOCK_START));
  EXPECT_FALSE(clock.Jumps(CLOCK_START + SECOND));
}

TEST(ClockWatch, AcceptsGapsOfUpToAnHour) {
  EXPECT_FALSE(Jumps(0));
  EXPECT_FALSE(Jumps(HOUR));
  EXPECT_TRUE(Jumps(HOUR + 1));
  EXPECT_TRUE(Jumps(20 * YEAR));
}

TEST(ClockWatch, AcceptsStepsBackOfUpToFiveSeconds) {
  EXPECT_FALSE(Jumps(-5 * SECOND));
  EXPECT_TRUE(Jumps(-5 * SECOND - 1));
  EXPECT_TRUE(Jumps(-40 * YEAR));
}

TEST(ClockWatch, GoesOnFromTheNewTime) {
  ClockWatch clock;
  clock.Jumps(CLOCK_START);
  EXPECT_TRUE(clock.Jumps(CLOCK_START + YEAR));
  EXPECT_FALSE(clock.Jumps(CLOCK_START + YEAR + SECOND));
  EXPECT_TRUE(clock.Jumps(CLOCK_START));
}

}  // namespace
}  // namespace host
